#include "automation/early_call.h"

#include <new>

#include "automation/by_reference.h"
#include "automation/platform_failure.h"

namespace kovrel {

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
