// Pictures of windows, written with the platform's own PNG encoder.
#include <objidl.h>

#include <algorithm>
#include <cstdint>
#include <set>

#include "tests/support/window_driver.h"

// The header of GDI+ needs min and max in the global namespace.
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

// What the screen shows in a rectangle: 32 bits a pixel, top row first.
class ScreenCopy {
 public:
    explicit ScreenCopy(const RECT& bounds)
        : width_(bounds.right - bounds.left), height_(bounds.bottom - bounds.top) {
        BITMAPINFO form{};
        form.bmiHeader.biSize = sizeof form.bmiHeader;
        form.bmiHeader.biWidth = width_;
        form.bmiHeader.biHeight = -height_;
        form.bmiHeader.biPlanes = 1;
        form.bmiHeader.biBitCount = 32;
        bitmap_ = CreateDIBSection(nullptr, &form, DIB_RGB_COLORS, &bits_, nullptr, 0);
        HDC const screen = GetDC(nullptr);
        HDC const copy = CreateCompatibleDC(screen);
        HGDIOBJ const previous = SelectObject(copy, bitmap_);
        BitBlt(copy, 0, 0, width_, height_, screen, bounds.left, bounds.top, SRCCOPY);
        GdiFlush();
        SelectObject(copy, previous);
        DeleteDC(copy);
        ReleaseDC(nullptr, screen);
    }
    ~ScreenCopy() { DeleteObject(bitmap_); }
    ScreenCopy(const ScreenCopy&) = delete;
    ScreenCopy& operator=(const ScreenCopy&) = delete;

    std::vector<std::uint32_t> pixels() const {
        if (bits_ == nullptr) return {};
        const auto* first = static_cast<const std::uint32_t*>(bits_);
        return {first,
                first + static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)};
    }
    HBITMAP bitmap() const { return bitmap_; }

 private:
    int width_;
    int height_;
    void* bits_ = nullptr;
    HBITMAP bitmap_ = nullptr;
};

// Something is drawn in the client area: more than two colours (background and cleared surface).
bool looks_painted(const std::vector<std::uint32_t>& pixels) {
    return std::set<std::uint32_t>(pixels.begin(), pixels.end()).size() > 2;
}

}  // namespace

bool save_picture(HWND window, const std::filesystem::path& file) {
    std::error_code ignored;
    std::filesystem::create_directories(file.parent_path(), ignored);
    RECT bounds;
    // Copying fails for rectangles that extend beyond the screen.
    const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    if (!GetWindowRect(window, &bounds) || !IntersectRect(&bounds, &bounds, &screen)) return false;
    // Painting is delayed, so the picture is taken once it no longer changes.
    std::vector<std::uint32_t> before;
    int still = 0;
    const auto settled = [&] {
        auto now = ScreenCopy(bounds).pixels();
        still = now == before && looks_painted(now) ? still + 1 : 0;
        before = std::move(now);
        return still >= 10;
    };
    const bool own = GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
    if (own) {
        pump_until(settled, Milliseconds{3000});
    } else {
        wait_until(settled, Milliseconds{3000});
    }
    return save_bitmap(ScreenCopy(bounds).bitmap(), file);
}

}  // namespace kovrel::test
