#include "tests/support/host_controls.h"

#include <commctrl.h>
#include <windowsx.h>

#include "automation/safe_array.h"
#include "tests/support/window_driver.h"

namespace kovrel::test {
namespace {

constexpr int row_height = 32;
constexpr int label_width = 150;
constexpr int field_width = 230;
constexpr const wchar_t* form_class = L"KovrelHostForm";

/// A form that is activated again restores the focus, unless a field has been given it meanwhile.
LRESULT CALLBACK form_procedure(HWND form, UINT message, WPARAM wparam, LPARAM lparam) {
    const bool activated = message == WM_ACTIVATE && LOWORD(wparam) != WA_INACTIVE;
    if (activated && IsChild(form, GetFocus())) return 0;
    return DefDlgProcW(form, message, wparam, lparam);
}

void register_form_class() {
    WNDCLASSEXW info{};
    info.cbSize = sizeof(info);
    info.lpfnWndProc = &form_procedure;
    info.cbWndExtra = DLGWINDOWEXTRA;
    info.hInstance = GetModuleHandleW(nullptr);
    info.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    info.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    info.lpszClassName = form_class;
    RegisterClassExW(&info);
}

int item_of_text(HWND combo) {
    return static_cast<int>(SendMessageW(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                         reinterpret_cast<LPARAM>(text_of(combo).c_str())));
}

void add_item(HWND combo, const std::wstring& text) {
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

/// Adds the rows of a List array; the control shows the first column.
void fill(HWND combo, const Variant& list) {
    SAFEARRAY* const array = array_in(list, VT_VARIANT, 2);
    const auto rows = static_cast<std::size_t>(array_extent(array, 1));
    const ArrayAccess<VARIANT> access(array);
    for (std::size_t row = 0; row < rows; ++row) {
        add_item(combo, Variant(access.elements()[row]).to_text_or_empty());
    }
}

/// The members that all controls have.
ComPtr<ScriptedObject> make_control(HWND window, const std::wstring& name) {
    auto object = ScriptedObject::make();
    object->property(L"Tag", Variant(name))
        .property(
            L"Text", [window](const auto&) { return Variant(text_of(window)); },
            [window](const auto& arguments) {
                SetWindowTextW(window, arguments.back().to_text().c_str());
                return Variant();
            })
        .method(L"SetFocus",
                [window](const auto&) {
                    if (!IsWindowVisible(window) || !IsWindowEnabled(window)) {
                        throw failure(5, L"El control no puede recibir el foco");
                    }
                    SetFocus(window);
                    return Variant();
                })
        .default_member(L"Text");
    return object;
}

Variant picked_date(HWND picker) {
    SYSTEMTIME time{};
    if (SendMessageW(picker, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)) != GDT_VALID) {
        return Variant::null();
    }
    Date date;
    time.wHour = time.wMinute = time.wSecond = time.wMilliseconds = 0;
    SystemTimeToVariantTime(&time, &date.days);
    return Variant(date);
}

/// A text box; `max_length` 0 sets no limit. Its default member is Text.
HostControl wrap_text(HWND window, const std::wstring& name, int max_length) {
    if (max_length > 0) SendMessageW(window, EM_SETLIMITTEXT, static_cast<WPARAM>(max_length), 0);
    auto object = make_control(window, name);
    object->property(L"MaxLength", Variant(static_cast<std::int32_t>(max_length)));
    return {window, std::move(object)};
}

/// A combo box; its default member, Value, is a null while its text is none of the list's.
HostControl wrap_combo(HWND window, const std::wstring& name) {
    auto object = make_control(window, name);
    object
        ->property(L"Value",
                   [window](const auto&) {
                       return item_of_text(window) == CB_ERR ? Variant::null()
                                                             : Variant(text_of(window));
                   })
        .property(
            L"ListCount",
            [window](const auto&) {
                return Variant(static_cast<std::int32_t>(SendMessageW(window, CB_GETCOUNT, 0, 0)));
            })
        .property(L"MatchedWithList",
                  [window](const auto&) { return Variant(item_of_text(window) != CB_ERR); })
        .property(L"ColumnCount", Variant(std::int32_t{1}))
        .property(
            L"List", [](const auto&) { return Variant(); },
            [window](const auto& arguments) {
                SendMessageW(window, CB_RESETCONTENT, 0, 0);
                fill(window, arguments.back());
                return Variant();
            })
        .method(L"Clear",
                [window](const auto&) {
                    SendMessageW(window, CB_RESETCONTENT, 0, 0);
                    return Variant();
                })
        .method(L"AddItem",
                [window](const auto& arguments) {
                    if (arguments.front().is_null()) throw failure(94, L"Uso no válido de Null");
                    add_item(window, arguments.front().to_text());
                    return Variant();
                })
        .method(L"DropDown",
                [window](const auto&) {
                    SendMessageW(window, CB_SHOWDROPDOWN, TRUE, 0);
                    return Variant();
                })
        .default_member(L"Value");
    return {window, std::move(object)};
}

}  // namespace

std::wstring HostControl::text() const {
    return text_of(window);
}

void HostControl::set_text(const std::wstring& text) const {
    SetWindowTextW(window, text.c_str());
}

bool HostControl::is_dropped_down() const {
    return SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

HostForm::HostForm(const std::wstring& title) {
    register_form_class();
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_DATE_CLASSES};
    InitCommonControlsEx(&controls);
    window_ = CreateWindowExW(0, form_class, title.c_str(), WS_OVERLAPPEDWINDOW | WS_VISIBLE, 80,
                              80, 460, 360, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
}

HostForm::~HostForm() {
    DestroyWindow(window_);
}

HWND HostForm::add(const wchar_t* window_class, DWORD style, const std::wstring& name, int height) {
    auto* const font = GetStockObject(DEFAULT_GUI_FONT);
    const auto create = [&](const wchar_t* of_class, DWORD of_style, const wchar_t* text, int left,
                            int width, int its_height) {
        HWND control = CreateWindowExW(0, of_class, text, WS_CHILD | WS_VISIBLE | of_style, left,
                                       next_top_, width, its_height, window_, nullptr,
                                       GetModuleHandleW(nullptr), nullptr);
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        return control;
    };
    create(L"STATIC", SS_LEFT, name.c_str(), 12, label_width, 22);
    HWND field =
        create(window_class, WS_TABSTOP | style, L"", 12 + label_width, field_width, height);
    next_top_ += row_height;
    return field;
}

HostControl HostForm::add_text(const std::wstring& name, int max_length) {
    HWND window = add(L"EDIT", WS_BORDER | ES_AUTOHSCROLL, name, 24);
    return wrap_text(window, name, max_length);
}

HostControl HostForm::add_masked_date(const std::wstring& name) {
    HostControl control = add_text(name, 10);
    control.set_text(L"__/__/____");
    return control;
}

HostControl HostForm::add_date_picker(const std::wstring& name) {
    HWND window = add(DATETIMEPICK_CLASSW, DTS_SHORTDATEFORMAT | DTS_SHOWNONE, name, 24);
    auto object = make_control(window, name);
    object->property(L"Value", [window](const auto&) { return picked_date(window); })
        .default_member(L"Value");
    return {window, std::move(object)};
}

HostControl HostForm::add_combo(const std::wstring& name, const std::vector<std::wstring>& items) {
    HWND window = add(L"COMBOBOX", CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL, name, 160);
    for (const std::wstring& item : items) add_item(window, item);
    return wrap_combo(window, name);
}

}  // namespace kovrel::test
