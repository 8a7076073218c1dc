// Variables that a caller passes by reference inside a VARIANT: read and written through it, the
// same early-bound and late-bound.
#pragma once

#include "automation/variant.h"

namespace kovrel {

/// The variant at the end of a chain of by-reference variants; null when the chain has no end or
/// what it leads to refers to nothing.
[[nodiscard]] VARIANT* followed(VARIANT* value) noexcept;

/// Copies a value, what it refers to instead of the reference. A reference to nothing is a type
/// mismatch, where the platform would follow it.
HRESULT copy_followed(VARIANT& target, const VARIANT& source) noexcept;

/// Stores a value in the variable that a caller's variant refers to, in the variable's own type
/// when it has one, or else in the variant itself. A type mismatch leaves the variable as it was.
/// So does a number that is too large for it, and then the call goes on: what it did is done.
HRESULT write_through(VARIANT& variable, Variant value) noexcept;

}  // namespace kovrel
