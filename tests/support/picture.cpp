// Pictures from the screen, and their files: read and written by the platform's PNG coder.
#include "tests/support/picture.h"

#include <objidl.h>

#include <algorithm>

// The header of GDI+ needs min and max in the global namespace.
using std::max;
using std::min;
#include <gdiplus.h>

namespace kovrel::test {
namespace {

namespace flat = Gdiplus::DllExports;

constexpr CLSID png_encoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

/// Between 0x00RRGGBB, as bitmaps have it, and 0x00BBGGRR.
std::uint32_t turned(std::uint32_t pixel) {
    return (pixel & 0xFFU) << 16U | (pixel & 0xFF00U) | (pixel >> 16U & 0xFFU);
}

/// A bitmap to draw into.
class Canvas {
 public:
    Canvas(int width, int height) : width_(width), height_(height) {
        BITMAPINFO form{};
        form.bmiHeader.biSize = sizeof form.bmiHeader;
        form.bmiHeader.biWidth = width;
        form.bmiHeader.biHeight = -height;
        form.bmiHeader.biPlanes = 1;
        form.bmiHeader.biBitCount = 32;
        bitmap_ = CreateDIBSection(nullptr, &form, DIB_RGB_COLORS, &bits_, nullptr, 0);
        previous_ = SelectObject(context_, bitmap_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() {
        SelectObject(context_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(context_);
    }
    [[nodiscard]] HDC context() const { return context_; }
    [[nodiscard]] Picture picture() const {
        GdiFlush();
        Picture result{width_, height_, {}};
        if (bits_ == nullptr) return result;
        const auto* const first = static_cast<const std::uint32_t*>(bits_);
        result.pixels.assign(first, first + result.index(0, height_));
        for (std::uint32_t& pixel : result.pixels) pixel = turned(pixel);
        return result;
    }

 private:
    int width_;
    int height_;
    HDC context_ = CreateCompatibleDC(nullptr);
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
    void* bits_ = nullptr;
};

/// GDI+ for as long as it is used.
class Coder {
 public:
    Coder() {
        const Gdiplus::GdiplusStartupInput input;
        started_ = Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok;
    }
    Coder(const Coder&) = delete;
    Coder& operator=(const Coder&) = delete;
    ~Coder() {
        if (started_) Gdiplus::GdiplusShutdown(token_);
    }
    [[nodiscard]] bool started() const { return started_; }

 private:
    ULONG_PTR token_ = 0;
    bool started_ = false;
};

bool copy_pixels(Gdiplus::GpBitmap* image, Picture& picture) {
    UINT width = 0;
    UINT height = 0;
    flat::GdipGetImageWidth(image, &width);
    flat::GdipGetImageHeight(image, &height);
    picture.width = static_cast<int>(width);
    picture.height = static_cast<int>(height);
    const Gdiplus::Rect whole(0, 0, picture.width, picture.height);
    Gdiplus::BitmapData data{};
    if (flat::GdipBitmapLockBits(image, &whole, Gdiplus::ImageLockModeRead, PixelFormat32bppRGB,
                                 &data) != Gdiplus::Ok) {
        return false;
    }
    for (int y = 0; y < picture.height; ++y) {
        const auto* const row =
            reinterpret_cast<const std::uint32_t*>(static_cast<const std::byte*>(data.Scan0) +
                                                   static_cast<std::ptrdiff_t>(y) * data.Stride);
        std::transform(row, row + picture.width, std::back_inserter(picture.pixels), turned);
    }
    flat::GdipBitmapUnlockBits(image, &data);
    return true;
}

}  // namespace

Picture picture_of_screen(const RECT& bounds) {
    const int width = bounds.right - bounds.left;
    const int height = bounds.bottom - bounds.top;
    const Canvas canvas(width, height);
    HDC const screen = GetDC(nullptr);
    BitBlt(canvas.context(), 0, 0, width, height, screen, bounds.left, bounds.top, SRCCOPY);
    ReleaseDC(nullptr, screen);
    return canvas.picture();
}

Picture picture_of(HICON icon, int size, std::uint32_t ground) {
    const Canvas canvas(size, size);
    HBRUSH const brush = CreateSolidBrush(ground);
    const RECT whole{0, 0, size, size};
    FillRect(canvas.context(), &whole, brush);
    DeleteObject(brush);
    DrawIconEx(canvas.context(), 0, 0, icon, size, size, 0, nullptr, DI_NORMAL);
    return canvas.picture();
}

std::optional<Picture> read_picture(const std::filesystem::path& file) {
    const Coder coder;
    Gdiplus::GpBitmap* image = nullptr;
    if (!coder.started() || flat::GdipCreateBitmapFromFile(file.c_str(), &image) != Gdiplus::Ok) {
        return std::nullopt;
    }
    Picture picture;
    const bool copied = copy_pixels(image, picture);
    flat::GdipDisposeImage(image);
    return copied ? std::optional(std::move(picture)) : std::nullopt;
}

bool write_picture(const Picture& picture, const std::filesystem::path& file) {
    std::error_code ignored;
    std::filesystem::create_directories(file.parent_path(), ignored);
    std::vector<std::uint32_t> pixels;
    std::transform(picture.pixels.begin(), picture.pixels.end(), std::back_inserter(pixels),
                   turned);
    const Coder coder;
    Gdiplus::GpBitmap* image = nullptr;
    if (!coder.started() ||
        flat::GdipCreateBitmapFromScan0(picture.width, picture.height, 4 * picture.width,
                                        PixelFormat32bppRGB, reinterpret_cast<BYTE*>(pixels.data()),
                                        &image) != Gdiplus::Ok) {
        return false;
    }
    const bool saved =
        flat::GdipSaveImageToFile(image, file.c_str(), &png_encoder, nullptr) == Gdiplus::Ok;
    flat::GdipDisposeImage(image);
    return saved;
}

}  // namespace kovrel::test
