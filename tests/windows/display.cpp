#include "tests/windows/display.h"

#include <cstdlib>
#include <map>

namespace kovrel::test {
namespace {

bool shows_text(const Control& control) {
    return control.visible && !control.text.empty() &&
           control.window_class != L"Kovrel.PictureBox" &&
           (GetWindowLongW(control.window, GWL_STYLE) & BS_TYPEMASK) != BS_GROUPBOX;
}

/// The line of text in a single-line text box.
RECT line_of(HWND field) {
    RECT line = on_screen(field);
    RECT inner{};
    GetClientRect(field, &inner);
    MapWindowPoints(field, nullptr, reinterpret_cast<POINT*>(&inner), 2);
    const auto place = static_cast<DWORD>(ask(field, EM_POSFROMCHAR, 0));
    HDC const context = GetDC(field);
    HGDIOBJ const previous =
        SelectObject(context, reinterpret_cast<HGDIOBJ>(ask(field, WM_GETFONT)));
    TEXTMETRICW metrics{};
    GetTextMetricsW(context, &metrics);
    SelectObject(context, previous);
    ReleaseDC(field, context);
    line.top = inner.top + static_cast<short>(HIWORD(place));
    line.bottom = line.top + metrics.tmHeight;
    return line;
}

bool inside(const RECT& part, const RECT& whole) {
    return part.left >= whole.left && part.top >= whole.top && part.right <= whole.right &&
           part.bottom <= whole.bottom;
}

std::string shown(const RECT& bounds) {
    return std::to_string(bounds.left) + ", " + std::to_string(bounds.top) + " to " +
           std::to_string(bounds.right) + ", " + std::to_string(bounds.bottom);
}

/// The controls that the screen or the window clips, one per line.
std::string parts_outside(HWND window) {
    std::string result;
    if (!inside(on_screen(window), work_area())) {
        result = shown(on_screen(window)) + " in " + shown(work_area()) + "\n";
    }
    RECT inner{};
    GetClientRect(window, &inner);
    for (const Control& control : controls_of(window)) {
        if (!control.visible || inside(control.bounds, inner)) continue;
        result += narrow(control.window_class) + " \"" + narrow(control.text.substr(0, 40)) +
                  "\": " + shown(control.bounds) + " in " + shown(inner) + "\n";
    }
    return result;
}

std::wstring setting(const wchar_t* name) {
    const wchar_t* const value = _wgetenv(name);
    return value != nullptr ? value : L"";
}

}  // namespace

Picture picture_of(HWND window) {
    return picture_of_screen(on_screen(window));
}

Color ground_of(const Picture& picture) {
    std::map<Color, int> counts;
    for (const Color pixel : picture.pixels) ++counts[pixel];
    std::pair<Color, int> most{0, 0};
    for (const auto& entry : counts) {
        if (entry.second > most.second) most = entry;
    }
    return most.first;
}

double legibility_of(const Picture& picture) {
    const Color ground = ground_of(picture);
    const int frame = at_resolution(60);
    double best = 1;
    for (int y = frame; y < picture.height - frame; ++y) {
        for (int x = frame; x < picture.width - frame; ++x) {
            best = std::max(best, contrast(picture.at(x, y), ground));
        }
    }
    return best;
}

int resolution() {
    return std::stoi(setting(L"KOVREL_RESOLUTION"));
}

std::wstring colours() {
    return setting(L"KOVREL_COLOURS");
}

int at_resolution(double twips) {
    return Scale(resolution()).pixels(twips);
}

RECT on_screen(HWND window) {
    RECT bounds{};
    GetWindowRect(window, &bounds);
    return bounds;
}

RECT work_area() {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

void is_whole(HWND window) {
    // The window manager may still have to set its frame and size.
    std::string outside = "not yet";
    int still = 0;
    const auto whole = [&] {
        outside = parts_outside(window);
        still = outside.empty() ? still + 1 : 0;
        return still >= 5;
    };
    EXPECT_TRUE(wait_for(window, whole)) << outside;
    for (const Control& control : controls_of(window)) {
        if (control.window_class != L"Kovrel.PictureBox") continue;
        EXPECT_NE(GetWindowLongW(control.window, GWL_STYLE) & WS_CLIPCHILDREN, 0);
    }
}

void is_legible(HWND window) {
    EXPECT_TRUE(bring_to_front(window));
    for (const Control& control : controls_of(window)) {
        if (!shows_text(control)) continue;
        const bool is_picture = (GetWindowLongW(control.window, GWL_STYLE) &
                                 (BS_ICON | BS_TYPEMASK)) == (BS_ICON | BS_DEFPUSHBUTTON);
        const double enough = is_picture ? shape_contrast : text_contrast;
        double best = 0;
        EXPECT_TRUE(wait_until([&] {
            best = legibility_of(picture_of(control.window));
            return best >= enough;
        })) << narrow(control.text)
            << ": " << best;
    }
}

void is_in_the_middle(HWND field) {
    const RECT line = line_of(field);
    const RECT whole = on_screen(field);
    EXPECT_GT(line.top, whole.top);
    EXPECT_NEAR(line.top - whole.top, whole.bottom - line.bottom, 1);
    // Between one and one and a half lines of text high.
    EXPECT_LT(whole.bottom - whole.top, (line.bottom - line.top) * 3 / 2 + 2);
}

}  // namespace kovrel::test
