#include "ui/controls.h"

#include <algorithm>
#include <array>

#include "runtime/failure.h"
#include "runtime/owned.h"
#include "services/dynamic_library.h"

namespace kovrel {
namespace {

template <class Function>
Function* common_control_function(const char* name) {
    return system_function<Function>(L"comctl32.dll", name);
}

struct CommonControls {
    decltype(&InitCommonControlsEx) register_classes =
        common_control_function<decltype(InitCommonControlsEx)>("InitCommonControlsEx");
};

const CommonControls& common_controls() {
    static const CommonControls loaded;
    return loaded;
}

/// A control's procedures, the newest last. The control's user data points to it.
struct Procedures {
    struct Added {
        ControlProcedure procedure;
        void* data;
    };
    WNDPROC own;
    std::size_t count = 0;
    std::array<Added, 2> added{};  ///< the window's, and that of the control's kind
};

Procedures* procedures_of(HWND control) noexcept {
    return reinterpret_cast<Procedures*>(GetWindowLongPtrW(control, GWLP_USERDATA));
}

/// Calls the newest of the first `count` added procedures, or else the control's own.
LRESULT call_procedure(Procedures& procedures, std::size_t count, HWND control, UINT message,
                       WPARAM wparam, LPARAM lparam) {
    if (count > 0) {
        const auto [procedure, data] = procedures.added[count - 1];
        return procedure(control, message, wparam, lparam, data);
    }
    WNDPROC const own = procedures.own;
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(control, GWLP_USERDATA, 0);
        delete &procedures;
    }
    return CallWindowProcW(own, control, message, wparam, lparam);
}

LRESULT CALLBACK first_procedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam) {
    Procedures* const procedures = procedures_of(control);
    if (procedures == nullptr) return DefWindowProcW(control, message, wparam, lparam);
    return call_procedure(*procedures, procedures->count, control, message, wparam, lparam);
}

constexpr WPARAM control_a = 1;  // the character that Ctrl+A types

LRESULT dialog_keys(HWND window, UINT message, WPARAM wparam, LPARAM lparam, void* /*data*/) {
    if (message == WM_CHAR && wparam == control_a) {
        SendMessageW(window, EM_SETSEL, 0, -1);
        return 0;
    }
    const LRESULT result = pass_on(&dialog_keys, window, message, wparam, lparam);
    return message == WM_GETDLGCODE ? result & ~(DLGC_WANTALLKEYS | DLGC_WANTTAB) : result;
}

/// The control has no message to select a part, but a click selects the part under it. Controls
/// that do not report where their check box ends begin with it, and the next part is the day.
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

LRESULT day_first(HWND window, UINT message, WPARAM wparam, LPARAM lparam, void* /*data*/) {
    const LRESULT result = pass_on(&day_first, window, message, wparam, lparam);
    if (message == WM_SETFOCUS && GetKeyState(VK_LBUTTON) >= 0) select_day(window);
    return result;
}

}  // namespace

void load_common_controls() {
    (void)common_controls();
}

void subclass(HWND control, ControlProcedure procedure, void* data) {
    Procedures* procedures = procedures_of(control);
    if (procedures == nullptr) {
        procedures =
            new Procedures{reinterpret_cast<WNDPROC>(GetWindowLongPtrW(control, GWLP_WNDPROC))};
        SetWindowLongPtrW(control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(procedures));
        SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&first_procedure));
    }
    procedures->added.at(procedures->count++) = {procedure, data};
}

void end_subclass(HWND control, ControlProcedure procedure) noexcept {
    Procedures* const procedures = procedures_of(control);
    if (procedures == nullptr || procedures->count == 0) return;
    if (procedures->added[procedures->count - 1].procedure == procedure) --procedures->count;
}

LRESULT pass_on(ControlProcedure procedure, HWND control, UINT message, WPARAM wparam,
                LPARAM lparam) {
    // Missing when the control was destroyed meanwhile.
    Procedures* const procedures = procedures_of(control);
    if (procedures == nullptr) return 0;
    std::size_t before = procedures->count;
    while (before > 0 && procedures->added[before - 1].procedure != procedure) --before;
    return call_procedure(*procedures, before > 0 ? before - 1 : 0, control, message, wparam,
                          lparam);
}

std::wstring text_of(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void put_on_clipboard(HWND owner, std::wstring_view text) {
    Owned<HGLOBAL, &GlobalFree> memory(
        GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t)));
    auto* const characters = static_cast<wchar_t*>(memory ? GlobalLock(memory.get()) : nullptr);
    if (characters == nullptr) throw Failure(FailureNumber::out_of_memory);
    *std::copy(text.begin(), text.end(), characters) = L'\0';
    GlobalUnlock(memory.get());
    if (OpenClipboard(owner) == FALSE) throw Failure(FailureNumber::clipboard_unavailable);
    EmptyClipboard();
    const bool taken = SetClipboardData(CF_UNICODETEXT, memory.get()) != nullptr;
    CloseClipboard();
    if (!taken) throw Failure(FailureNumber::clipboard_unavailable);
    (void)memory.release();  // now owned by the clipboard
}

void give_dialog_keys(HWND text_box) {
    subclass(text_box, &dialog_keys, nullptr);
}

void register_date_pickers() {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_DATE_CLASSES};
    common_controls().register_classes(&classes);
}

void begin_with_the_day(HWND date_picker) {
    subclass(date_picker, &day_first, nullptr);
}

}  // namespace kovrel
