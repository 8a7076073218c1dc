// Numbers, dates, booleans and bytes as SQL literals, and lists of literals.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sql/dialect.h"

namespace kovrel {

/// The literal of a value that is not known, in every dialect.
inline constexpr std::wstring_view null_literal = L"NULL";

/// A number as runtime/exact_number.h writes it. A negative one is put between parentheses: after a
/// minus sign of the SQL text it would begin a comment. In Oracle a number past the range of NUMBER
/// is a BINARY_DOUBLE.
[[nodiscard]] std::wstring number_literal(Dialect dialect, std::wstring_view number);

/// The day of a date with a time of day (see runtime/calendar.h). Dates are rounded to the
/// millisecond, in Access, whose literals have none, to the second where the time of day is
/// written. Failure 5 outside the years 100 to 9999.
[[nodiscard]] std::wstring date_literal(Dialect dialect, double date);

/// The day and the time of day.
[[nodiscard]] std::wstring date_time_literal(Dialect dialect, double date);

/// The day alone at midnight, else with the time of day.
[[nodiscard]] std::wstring shortest_date_literal(Dialect dialect, double date);

[[nodiscard]] std::wstring boolean_literal(Dialect dialect, bool value);

/// Failure 5 for more than the 2000 bytes that a literal of Oracle may have.
[[nodiscard]] std::wstring bytes_literal(Dialect dialect, std::span<const std::uint8_t> bytes);

/// Literals for IN: "(1, 2, 3)". Failure 5 for none, since no database has an empty list, and for
/// more than the 1000 that Oracle takes.
[[nodiscard]] std::wstring list_literal(Dialect dialect, const std::vector<std::wstring>& literals);

}  // namespace kovrel
