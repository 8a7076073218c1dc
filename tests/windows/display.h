// What the screen shows of windows and controls, at any resolution and with any colours.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/support/box_lines.h"
#include "tests/support/picture.h"
#include "ui/contrast.h"
#include "ui/scale.h"

namespace kovrel::test {

/// The contrast that a shape needs (WCAG 2.1, 1.4.11).
inline constexpr double shape_contrast = 3;

/// Copied from the screen.
Picture picture_of(HWND window);

/// The most frequent colour.
Color ground_of(const Picture& picture);
/// The best contrast with the background inside the picture's frame.
double legibility_of(const Picture& picture);

/// The resolution (DPI) that the test program was started with, and a length scaled to it.
int resolution();
int at_resolution(double twips);
/// The name of the colours that it was started with.
std::wstring colours();

RECT on_screen(HWND window);
RECT work_area();

/// Checks that every visible control lies in its window and the window on the screen, and that no
/// picture box draws over its contents.
void is_whole(HWND window);
/// Checks that the text of a single-line text box is centred vertically.
void is_in_the_middle(HWND field);
/// Checks the contrast of every visible text.
void is_legible(HWND window);

}  // namespace kovrel::test
