#include "key_filter.h"

#include <commctrl.h>

namespace ficha {

KeyFilter::KeyFilter(HWND text_box, const Object& general, Accepts accepts)
    : general_(general), accepts_(accepts) {
    SetWindowSubclass(text_box, &procedure, 0, reinterpret_cast<DWORD_PTR>(this));
}

LRESULT CALLBACK KeyFilter::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                                      UINT_PTR id, DWORD_PTR owner) {
    // Control characters are the text box's own: Ctrl+C, Ctrl+V, Backspace.
    if (message == WM_CHAR && wparam >= L' ') {
        const auto* const filter = reinterpret_cast<const KeyFilter*>(owner);
        const wchar_t key = filter->filtered(static_cast<wchar_t>(wparam));
        if (key == 0) return 0;
        wparam = key;
    }
    // A subclass must be removed before its window is destroyed.
    if (message == WM_NCDESTROY) RemoveWindowSubclass(window, &procedure, id);
    return DefSubclassProc(window, message, wparam, lparam);
}

wchar_t KeyFilter::filtered(wchar_t typed) const {
    // The filters work on codes of the ANSI code page, as key-press events give them.
    char code = 0;
    BOOL unknown = FALSE;
    WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, &typed, 1, &code, 1, nullptr, &unknown);
    if (unknown != FALSE) return accepts_ == Accepts::capitals ? typed : L'\0';

    auto key = static_cast<short>(static_cast<unsigned char>(code));
    const Value pulsa = Value::reference(key);
    try {
        switch (accepts_) {
            case Accepts::date:
                general_.call(L"Solo_Fecha", {pulsa});
                break;
            case Accepts::amount: {
                constexpr bool only_positive = false;
                constexpr bool point_to_comma = true;
                general_.call(L"Solo_Numero", {pulsa, Value(only_positive), Value(point_to_comma)});
                break;
            }
            case Accepts::capitals:
                general_.call(L"Convierte_May", {pulsa});
                break;
        }
    } catch (const Failure&) {
        return typed;
    }

    code = static_cast<char>(key);
    wchar_t result = 0;
    MultiByteToWideChar(CP_ACP, 0, &code, 1, &result, 1);
    return result;
}

}  // namespace ficha
