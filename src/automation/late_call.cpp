#include "automation/late_call.h"

#include <string>

#include "automation/bstr.h"
#include "automation/host_object.h"
#include "automation/variant_argument.h"
#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

/// An argument that cannot be converted to the parameter's type.
struct BadValue {
    HRESULT result;
};

bool is_missing(const VARIANT& value) noexcept {
    return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

Variant copy_of(const VARIANT& source) {
    Variant result;
    const HRESULT outcome = copy_followed(result, source);
    if (outcome == E_OUTOFMEMORY) throw std::bad_alloc();
    if (FAILED(outcome)) throw BadValue{outcome};
    return result;
}

/// The texts of a one-dimensional array of texts or variants.
std::vector<std::wstring> texts_of_array(SAFEARRAY* array, VARTYPE element) {
    if (array == nullptr || SafeArrayGetDim(array) != 1) throw BadValue{DISP_E_TYPEMISMATCH};
    LONG first = 0;
    LONG last = -1;
    SafeArrayGetLBound(array, 1, &first);
    SafeArrayGetUBound(array, 1, &last);
    std::vector<std::wstring> texts;
    for (LONG index = first; index <= last; ++index) {
        if (element == VT_BSTR) {
            Bstr text;
            if (FAILED(SafeArrayGetElement(array, &index, text.put())))
                throw BadValue{DISP_E_TYPEMISMATCH};
            texts.emplace_back(text.view());
        } else {
            Variant value;
            if (FAILED(SafeArrayGetElement(array, &index, &value)))
                throw BadValue{DISP_E_TYPEMISMATCH};
            texts.push_back(value.to_text_or_empty());
        }
    }
    return texts;
}

/// The texts of a script's array object, whose elements are members named by their index.
std::vector<std::wstring> texts_of_object(IDispatch* object, std::uint32_t limit) {
    const HostObject array(object);
    const std::int32_t length = array.field(L"length").to_int32();
    if (length < 0 || static_cast<std::uint32_t>(length) > limit) throw BadValue{DISP_E_BADINDEX};
    std::vector<std::wstring> texts;
    texts.reserve(static_cast<std::size_t>(length));
    for (std::int32_t index = 0; index < length; ++index) {
        texts.push_back(array.field(decimal_text(index)).to_text_or_empty());
    }
    return texts;
}

std::vector<std::wstring> texts_of_record(const VARIANT& value, const RecordInfo& record) {
    GUID id{};
    if (value.pRecInfo == nullptr || value.pvRecord == nullptr ||
        FAILED(value.pRecInfo->GetGuid(&id)) || !IsEqualGUID(id, record.id)) {
        throw BadValue{DISP_E_TYPEMISMATCH};
    }
    const auto* const texts = static_cast<const BSTR*>(value.pvRecord);
    std::vector<std::wstring> result;
    for (std::uint32_t index = 0; index < record.size; ++index) {
        result.emplace_back(text_of(texts[index]));
    }
    return result;
}

}  // namespace

LateCall::LateCall(const MemberInfo& member, const DISPPARAMS& parameters, VARIANT* result)
    : member_(&member), result_(result) {
    const std::size_t count = member.parameters.size();
    const UINT named = parameters.cNamedArgs;
    if (parameters.cArgs > count || named > parameters.cArgs) {
        throw CallError{DISP_E_BADPARAMCOUNT};
    }
    const UINT positional = parameters.cArgs - named;
    for (UINT index = 0; index < count; ++index) {
        const bool given = index < positional;
        positions_[index] = given ? parameters.cArgs - 1 - index : 0;
        arguments_[index] = given ? &parameters.rgvarg[positions_[index]] : nullptr;
    }
    if (named != 0) bind_named(parameters);
    for (std::size_t index = 0; index < count; ++index) {
        VARIANTARG*& argument = arguments_[index];
        if (argument == nullptr) continue;
        VARIANT* const value = followed(argument);
        if (value == nullptr) fail(index, DISP_E_TYPEMISMATCH);
        // A VARIANT parameter without a default takes the missing marker as a value.
        const ParameterInfo& parameter = member.parameters[index];
        if (is_missing(*value) && (parameter.optional || parameter.type.type != VT_VARIANT)) {
            if (!parameter.optional) fail(index, DISP_E_PARAMNOTOPTIONAL);
            argument = nullptr;
        }
    }
    check_omitted(parameters);
}

