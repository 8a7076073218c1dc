// VARIANT arguments and the variables that they refer to: read and written the same early-bound and
// late-bound.
#pragma once

#include "automation/class_info.h"
#include "automation/variant.h"

namespace kovrel {

/// The variant at the end of a chain of by-reference variants; null when the chain is circular or
/// ends in a null pointer.
[[nodiscard]] VARIANT* followed(VARIANT* value) noexcept;

/// VariantCopyInd, but a null reference is a type mismatch where the platform would dereference it.
HRESULT copy_followed(VARIANT& target, const VARIANT& source) noexcept;

/// Stores a value in the variable that a caller's variant refers to, in the variable's own type
/// when it has one, or else in the variant itself. A type mismatch leaves the variable as it was.
/// A number too large for it also does, but without an error: the member has already run.
HRESULT write_through(VARIANT& variable, Variant value) noexcept;

/// Fails the call because of one argument; the description names the parameter and the member.
[[noreturn]] void refuse_argument(HRESULT code, const MemberInfo& member, std::size_t parameter);

/// The value of an early-bound VARIANT argument, references followed; a missing one has its
/// parameter's default, as in late-bound calls.
[[nodiscard]] Variant variant_argument(const VARIANT& given, const MemberInfo& member,
                                       std::size_t parameter);

/// Stores a changed value in the variable that the caller's variant is or refers to.
void store_variant(VARIANT& given, const Variant& value, const MemberInfo& member,
                   std::size_t parameter);

}  // namespace kovrel
