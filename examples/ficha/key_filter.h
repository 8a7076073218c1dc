// Keystrokes of a text box, passed through one of the library's filters as they are typed.
#pragma once

#include <windows.h>

#include "automation.h"

namespace ficha {

/// Must outlive the text box that it works on.
class KeyFilter {
 public:
    enum class Accepts { date, amount, capitals };

    KeyFilter(HWND text_box, const Object& general, Accepts accepts);
    KeyFilter(const KeyFilter&) = delete;
    KeyFilter& operator=(const KeyFilter&) = delete;

 private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                                      UINT_PTR id, DWORD_PTR owner);
    /// The character that the text box gets instead; 0: none.
    [[nodiscard]] wchar_t filtered(wchar_t typed) const;

    const Object& general_;
    Accepts accepts_;
};

}  // namespace ficha
