// The progress window for tests: its areas, the pixels of its bar, and the fixture that drives it.
#pragma once

#include <windows.h>

#include <gmock/gmock.h>
#include <string>
#include <vector>

#include "progress/bar_colors.h"
#include "tests/support/box_lines.h"
#include "tests/support/late.h"

namespace kovrel::test {

inline constexpr const wchar_t* progress_class = L"Kovrel.frmBarraProgreso";
inline constexpr COLORREF white = RGB(255, 255, 255);

inline std::vector<HWND> progress_windows() {
    return top_level_windows({progress_class, {}, GetCurrentProcessId()});
}

inline HWND only_window() {
    const auto found = progress_windows();
    EXPECT_EQ(found.size(), 1U);
    return found.empty() ? nullptr : found.front();
}

inline HWND header_of(HWND window) {
    return GetParent(find_control(window, L"Static"));
}
inline HWND base_of(HWND window) {
    return GetParent(find_control(window, L"Button"));
}
inline HWND bar_of(HWND window) {
    for (const Control& control : controls_of(window)) {
        if (control.window_class == L"Kovrel.PictureBox" && control.window != header_of(window) &&
            control.window != base_of(window)) {
            return control.window;
        }
    }
    return nullptr;
}

inline RECT outer(HWND window) {
    RECT bounds{};
    GetWindowRect(window, &bounds);
    return bounds;
}
// Waits, since the position is relative to the frame while the window manager adds one.
inline void is_at(HWND window, int left, int top) {
    EXPECT_TRUE(pump_until([&] { return outer(window).left == left && outer(window).top == top; }))
        << outer(window).left << ", " << outer(window).top;
}
// Waits, since the window manager sets the size later.
inline void has_width(HWND window, int width) {
    EXPECT_TRUE(pump_until([&] { return outer(window).right - outer(window).left == width; }))
        << outer(window).right - outer(window).left;
}
inline RECT inner(HWND window) {
    RECT bounds{};
    GetClientRect(window, &bounds);
    return bounds;
}
inline RECT bounds_in(HWND control, HWND parent) {
    RECT bounds = outer(control);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&bounds), 2);
    return bounds;
}

/// Pixels of an area, row by row.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> colors;

    [[nodiscard]] COLORREF at(int x, int y) const {
        return colors[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
};

inline Pixels pixels_of(HDC context, int width, int height) {
    Pixels result{width, height, {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) result.colors.push_back(GetPixel(context, x, y));
    }
    return result;
}

/// What the window has drawn of a control.
inline Pixels drawn(HWND control) {
    HDC const context = GetDC(control);
    const RECT size = inner(control);
    Pixels result = pixels_of(context, size.right, size.bottom);
    ReleaseDC(control, context);
    return result;
}
inline Pixels bar_pixels(HWND window) {
    return drawn(bar_of(window));
}

/// The default colour of the bar.
inline COLORREF usual_bar_color() {
    return bar_colors(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_HIGHLIGHT)).bar();
}

/// Dispatches the thread's pending messages.
inline void settle() {
    (void)pump_until([] { return true; });
}

/// An instance whose windows are closed at the end.
class Progress : public testing::Test {
 protected:
    void TearDown() override {
        general_ = nullptr;
        EXPECT_THAT(progress_windows(), testing::IsEmpty());
    }

    Outcome start(const std::vector<LateArgument>& arguments = {L"Facturación",
                                                                L"Generando recibos..."}) {
        Outcome outcome = call(general_.get(), L"BarraProgresoInicia", arguments);
        EXPECT_EQ(outcome.result, S_OK);
        settle();
        return outcome;
    }
    void update(std::int32_t percentage, const std::wstring& message = L"Generando recibos...") {
        EXPECT_EQ(call(general_.get(), L"BarraProgresoActualiza", {percentage, message}).result,
                  S_OK);
    }
    void finish() { EXPECT_EQ(call(general_.get(), L"BarraProgresoFinaliza").result, S_OK); }
    bool canceled() { return call(general_.get(), L"BarraProgresoCancelada").value.to_bool(); }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
};

}  // namespace kovrel::test
