#include "form_control.h"

#include <algorithm>
#include <utility>

namespace ficha {

FormControl::FormControl(HWND window, std::wstring name) : window_(window), name_(std::move(name)) {
    add_member(
        L"Text", [this](const Value&) { return Value(text()); },
        [this](const Value& value) {
            set_text(value.to_text());
            return Value();
        });
    add_member(L"Tag", [this](const Value&) { return Value(name_); });
    add_member(L"SetFocus", [this](const Value&) {
        if (!IsWindowVisible(window_) || !IsWindowEnabled(window_)) {
            throw Failure{L"El control no puede recibir el foco"};
        }
        SetFocus(window_);
        return Value();
    });
    set_default_member(L"Text");
}

std::wstring FormControl::text() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window_)) + 1, L'\0');
    const int length = GetWindowTextW(window_, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void FormControl::set_text(const std::wstring& text) const {
    SetWindowTextW(window_, text.c_str());
}

void FormControl::add_member(const wchar_t* name, Action call, Action put) {
    members_.push_back({name, std::move(call), std::move(put)});
}

/// Members are numbered from 1; 0 is DISPID_VALUE.
DISPID FormControl::id_of(const wchar_t* name) const {
    const auto found = std::find_if(members_.begin(), members_.end(), [&](const Member& member) {
        return CompareStringOrdinal(member.name, -1, name, -1, TRUE) == CSTR_EQUAL;
    });
    if (found == members_.end()) return DISPID_UNKNOWN;
    return static_cast<DISPID>(found - members_.begin()) + 1;
}

HRESULT FormControl::QueryInterface(REFIID id, void** result) {
    *result = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch) return E_NOINTERFACE;
    *result = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG FormControl::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT FormControl::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT FormControl::GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** result) {
    *result = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT FormControl::GetIDsOfNames(REFIID /*id*/, LPOLESTR* names, UINT count, LCID /*locale*/,
                                   DISPID* ids) {
    // Beyond the first they are names of parameters, and no member has any.
    std::fill(ids, ids + count, DISPID_UNKNOWN);
    ids[0] = id_of(names[0]);
    return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT FormControl::Invoke(DISPID id, REFIID /*reserved*/, LCID /*locale*/, WORD flags,
                            DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                            UINT* /*bad_argument*/) {
    if (id == DISPID_VALUE) id = default_member_;
    if (id < 1 || id > static_cast<DISPID>(members_.size())) return DISP_E_MEMBERNOTFOUND;
    const Member& member = members_[static_cast<std::size_t>(id) - 1];
    const bool puts = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const Action& action = puts ? member.put : member.call;
    if (!action) return DISP_E_MEMBERNOTFOUND;
    if (parameters->cArgs > 1) return DISP_E_BADPARAMCOUNT;
    try {
        Value value = action(parameters->cArgs == 0 ? Value() : Value(parameters->rgvarg[0]));
        if (result != nullptr) *result = value.detach();
        return S_OK;
    } catch (const Failure& failure) {
        if (exception == nullptr) return E_FAIL;
        *exception = {};
        exception->scode = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 5);
        exception->bstrSource = SysAllocString(L"Ficha");
        exception->bstrDescription = SysAllocString(failure.description.c_str());
        return DISP_E_EXCEPTION;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

TextBox::TextBox(HWND window, const std::wstring& name, int max_length)
    : FormControl(window, name) {
    SendMessageW(window, EM_SETLIMITTEXT, static_cast<WPARAM>(max_length), 0);
    add_member(L"MaxLength",
               [max_length](const Value&) { return Value(std::int32_t{max_length}); });
}

ComboBox::ComboBox(HWND window, const std::wstring& name) : FormControl(window, name) {
    const auto ask = [window](UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
        return static_cast<std::int32_t>(SendMessageW(window, message, wparam, lparam));
    };
    add_member(L"Value",
               [this](const Value&) { return has_text_of_list() ? Value(text()) : Value::null(); });
    add_member(L"ListCount", [ask](const Value&) { return Value(ask(CB_GETCOUNT)); });
    add_member(L"Clear", [ask](const Value&) {
        ask(CB_RESETCONTENT);
        return Value();
    });
    add_member(L"AddItem", [ask](const Value& item) {
        ask(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.to_text().c_str()));
        return Value();
    });
    add_member(L"DropDown", [ask](const Value&) {
        ask(CB_SHOWDROPDOWN, TRUE);
        return Value();
    });
    set_default_member(L"Value");
}

bool ComboBox::has_text_of_list() const {
    const auto from_the_first = static_cast<WPARAM>(-1);
    return SendMessageW(window(), CB_FINDSTRINGEXACT, from_the_first,
                        reinterpret_cast<LPARAM>(text().c_str())) != CB_ERR;
}

}  // namespace ficha
