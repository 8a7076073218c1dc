// Amounts rounded to two and four decimals, as texts in the user's regional settings.
#pragma once

#include <string>

#include "runtime/notice.h"
#include "runtime/number_format.h"
#include "runtime/regional.h"

namespace kovrel {

/// The amount with two or four decimals, rounded half away from zero, without group separators.
/// An infinity or a NaN is an overflow (failure 6).
[[nodiscard]] inline std::wstring round_to_two(double amount, const RegionalSettings& settings) {
    return format_number(amount, patterns::two_decimals, settings.decimal_separator);
}
[[nodiscard]] inline std::wstring round_to_four(double amount, const RegionalSettings& settings) {
    return format_number(amount, patterns::four_decimals, settings.decimal_separator);
}

/// What the user is told when the value to round is not a number.
[[nodiscard]] inline Notice rounding_needs_a_number() {
    return {L"Error en la función de redondeo: el dato no es numérico", NoticeStyle::critical, {}};
}

}  // namespace kovrel
