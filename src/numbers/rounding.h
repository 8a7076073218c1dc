// Amounts rounded to two and four decimals, as texts in the user's regional settings.
#pragma once

#include <string>

#include "runtime/notice.h"
#include "runtime/regional.h"

namespace kovrel {

/// The amount with two or four decimals, rounded half away from zero, without group separators.
/// An infinity or a NaN is an overflow (failure 6).
[[nodiscard]] std::wstring round_to_two(double amount, const RegionalSettings& settings);
[[nodiscard]] std::wstring round_to_four(double amount, const RegionalSettings& settings);

/// What the user is told when the value to round is not a number.
[[nodiscard]] Notice rounding_needs_a_number();

}  // namespace kovrel