void LateCall::bind_named(const DISPPARAMS& parameters) {
    const bool puts = member_->kind == MemberKind::property_put ||
                      member_->kind == MemberKind::property_put_object;
    for (UINT index = 0; index < parameters.cNamedArgs; ++index) {
        const DISPID id = parameters.rgdispidNamedArgs[index];
        const std::size_t last = member_->parameters.size() - 1;
        const std::size_t parameter = puts && id == DISPID_PROPERTYPUT
                                          ? last
                                          : static_cast<std::size_t>(static_cast<ULONG>(id));
        if (parameter >= member_->parameters.size() || arguments_[parameter] != nullptr) {
            throw CallError{DISP_E_PARAMNOTFOUND, index};
        }
        positions_[parameter] = index;
        arguments_[parameter] = &parameters.rgvarg[index];
    }
}

void LateCall::check_omitted(const DISPPARAMS& parameters) const {
    for (std::size_t index = 0; index < member_->parameters.size(); ++index) {
        if (arguments_[index] != nullptr || member_->parameters[index].optional) continue;
        throw CallError{parameters.cNamedArgs == 0 ? DISP_E_BADPARAMCOUNT : DISP_E_PARAMNOTOPTIONAL,
                        {},
                        member_->parameters[index].name};
    }
}

const VARIANT& LateCall::argument(std::size_t parameter) const {
    const VARIANTARG* const given = arguments_[parameter];
    if (given == nullptr) return member_->parameters[parameter].when_missing;
    return *followed(const_cast<VARIANTARG*>(given));
}

Variant LateCall::copied(std::size_t parameter) const {
    try {
        return copy_of(argument(parameter));
    } catch (const BadValue& bad) {
        fail(parameter, bad.result);
    }
}

Variant LateCall::coerced(std::size_t parameter, VARTYPE type) const {
    Variant value = copied(parameter);
    if (value.vt == type) return value;
    try {
        if (value.vt == VT_DISPATCH && type != VT_UNKNOWN) {
            value = HostObject(value.pdispVal).default_value();
        }
    } catch (const Failure&) {
        fail(parameter, DISP_E_TYPEMISMATCH);
    }
    if (value.vt == type) return value;
    Variant result;
    const HRESULT outcome = VariantChangeTypeEx(&result, &value, LOCALE_USER_DEFAULT, 0, type);
    if (outcome == E_OUTOFMEMORY) throw std::bad_alloc();
    if (outcome == DISP_E_OVERFLOW) fail(parameter, outcome);
    if (FAILED(outcome)) fail(parameter, DISP_E_TYPEMISMATCH);
    return result;
}

std::vector<std::wstring> LateCall::texts(std::size_t parameter, const RecordInfo& record) const {
    try {
        const VARIANT& value = argument(parameter);
        const VARTYPE type = value.vt & ~VT_BYREF;
        std::vector<std::wstring> result;
        if (type == VT_RECORD) {
            result = texts_of_record(value, record);
        } else if (type == (VT_ARRAY | VT_BSTR) || type == (VT_ARRAY | VT_VARIANT)) {
            result = texts_of_array((value.vt & VT_BYREF) != 0 ? *value.pparray : value.parray,
                                    type & VT_TYPEMASK);
        } else if (type == VT_DISPATCH) {
            result = texts_of_object(copied(parameter).pdispVal, record.size);
        } else {
            throw BadValue{DISP_E_TYPEMISMATCH};
        }
        if (result.size() > record.size) throw BadValue{DISP_E_BADINDEX};
        return result;
    } catch (const BadValue& bad) {
        fail(parameter, bad.result);
    } catch (const Failure&) {
        fail(parameter, DISP_E_TYPEMISMATCH);
    }
}

const BSTR* LateCall::text(std::size_t parameter) const noexcept {
    const VARIANT& given = arguments_[parameter] != nullptr
                               ? *arguments_[parameter]
                               : member_->parameters[parameter].when_missing;
    return given.vt == VT_BSTR ? &given.bstrVal : nullptr;
}

void* LateCall::variable(std::size_t parameter, VARTYPE type) const noexcept {
    if (arguments_[parameter] == nullptr) return nullptr;
    const VARIANT* const last = followed(arguments_[parameter]);
    return last != nullptr && last->vt == (VT_BYREF | type) ? last->byref : nullptr;
}

void LateCall::write_back(std::size_t parameter, Variant value) const {
    VARIANTARG* const given = arguments_[parameter];
    if (given == nullptr || (given->vt & VT_BYREF) == 0) return;
    const HRESULT outcome = write_through(*given, std::move(value));
    if (outcome == E_OUTOFMEMORY) throw std::bad_alloc();
    if (FAILED(outcome)) fail(parameter, outcome);
}

void LateCall::fail(std::size_t parameter, HRESULT result) const {
    throw CallError{result, positions_[parameter], member_->parameters[parameter].name};
}

}  // namespace kovrel
