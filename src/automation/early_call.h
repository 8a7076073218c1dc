// What the arguments of early-bound calls need beyond their own types: variants, and the refusal of
// those that do not fit.
#pragma once

#include "automation/class_info.h"
#include "automation/variant.h"

namespace kovrel {

/// Ends a call over one of its arguments: a failure that names the parameter and the member.
[[noreturn]] void refuse_argument(HRESULT code, const MemberInfo& member, std::size_t parameter);

/// What a variant holds or refers to; one that the caller left out counts as its parameter's
/// default, as in a late call.
[[nodiscard]] Variant variant_argument(const VARIANT& given, const MemberInfo& member,
                                       std::size_t parameter);

/// Stores a changed value in the variable that the caller's variant is or refers to.
void store_variant(VARIANT& given, const Variant& value, const MemberInfo& member,
                   std::size_t parameter);

}  // namespace kovrel
