// The progress window at the display's resolution and in its colours.
#include <array>
#include <map>
#include <set>

#include "tests/windows/display.h"
#include "tests/windows/kept_picture.h"
#include "tests/windows/progress_window.h"

namespace kovrel::test {
namespace {

std::wstring lines(int count) {
    std::wstring text = L"Recibo 1: cargo y abono";
    for (int line = 2; line <= count; ++line) {
        text += L"\rRecibo " + std::to_wstring(line) + L": cargo y abono";
    }
    return text;
}

TEST_F(Progress, IsLegibleInEveryState) {
    for (const bool button : {false, true}) {
        start({L"Facturación", L"Generando los recibos de noviembre...", button});
        HWND const window = only_window();
        update(37, L"Generando los recibos de noviembre...");
        settle();
        is_whole(window);
        is_legible(window);
        const Picture seen = looks_as_kept(window, button ? L"progress_button" : L"progress");
        survives_being_covered(window, seen);
        finish();
    }
}

TEST_F(Progress, AMessageIsShownInWholeLines) {
    start({L"Facturación", L""});
    HWND const window = only_window();
    HWND const label = find_control(window, L"Static");
    // Adds lines until one more changes nothing.
    int whole = 0;
    Pixels before;
    for (int count = 1; whole == 0 && count <= 12; ++count) {
        update(50, lines(count));
        Pixels now = drawn(label);
        if (now.colors == before.colors) whole = count - 1;
        before = std::move(now);
    }
    EXPECT_GE(whole, 2);
    HDC const context = GetDC(label);
    HGDIOBJ const previous =
        SelectObject(context, reinterpret_cast<HGDIOBJ>(ask(label, WM_GETFONT)));
    TEXTMETRICW metrics{};
    GetTextMetricsW(context, &metrics);
    SelectObject(context, previous);
    ReleaseDC(label, context);
    EXPECT_EQ(whole, inner(label).bottom / metrics.tmHeight);
    looks_as_kept(window, L"progress_lines");
}

TEST_F(Progress, ASingleLineIsShownEvenWithoutRoom) {
    start({L"Facturación", L"", false, 240});
    HWND const label = find_control(only_window(), L"Static");
    const Pixels empty = drawn(label);
    update(50, lines(1));
    EXPECT_NE(drawn(label).colors, empty.colors);
}

/// Checks the contrast of the bar at 50 %: of the text beside it and of the text on it.
void bar_is_legible(HWND window) {
    const Pixels seen = bar_pixels(window);
    const auto colors_of = [&](int left, int right) {
        std::map<Color, int> counts;
        for (int y = 0; y < seen.height; ++y) {
            for (int x = left; x < right; ++x) ++counts[seen.at(x, y)];
        }
        return counts;
    };
    const auto under = colors_of(0, seen.width / 2);
    const auto beside = colors_of(seen.width / 2, seen.width);
    for (const auto& part : {under, beside}) {
        ASSERT_EQ(part.size(), 2U);
        EXPECT_GE(contrast(part.begin()->first, part.rbegin()->first), text_contrast);
    }
    EXPECT_GE(contrast(seen.at(0, 0), seen.at(seen.width - 1, 0)), shape_contrast);
}

TEST_F(Progress, ThePercentageIsLegible) {
    start();
    update(50);
    bar_is_legible(only_window());
    const Pixels seen = bar_pixels(only_window());
    // The background is the system's window colour.
    EXPECT_EQ(seen.at(seen.width - 1, 0), GetSysColor(COLOR_WINDOW));
}

TEST_F(Progress, UsesTheHostsBarColour) {
    const COLORREF color = RGB(0, 96, 32);
    start({L"Color", L"", false, 0, 0, -1, -1, static_cast<std::int32_t>(color)});
    update(50);
    const Pixels seen = bar_pixels(only_window());
    EXPECT_EQ(seen.at(0, 0), color);
    EXPECT_EQ(seen.at(seen.width - 1, 0), white);
}

/// Restores the system's colours at the end.
class SystemColors {
 public:
    SystemColors(COLORREF window, COLORREF highlight) { set(window, highlight); }
    SystemColors(const SystemColors&) = delete;
    SystemColors& operator=(const SystemColors&) = delete;
    ~SystemColors() { set(window_, highlight_); }

 private:
    static void set(COLORREF window, COLORREF highlight) {
        const std::array<int, 2> elements{COLOR_WINDOW, COLOR_HIGHLIGHT};
        const std::array<COLORREF, 2> colors{window, highlight};
        EXPECT_TRUE(SetSysColors(2, elements.data(), colors.data()));
    }
    COLORREF window_ = GetSysColor(COLOR_WINDOW);
    COLORREF highlight_ = GetSysColor(COLOR_HIGHLIGHT);
};

TEST_F(Progress, FollowsTheSystemsColoursWhileItIsOpen) {
    start();
    update(50);
    HWND const window = only_window();
    for (const auto& [ground, highlight] : std::initializer_list<std::pair<COLORREF, COLORREF>>{
             {RGB(0, 0, 0), RGB(26, 235, 255)}, {RGB(255, 250, 239), RGB(144, 57, 9)}}) {
        const SystemColors colors(ground, highlight);
        EXPECT_TRUE(pump_until([&, expected = ground] {
            const Pixels seen = bar_pixels(window);
            return seen.at(seen.width - 1, 0) == expected;
        }));
        bar_is_legible(window);
    }
}

TEST_F(Progress, TheCancelIconIsAntialiased) {
    start({L"Facturación", L"", true});
    const auto icon = reinterpret_cast<HICON>(
        ask(find_control(only_window(), L"Button"), BM_GETIMAGE, IMAGE_ICON));
    const int size = at_resolution(480);
    const Picture seen = picture_of(icon, size, white_color);
    // A red disc with a white cross on white has no pixel darker than the red.
    const Color disc = seen.at(size / 2, size / 8);
    std::set<Color> colors;
    for (const Color pixel : seen.pixels) {
        colors.insert(pixel);
        for (const unsigned shift : {0U, 8U, 16U}) {
            ASSERT_GE(pixel >> shift & 0xFFU, disc >> shift & 0xFFU) << std::hex << pixel;
        }
    }
    EXPECT_GT(colors.size(), 6U);
}

}  // namespace
}  // namespace kovrel::test
