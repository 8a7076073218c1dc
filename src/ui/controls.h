// Helpers for the system's controls and the clipboard.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <string>
#include <string_view>

namespace kovrel {

[[nodiscard]] std::wstring text_of(HWND window);

/// Replaces what the clipboard holds. Failure 521 while another program keeps it open.
void put_on_clipboard(HWND owner, std::wstring_view text);

/// Makes a multi-line text box leave Tab, Enter and Esc to its window and select all on Ctrl+A.
void give_dialog_keys(HWND text_box);

/// Makes a date picker that gets the focus other than by a click select its day, so that digits can
/// be typed at once. By itself it selects its check box.
void begin_with_the_day(HWND date_picker);

/// The end of every subclass procedure: DefSubclassProc, after removing the procedure on
/// WM_NCDESTROY as the system requires.
LRESULT pass_on(SUBCLASSPROC procedure, UINT_PTR id, HWND window, UINT message, WPARAM wparam,
                LPARAM lparam);

}  // namespace kovrel
