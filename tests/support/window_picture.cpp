// Pictures of windows, written with the platform's own PNG encoder.
#include "tests/support/window_driver.h"

// Its headers rely on <objidl.h> and on min and max without a namespace.
#include <objidl.h>

#include <algorithm>
using std::max;
using std::min;
#include <gdiplus.h>

namespace kovrel::test {
namespace {

constexpr CLSID png_encoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

bool save_bitmap(HBITMAP bitmap, const std::filesystem::path& file) {
    namespace flat = Gdiplus::DllExports;
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput startup;
    if (Gdiplus::GdiplusStartup(&token, &startup, nullptr) != Gdiplus::Ok) return false;
    Gdiplus::GpBitmap* image = nullptr;
    bool saved = false;
    if (flat::GdipCreateBitmapFromHBITMAP(bitmap, nullptr, &image) == Gdiplus::Ok) {
        saved =
            flat::GdipSaveImageToFile(image, file.c_str(), &png_encoder, nullptr) == Gdiplus::Ok;
        flat::GdipDisposeImage(image);
    }
    Gdiplus::GdiplusShutdown(token);
    return saved;
}

}  // namespace

bool save_picture(HWND window, const std::filesystem::path& file) {
    std::error_code ignored;
    std::filesystem::create_directories(file.parent_path(), ignored);
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    RECT bounds;
    GetWindowRect(window, &bounds);
    const int width = bounds.right - bounds.left;
    const int height = bounds.bottom - bounds.top;
    if (width <= 0 || height <= 0) return false;
    HDC const source = GetWindowDC(window);
    HDC const copy = CreateCompatibleDC(source);
    HBITMAP const bitmap = CreateCompatibleBitmap(source, width, height);
    HGDIOBJ const previous = SelectObject(copy, bitmap);
    const bool copied = PrintWindow(window, copy, 0) != FALSE;
    SelectObject(copy, previous);
    const bool saved = copied && save_bitmap(bitmap, file);
    DeleteObject(bitmap);
    DeleteDC(copy);
    ReleaseDC(window, source);
    return saved;
}

}  // namespace kovrel::test
