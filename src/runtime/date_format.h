// Writing dates as texts in the fixed formats in use.
// All functions take a day count (30 December 1899 is 0) of the years 100 to 9999.
#pragma once

#include <cstdint>
#include <string>

#include "runtime/regional.h"

namespace kovrel {

/// "YY" and "YYYY": the year with two and with four digits.
[[nodiscard]] std::wstring two_digit_year_text(std::int32_t day);
[[nodiscard]] std::wstring four_digit_year_text(std::int32_t day);

/// "dd/mm/yyyy" and "mm/dd/yyyy", with the user's date separator in the place of "/".
[[nodiscard]] std::wstring day_month_year_text(std::int32_t day, const RegionalSettings& settings);
[[nodiscard]] std::wstring month_day_year_text(std::int32_t day, const RegionalSettings& settings);

}  // namespace kovrel
