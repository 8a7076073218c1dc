#include "automation/by_reference.h"

#include <cstring>
#include <utility>

namespace kovrel {
namespace {

/// References that lead to further ones are followed this far; a variable that refers to itself
/// would be followed for ever.
constexpr int reference_depth = 8;

/// Moves a value that has just the variable's type into the variable.
void store(VARIANT& variable, Variant&& value) noexcept {
    const VARTYPE type = variable.vt & ~VT_BYREF;
    if (type == VT_BSTR) {
        SysFreeString(*variable.pbstrVal);
        *variable.pbstrVal = value.detach().bstrVal;
    } else if (type == VT_DISPATCH || type == VT_UNKNOWN) {
        if (*variable.ppunkVal != nullptr) (*variable.ppunkVal)->Release();
        *variable.ppunkVal = value.detach().punkVal;
    } else if (type == VT_DECIMAL) {
        // Its first two bytes are a variant's type where the variable lies in one.
        const USHORT reserved = variable.pdecVal->wReserved;
        *variable.pdecVal = value.decVal;
        variable.pdecVal->wReserved = reserved;
    } else {
        std::memcpy(variable.byref, &value.llVal, plain_size(type));
    }
}

}  // namespace

VARIANT* followed(VARIANT* value) noexcept {
    for (int depth = 0; depth < reference_depth; ++depth) {
        if ((value->vt & VT_BYREF) != 0 && value->byref == nullptr) return nullptr;
        if (value->vt != (VT_BYREF | VT_VARIANT)) return value;
        value = value->pvarVal;
    }
    return nullptr;
}

HRESULT copy_followed(VARIANT& target, const VARIANT& source) noexcept {
    VARIANT* const value = followed(const_cast<VARIANT*>(&source));
    return value == nullptr ? DISP_E_TYPEMISMATCH : VariantCopyInd(&target, value);
}

HRESULT write_through(VARIANT& variable, Variant value) noexcept {
    VARIANT* const last = followed(&variable);
    if (last == nullptr) return S_OK;  // the host changed its variable during the call
    if ((last->vt & VT_BYREF) == 0) {
        const HRESULT cleared = VariantClear(last);
        if (SUCCEEDED(cleared)) *last = value.detach();
        return cleared;
    }
    const VARTYPE type = last->vt & ~VT_BYREF;
    // No member changes the elements of an array that it is given.
    if ((type & VT_ARRAY) != 0) return value.vt == type ? S_OK : DISP_E_TYPEMISMATCH;
    Variant converted;
    const HRESULT outcome = VariantChangeTypeEx(&converted, &value, LOCALE_USER_DEFAULT, 0, type);
    if (outcome == DISP_E_OVERFLOW) return S_OK;
    if (FAILED(outcome)) return outcome == E_OUTOFMEMORY ? outcome : DISP_E_TYPEMISMATCH;
    store(*last, std::move(converted));
    return S_OK;
}

}  // namespace kovrel
