// A message hook that runs in the process of the box, where its icon can be identified.
#include "tests/support/icon_style.h"

extern "C" __declspec(dllexport) LRESULT CALLBACK
    icon_probe(int code, WPARAM wparam, LPARAM lparam) {
    using namespace kovrel::test;
    if (code == HC_ACTION) {
        static const UINT probe = RegisterWindowMessageW(probe_message);
        const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lparam);
        if (sent.message == probe) {
            const INT_PTR answer = own_icon_style(sent.hwnd) + 1;
            SetPropW(sent.hwnd, probe_answer, reinterpret_cast<HANDLE>(answer));
        }
    }
    return CallNextHookEx(nullptr, code, wparam, lparam);
}
