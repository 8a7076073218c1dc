// What the screen shows inside a window, compared with the pictures in tests/windows/pictures.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "tests/support/picture.h"

namespace kovrel::test {

/// Waits until the screen shows the inside of the window as its kept picture, and returns what it
/// shows. With KOVREL_WRITE_PICTURES in the environment the picture is kept anew instead.
Picture looks_as_kept(HWND window, const std::wstring& name);

/// Waits until the screen shows the inside of the window as in an earlier picture.
void looks_as_before(HWND window, const Picture& before);

/// Covers the whole screen with another window, takes it away, and checks that the window looks as
/// before.
void survives_being_covered(HWND window, const Picture& before);

}  // namespace kovrel::test
