#include "automation.h"

#include <cwchar>
#include <new>
#include <utility>
#include <vector>

namespace ficha {
namespace {

[[noreturn]] void fail(const wchar_t* what, HRESULT result) {
    wchar_t code[16] = L"";
    std::swprintf(code, 16, L"0x%08lX", static_cast<unsigned long>(result));
    throw Failure{std::wstring(what) + L": error " + code};
}

/// The exception record of a failed call, freed at the end.
struct ExceptionRecord : EXCEPINFO {
    ExceptionRecord() : EXCEPINFO{} {}
    ExceptionRecord(const ExceptionRecord&) = delete;
    ExceptionRecord& operator=(const ExceptionRecord&) = delete;
    ~ExceptionRecord() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }
};

}  // namespace

Value::Value(bool value) noexcept : Value() {
    vt = VT_BOOL;
    boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

Value::Value(std::int32_t value) noexcept : Value() {
    vt = VT_I4;
    lVal = value;
}

Value::Value(float value) noexcept : Value() {
    vt = VT_R4;
    fltVal = value;
}

Value::Value(double value) noexcept : Value() {
    vt = VT_R8;
    dblVal = value;
}

Value::Value(const std::wstring& value) : Value() {
    vt = VT_BSTR;
    bstrVal = SysAllocStringLen(value.data(), static_cast<UINT>(value.size()));
    if (bstrVal == nullptr) throw std::bad_alloc();
}

Value::Value(IDispatch* object) noexcept : Value() {
    vt = VT_DISPATCH;
    pdispVal = object;
    if (object != nullptr) object->AddRef();
}

Value::Value(const VARIANT& value) : Value() {
    const HRESULT result = VariantCopyInd(this, const_cast<VARIANT*>(&value));
    if (FAILED(result)) fail(L"VariantCopyInd", result);
}

Value Value::null() noexcept {
    Value result;
    result.vt = VT_NULL;
    return result;
}

Value Value::of_date(DATE days) noexcept {
    Value result;
    result.vt = VT_DATE;
    result.date = days;
    return result;
}

Value Value::reference(short& variable) noexcept {
    Value result;
    result.vt = VT_BYREF | VT_I2;
    result.piVal = &variable;
    return result;
}

Value::Value(const Value& other) : Value() {
    const HRESULT result = VariantCopy(this, const_cast<Value*>(&other));
    if (FAILED(result)) fail(L"VariantCopy", result);
}

Value& Value::operator=(Value other) noexcept {
    std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
    return *this;
}

VARIANT Value::detach() noexcept {
    const VARIANT result = *this;
    vt = VT_EMPTY;
    return result;
}

Value Value::as(VARTYPE type) const {
    Value converted;
    const HRESULT result = VariantChangeType(&converted, const_cast<Value*>(this), 0, type);
    if (FAILED(result)) fail(L"VariantChangeType", result);
    return converted;
}

std::wstring Value::to_text() const {
    if (vt == VT_EMPTY || vt == VT_NULL) return {};
    const Value text = as(VT_BSTR);
    return {text.bstrVal, text.bstrVal + SysStringLen(text.bstrVal)};
}

bool Value::reads_as_number() const {
    double ignored = 0;
    return vt == VT_BSTR && SUCCEEDED(VarR8FromStr(bstrVal, LOCALE_USER_DEFAULT, 0, &ignored));
}

bool Value::reads_as_date() const {
    DATE ignored = 0;
    return vt == VT_BSTR && SUCCEEDED(VarDateFromStr(bstrVal, LOCALE_USER_DEFAULT, 0, &ignored));
}

Object::Object(Value object) : object_(std::move(object)) {
    if (object_.vt != VT_DISPATCH || object_.pdispVal == nullptr) throw Failure{L"No hay objeto."};
}

Value Object::get(const wchar_t* property, Arguments arguments) const {
    return invoke(property, DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments);
}

void Object::put(const wchar_t* property, const Value& value) const {
    invoke(property, DISPATCH_PROPERTYPUT, {value});
}

Value Object::call(const wchar_t* method, Arguments arguments) const {
    return invoke(method, DISPATCH_METHOD, arguments);
}

Value Object::invoke(const wchar_t* member, WORD flags, Arguments arguments) const {
    auto* name = const_cast<wchar_t*>(member);
    DISPID id = DISPID_UNKNOWN;
    HRESULT outcome = object_.pdispVal->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(outcome)) fail(member, outcome);

    // The last argument comes first, and the value of a property is an argument with a name.
    std::vector<Value> reversed(std::rbegin(arguments), std::rend(arguments));
    DISPID value_name = DISPID_PROPERTYPUT;
    const bool puts = flags == DISPATCH_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), puts ? &value_name : nullptr,
                          static_cast<UINT>(reversed.size()), puts ? 1U : 0U};
    Value result;
    ExceptionRecord exception;
    outcome = object_.pdispVal->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                       puts ? nullptr : &result, &exception, nullptr);
    if (outcome == DISP_E_EXCEPTION && exception.pfnDeferredFillIn != nullptr) {
        exception.pfnDeferredFillIn(&exception);
    }
    if (outcome == DISP_E_EXCEPTION && exception.bstrDescription != nullptr) {
        throw Failure{exception.bstrDescription};
    }
    if (FAILED(outcome)) fail(member, outcome);
    return result;
}

}  // namespace ficha
