#include "ui/text_box.h"

#include "ui/subclass.h"

namespace kovrel {
namespace {

constexpr UINT_PTR subclass_id = 2;
constexpr WPARAM control_a = 1;  // the character that Ctrl+A types

LRESULT CALLBACK keys(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id,
                      DWORD_PTR /*data*/) {
    if (message == WM_GETDLGCODE) {
        constexpr LRESULT own_keys = DLGC_WANTALLKEYS | DLGC_WANTTAB;
        return pass_on(&keys, id, window, message, wparam, lparam) & ~own_keys;
    }
    if (message == WM_CHAR && wparam == control_a) {
        SendMessageW(window, EM_SETSEL, 0, -1);
        return 0;
    }
    return pass_on(&keys, id, window, message, wparam, lparam);
}

}  // namespace

void give_dialog_keys(HWND text_box) {
    SetWindowSubclass(text_box, &keys, subclass_id, 0);
}

}  // namespace kovrel
