// A text box of several lines that leaves Tab, Enter and Esc to its window and can be selected as a
// whole from the keyboard.
#pragma once

#include <windows.h>

namespace kovrel {

void give_dialog_keys(HWND text_box);

}  // namespace kovrel
