#include "ui/gdi.h"

#include <algorithm>
#include <cwchar>

#include "runtime/failure.h"

namespace kovrel {
namespace {

/// A function of user32 that is missing before Windows 10 version 1607: null there.
template <class Function>
Function* newer_function(const char* name) noexcept {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

int screen_dots_per_inch() noexcept {
    static auto* const of_system = newer_function<UINT WINAPI()>("GetDpiForSystem");
    if (of_system != nullptr) return static_cast<int>(of_system());
    const int result = GetDeviceCaps(WindowContext(nullptr).get(), LOGPIXELSY);
    return result > 0 ? result : USER_DEFAULT_SCREEN_DPI;
}

}  // namespace

int dots_per_inch(HWND window) noexcept {
    static auto* const of_window = newer_function<UINT WINAPI(HWND)>("GetDpiForWindow");
    const int result = of_window != nullptr ? static_cast<int>(of_window(window)) : 0;
    return result > 0 ? result : screen_dots_per_inch();
}

int system_metric(int index, int dots_per_inch) noexcept {
    return MulDiv(GetSystemMetrics(index), dots_per_inch, screen_dots_per_inch());
}

LOGFONTW system_font(int dots_per_inch) noexcept {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    LOGFONTW font = metrics.lfMessageFont;
    font.lfHeight = MulDiv(font.lfHeight, dots_per_inch, screen_dots_per_inch());
    return font;
}

LOGFONTW named_font(const wchar_t* name, int hundredths, int dots_per_inch,
                    BYTE pitch_and_family) noexcept {
    LOGFONTW font{};
    font.lfHeight = -MulDiv(hundredths, dots_per_inch, 7200);
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfPitchAndFamily = pitch_and_family;
    std::wcsncpy(font.lfFaceName, name, std::size(font.lfFaceName) - 1);
    return font;
}

Font make_font(const LOGFONTW& description) {
    Font font(CreateFontIndirectW(&description));
    if (!font) throw Failure(FailureNumber::out_of_memory);
    return font;
}

int line_height(HWND window, HFONT font) noexcept {
    const WindowContext context(window);
    const Selected with_font(context.get(), font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(context.get(), &metrics);
    return static_cast<int>(metrics.tmHeight);
}

Icon make_icon(Sign sign, int size) {
    const std::vector<std::uint32_t> pixels = draw_sign(sign, size);
    // The mask is for systems that ignore alpha in icons.
    const auto row_bytes = (static_cast<std::size_t>(size) + 15) / 16 * 2;
    std::vector<std::uint8_t> mask(row_bytes * static_cast<std::size_t>(size));
    for (std::size_t index = 0; index < pixels.size(); ++index) {
        const auto columns = static_cast<std::size_t>(size);
        if (pixels[index] >> 24 != 0) continue;
        auto& byte = mask[index / columns * row_bytes + index % columns / 8];
        byte = static_cast<std::uint8_t>(byte | 0x80U >> (index % columns % 8));
    }
    const Bitmap color(CreateBitmap(size, size, 1, 32, pixels.data()));
    const Bitmap shape(CreateBitmap(size, size, 1, 1, mask.data()));
    ICONINFO description{TRUE, 0, 0, shape.get(), color.get()};
    Icon icon(CreateIconIndirect(&description));
    if (!icon) throw Failure(FailureNumber::out_of_memory);
    return icon;
}

}  // namespace kovrel
