// What the screen shows of windows and controls, at any resolution and with any colours.
#pragma once

#include <windows.h>

#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/support/box_lines.h"
#include "ui/contrast.h"
#include "ui/scale.h"

namespace kovrel::test {

/// What a shape needs on its ground (WCAG 2.1, 1.4.11).
inline constexpr double shape_contrast = 3;

/// A momentary copy, 0x00BBGGRR, row by row.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Color> pixels;

    [[nodiscard]] Color at(int x, int y) const {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
    bool operator==(const Picture&) const = default;
};

/// Of what the screen shows, whoever has drawn it.
Picture picture_of(HWND window);
/// An icon on a ground of one colour.
Picture picture_of(HICON icon, int size, Color ground);

/// The most frequent colour.
Color ground_of(const Picture& picture);
/// The best contrast with the ground that anything inside the picture's frame has.
double legibility_of(const Picture& picture);

/// The resolution that the test program was started for, and a length at it.
int resolution();
int at_resolution(double twips);

RECT on_screen(HWND window);
RECT work_area();

/// Every control that can be seen lies in its window and the window on the screen; no picture box
/// draws over what it holds.
void is_whole(HWND window);
/// A text box of one line has the same room above its text and below it.
void is_in_the_middle(HWND field);
/// Every text that can be seen stands out from its ground.
void is_legible(HWND window);
/// Keeps a picture of the window, named for the resolution and the colours.
void keep_picture(HWND window, const std::wstring& name);

}  // namespace kovrel::test
