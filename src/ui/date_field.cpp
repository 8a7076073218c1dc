#include "ui/date_field.h"

#include <commctrl.h>

#include "ui/subclass.h"

namespace kovrel {
namespace {

constexpr UINT_PTR subclass_id = 2;

/// The control has no message for it. A click on a part selects that part; controls that do not
/// tell where their check box ends always begin with it, and the day comes next.
void select_day(HWND field) {
    SYSTEMTIME shown{};
    const LRESULT state =
        SendMessageW(field, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&shown));
    if (state != GDT_VALID) return;
    DATETIMEPICKERINFO parts{};
    parts.cbSize = sizeof parts;
    SendMessageW(field, DTM_GETDATETIMEPICKERINFO, 0, reinterpret_cast<LPARAM>(&parts));
    if (parts.rcCheck.right <= 0) {
        SendMessageW(field, WM_KEYDOWN, VK_RIGHT, 0);
        return;
    }
    const LONG height = parts.rcCheck.bottom - parts.rcCheck.top;
    const LPARAM day = MAKELPARAM(parts.rcCheck.right + height / 2, parts.rcCheck.top + height / 2);
    SendMessageW(field, WM_LBUTTONDOWN, MK_LBUTTON, day);
    SendMessageW(field, WM_LBUTTONUP, 0, day);
}

LRESULT CALLBACK focus(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id,
                       DWORD_PTR /*data*/) {
    const LRESULT result = pass_on(&focus, id, window, message, wparam, lparam);
    // A click of the user's chooses the part itself.
    if (message == WM_SETFOCUS && GetKeyState(VK_LBUTTON) >= 0) select_day(window);
    return result;
}

}  // namespace

void begin_with_the_day(HWND date_picker) {
    SetWindowSubclass(date_picker, &focus, subclass_id, 0);
}

}  // namespace kovrel
