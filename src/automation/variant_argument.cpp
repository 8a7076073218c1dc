#include "automation/variant_argument.h"

#include <cstring>
#include <new>
#include <utility>

#include "automation/platform_failure.h"

namespace kovrel {
namespace {

/// Limit on nested by-reference variants: one that refers to itself would never end.
constexpr int reference_depth = 8;

/// Moves a value of the variable's own type into the variable.
void store(VARIANT& variable, Variant&& value) noexcept {
    const VARTYPE type = variable.vt & ~VT_BYREF;
    if (type == VT_BSTR) {
        SysFreeString(*variable.pbstrVal);
        *variable.pbstrVal = value.detach().bstrVal;
    } else if (type == VT_DISPATCH || type == VT_UNKNOWN) {
        if (*variable.ppunkVal != nullptr) (*variable.ppunkVal)->Release();
        *variable.ppunkVal = value.detach().punkVal;
    } else if (type == VT_DECIMAL) {
        // Where the DECIMAL is part of a VARIANT its first two bytes are the VARIANT's type.
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
    if (last == nullptr) return S_OK;  // the host cleared its variable during the call
    if ((last->vt & VT_BYREF) == 0) {
        const HRESULT cleared = VariantClear(last);
        if (SUCCEEDED(cleared)) *last = value.detach();
        return cleared;
    }
    const VARTYPE type = last->vt & ~VT_BYREF;
    // Arrays are never written back: no member changes one.
    if ((type & VT_ARRAY) != 0) return value.vt == type ? S_OK : DISP_E_TYPEMISMATCH;
    Variant converted;
    const HRESULT outcome = VariantChangeTypeEx(&converted, &value, LOCALE_USER_DEFAULT, 0, type);
    if (outcome == DISP_E_OVERFLOW) return S_OK;
    if (FAILED(outcome)) return outcome == E_OUTOFMEMORY ? outcome : DISP_E_TYPEMISMATCH;
    store(*last, std::move(converted));
    return S_OK;
}

void refuse_argument(HRESULT code, const MemberInfo& member, std::size_t parameter) {
    if (code == E_OUTOFMEMORY) throw std::bad_alloc();
    const wchar_t* const name =
        parameter < member.parameters.size() ? member.parameters[parameter].name : nullptr;
    throw_platform_failure(code, misfit_description(code, member.name, name));
}

Variant variant_argument(const VARIANT& given, const MemberInfo& member, std::size_t parameter) {
    Variant value;
    const HRESULT outcome = copy_followed(value, given);
    if (FAILED(outcome)) refuse_argument(outcome, member, parameter);
    const ParameterInfo& declared = member.parameters[parameter];
    if (value.is_missing() && declared.optional) value = Variant(declared.when_missing);
    return value;
}

void store_variant(VARIANT& given, const Variant& value, const MemberInfo& member,
                   std::size_t parameter) {
    const HRESULT outcome = write_through(given, value);
    if (FAILED(outcome)) refuse_argument(outcome, member, parameter);
}

}  // namespace kovrel
