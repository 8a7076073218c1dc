#include "ui/controls.h"

#include <algorithm>

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
    decltype(&SetWindowSubclass) subclass =
        common_control_function<decltype(SetWindowSubclass)>("SetWindowSubclass");
    decltype(&RemoveWindowSubclass) end_subclass =
        common_control_function<decltype(RemoveWindowSubclass)>("RemoveWindowSubclass");
    decltype(&DefSubclassProc) next_procedure =
        common_control_function<decltype(DefSubclassProc)>("DefSubclassProc");
};

const CommonControls& common_controls() {
    static const CommonControls loaded;
    return loaded;
}

constexpr UINT_PTR subclass_id = 2;
constexpr WPARAM control_a = 1;  // the character that Ctrl+A types

LRESULT CALLBACK dialog_keys(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id,
                             DWORD_PTR /*data*/) {
    if (message == WM_CHAR && wparam == control_a) {
        SendMessageW(window, EM_SETSEL, 0, -1);
        return 0;
    }
    const LRESULT result = pass_on(&dialog_keys, id, window, message, wparam, lparam);
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

LRESULT CALLBACK day_first(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id,
                           DWORD_PTR /*data*/) {
    const LRESULT result = pass_on(&day_first, id, window, message, wparam, lparam);
    if (message == WM_SETFOCUS && GetKeyState(VK_LBUTTON) >= 0) select_day(window);
    return result;
}

}  // namespace

void load_common_controls() {
    (void)common_controls();
}

void subclass(HWND window, SUBCLASSPROC procedure, UINT_PTR id, DWORD_PTR data) noexcept {
    common_controls().subclass(window, procedure, id, data);
}

void end_subclass(HWND window, SUBCLASSPROC procedure, UINT_PTR id) noexcept {
    common_controls().end_subclass(window, procedure, id);
}

LRESULT pass_on(SUBCLASSPROC procedure, UINT_PTR id, HWND window, UINT message, WPARAM wparam,
                LPARAM lparam) noexcept {
    if (message == WM_NCDESTROY) end_subclass(window, procedure, id);
    return common_controls().next_procedure(window, message, wparam, lparam);
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
    subclass(text_box, &dialog_keys, subclass_id, 0);
}

void register_date_pickers() {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_DATE_CLASSES};
    common_controls().register_classes(&classes);
}

void begin_with_the_day(HWND date_picker) {
    subclass(date_picker, &day_first, subclass_id, 0);
}

}  // namespace kovrel
