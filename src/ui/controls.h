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

/// The system's window subclassing. Needs load_common_controls, as all that follow here.
void subclass(HWND window, SUBCLASSPROC procedure, UINT_PTR id, DWORD_PTR data) noexcept;
void end_subclass(HWND window, SUBCLASSPROC procedure, UINT_PTR id) noexcept;

/// The end of every subclass procedure: the next procedure, after removing this one on WM_NCDESTROY
/// as the system requires.
LRESULT pass_on(SUBCLASSPROC procedure, UINT_PTR id, HWND window, UINT message, WPARAM wparam,
                LPARAM lparam) noexcept;

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
