// Reads and answers a message box that is on the screen, of this process or another.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/support/window_driver.h"

namespace kovrel::test {

struct BoxButton {
    int id = 0;            // IDOK, IDCANCEL, IDYES, ...
    std::wstring caption;  // without the access key's mark
    bool operator==(const BoxButton&) const = default;
};

struct SeenBox {
    std::wstring title;
    std::wstring text;
    // The style passed to MessageBox: icon (0, 16, 32, 48, 64), plus the set of buttons (0 OK, 1 OK
    // and Cancel, 2 Abort, Retry, Ignore, 3 Yes, No, Cancel, 4 Yes and No, 5 Retry and Cancel, 6
    // Cancel, Try, Continue), plus 256 or 512 where the second or third button is the default.
    int style = 0;
    std::vector<BoxButton> buttons;  // from left to right
    int default_button = 0;          // id
    int pressed = 0;                 // id of the button that answered it
};

// Empty unless the window is a message box that can be read (a visible, complete #32770 with a
// text and buttons).
std::optional<SeenBox> read_box(HWND window);

// How a box is answered: by its button or, with `key`, from the keyboard.
struct BoxAnswer {
    int button = 0;  // id; 0: the default button
    WORD key = 0;    // VK_RETURN, VK_ESCAPE, ...; 0: the button is pressed itself
    bool operator==(const BoxAnswer&) const = default;
};

// Answers and waits until the box is gone; false when it stays. Fills in `pressed`.
bool answer_box(HWND window, SeenBox& box, BoxAnswer how, Milliseconds limit = default_limit);

// "style|title|text|pressed" on one line: carriage return, line feed and backslash as \r, \n, \\.
std::wstring as_line(const SeenBox& box);

}  // namespace kovrel::test
