// What every procedure that is put over a control's own ends with.
#pragma once

#include <windows.h>
#include <commctrl.h>

namespace kovrel {

/// Passes a message on to what `procedure` was put over, by the number that it was put there with.
/// The control's last message takes the procedure away: the system would keep what it noted of it.
inline LRESULT pass_on(SUBCLASSPROC procedure, UINT_PTR id, HWND window, UINT message,
                       WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCDESTROY) RemoveWindowSubclass(window, procedure, id);
    return DefSubclassProc(window, message, wparam, lparam);
}

}  // namespace kovrel
