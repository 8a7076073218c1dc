// What the windows need of the system's controls beyond what these do by themselves.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <string>
#include <string_view>

namespace kovrel {

/// The text of a window or a control.
[[nodiscard]] std::wstring text_of(HWND window);

/// Replaces what the clipboard holds. Failure 521 while another program keeps it open.
void put_on_clipboard(HWND owner, std::wstring_view text);

/// A text box of several lines leaves Tab, Enter and Esc to its window and takes Ctrl+A.
void give_dialog_keys(HWND text_box);

/// When a date picker gets the focus other than by a click, its day is selected and takes the
/// digits typed; the control alone would begin with its check box, which takes none.
void begin_with_the_day(HWND date_picker);

/// The end of every subclass procedure: passes the message on, and takes the procedure off with the
/// control's last message, since the system would keep its record of it.
LRESULT pass_on(SUBCLASSPROC procedure, UINT_PTR id, HWND window, UINT message, WPARAM wparam,
                LPARAM lparam);

}  // namespace kovrel
