#include "automation/variant.h"

#include <cstring>
#include <utility>

#include "automation/bstr.h"
#include "automation/host_object.h"
#include "runtime/failure.h"

namespace kovrel {

std::size_t plain_size(VARTYPE type) noexcept {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            return 4;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return 8;
        default:
            return 0;
    }
}

void throw_conversion_failure(HRESULT result) {
    switch (result) {
        case E_OUTOFMEMORY:
            throw std::bad_alloc();
        case DISP_E_OVERFLOW:
            throw Failure(FailureNumber::overflow);
        default:
            throw Failure(FailureNumber::type_mismatch);
    }
}

Variant::Variant(std::wstring_view value) : Variant() {
    bstrVal = new_bstr(value);
    vt = VT_BSTR;
}

Variant::Variant(ComPtr<IDispatch> value) noexcept : Variant() {
    vt = VT_DISPATCH;
    pdispVal = value.detach();
}

Variant::Variant(const VARIANT& value) : Variant() {
    const HRESULT result = VariantCopy(this, const_cast<VARIANT*>(&value));
    if (FAILED(result)) throw_conversion_failure(result);
}

Variant& Variant::operator=(Variant other) noexcept {
    std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
    return *this;
}

Variant Variant::null() noexcept {
    Variant result;
    result.vt = VT_NULL;
    return result;
}

Variant Variant::missing() noexcept {
    return {VT_ERROR, &VARIANT::scode, DISP_E_PARAMNOTFOUND};
}

Variant Variant::attach(VARIANT& value) noexcept {
    Variant result;
    static_cast<VARIANT&>(result) = std::exchange(value, VARIANT{});
    return result;
}

VARIANT Variant::detach() noexcept {
    const VARIANT result = *this;
    vt = VT_EMPTY;
    return result;
}

Variant Variant::as(VARTYPE type) const {
    if (vt == type) return *this;
    if (vt == VT_NULL) throw Failure(FailureNumber::invalid_use_of_null);
    if (vt == VT_DISPATCH && type != VT_UNKNOWN)
        return HostObject(pdispVal).default_value().as(type);
    Variant result;
    // Booleans convert to the user's words for true and false, as in string concatenation.
    const USHORT flags = vt == VT_BOOL && type == VT_BSTR ? VARIANT_LOCALBOOL : 0;
    const HRESULT outcome =
        VariantChangeTypeEx(&result, const_cast<Variant*>(this), LOCALE_USER_DEFAULT, flags, type);
    if (FAILED(outcome)) throw_conversion_failure(outcome);
    return result;
}

std::wstring Variant::to_text() const {
    return std::wstring(text_of(as(VT_BSTR).bstrVal));
}

std::wstring Variant::to_text_or_empty() const {
    if (vt == VT_DISPATCH) return HostObject(pdispVal).default_value().to_text_or_empty();
    return is_null() || is_empty() ? std::wstring() : to_text();
}

double Variant::to_double() const {
    return as(VT_R8).dblVal;
}
std::int32_t Variant::to_int32() const {
    return as(VT_I4).lVal;
}
std::int16_t Variant::to_int16() const {
    return as(VT_I2).iVal;
}
bool Variant::to_bool() const {
    return as(VT_BOOL).boolVal != VARIANT_FALSE;
}
Date Variant::to_date() const {
    return Date{as(VT_DATE).date};
}

ComPtr<IDispatch> Variant::to_object() const {
    if (!is_object()) throw Failure(FailureNumber::object_required);
    if (punkVal == nullptr) throw Failure(FailureNumber::object_not_set);
    auto object = ComPtr<IUnknown>(punkVal).query<IDispatch>();
    if (!object) throw Failure(FailureNumber::member_not_found);
    return object;
}

bool Variant::is_numeric() const {
    switch (vt) {
        case VT_EMPTY:
        case VT_I1:
        case VT_I2:
        case VT_I4:
        case VT_I8:
        case VT_UI1:
        case VT_UI2:
        case VT_UI4:
        case VT_UI8:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_R8:
        case VT_CY:
        case VT_DECIMAL:
        case VT_BOOL:
            return true;
        case VT_BSTR: {
            double ignored = 0;
            return bstrVal != nullptr &&
                   SUCCEEDED(VarR8FromStr(bstrVal, LOCALE_USER_DEFAULT, 0, &ignored));
        }
        case VT_DISPATCH:
            return pdispVal != nullptr && HostObject(pdispVal).default_value().is_numeric();
        default:
            return false;
    }
}

bool Variant::is_date() const {
    switch (vt) {
        case VT_DATE:
            return true;
        case VT_BSTR: {
            DATE ignored = 0;
            return bstrVal != nullptr &&
                   SUCCEEDED(VarDateFromStr(bstrVal, LOCALE_USER_DEFAULT, 0, &ignored));
        }
        case VT_DISPATCH:
            return pdispVal != nullptr && HostObject(pdispVal).default_value().is_date();
        default:
            return false;
    }
}

bool Variant::same_as(const Variant& other) const noexcept {
    if (vt != other.vt) return false;
    if (vt == VT_EMPTY || vt == VT_NULL) return true;
    if (vt == VT_BSTR) return text_of(bstrVal) == text_of(other.bstrVal);
    if (is_object()) return punkVal == other.punkVal;
    const std::size_t size = plain_size(vt);
    return size != 0 && std::memcmp(&llVal, &other.llVal, size) == 0;
}

}  // namespace kovrel
