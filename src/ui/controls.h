// Helpers for the system's controls and the clipboard.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <string>
#include <string_view>

namespace kovrel {

/// Loads comctl32, which takes many times as long as the library itself, before the first window.
/// The caller has activated the manifest that asks for version 6. Failure 48 or 453.
void load_common_controls();

/// A procedure that sees each message of a control first and calls `pass_on` for those that it does
/// not keep.
using ControlProcedure = LRESULT (*)(HWND control, UINT message, WPARAM wparam, LPARAM lparam,
                                     void* data);

/// Puts a procedure before a control's own and those added earlier, until the control is destroyed.
/// Unlike the system's subclassing it looks up no property of the window for each message. It takes
/// the control's user data.
void subclass(HWND control, ControlProcedure procedure, void* data);
/// Removes the newest one.
void end_subclass(HWND control, ControlProcedure procedure) noexcept;

/// Calls the control's next procedure.
LRESULT pass_on(ControlProcedure procedure, HWND control, UINT message, WPARAM wparam,
                LPARAM lparam);

[[nodiscard]] std::wstring text_of(HWND window);

/// Replaces what the clipboard holds. Failure 521 while another program keeps it open.
void put_on_clipboard(HWND owner, std::wstring_view text);

/// Makes a multi-line text box leave Tab, Enter and Esc to its window and select all on Ctrl+A.
void give_dialog_keys(HWND text_box);

/// Makes date pickers available to the process.
void register_date_pickers();

/// Makes a date picker that gets the focus other than by a click select its day, so that digits can
/// be typed at once. By itself it selects its check box.
void begin_with_the_day(HWND date_picker);

}  // namespace kovrel
