// The calendar functions: years in two and four digits, lengths of months, weeks of a month, first
// and last days. Dates with a time of day are day counts with a fraction, which is kept.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/calendar.h"
#include "runtime/notice.h"
#include "runtime/regional.h"

namespace kovrel {

struct MonthOfYear {
    int month;
    int year;

    bool operator==(const MonthOfYear&) const = default;
};

/// The year with two digits. Failure 13 (type mismatch) for a year that no date can have.
[[nodiscard]] std::wstring year_to_two_digits(std::int16_t year, TwoDigitYearMax max);

/// What the user is told about a year that has more than two digits already; nothing otherwise.
[[nodiscard]] std::optional<Notice> two_digit_year_notice(std::int16_t year);

/// The year with four digits: 2000 is added to the caller's year, which must be under 100. Failure
/// 13 (type mismatch) where the sum is no year of a date; the caller's year has changed by then.
[[nodiscard]] std::wstring year_to_four_digits(std::int16_t& year, TwoDigitYearMax max);

/// The number of days of a month; month numbers outside 1 to 12 count on into other years. Failure
/// 6 (overflow) for month 32767, 5 (invalid argument) for what lies outside the calendar.
[[nodiscard]] std::int16_t days_in_month(std::int16_t month, std::int16_t year,
                                         TwoDigitYearMax max);

/// The week of its month that holds a date, 1 to 6: weeks begin on Monday. Failure 5 (invalid
/// argument) for a number that is no date.
[[nodiscard]] std::int16_t week_of_month(double date);

/// The Monday and the Sunday of a date's week. Failure 5 (invalid argument) for a number that is no
/// date, 6 (overflow) for a day outside the calendar.
[[nodiscard]] double monday_of(double date);
[[nodiscard]] double sunday_of(double date);

/// "Semana del", the date's Monday, "al", its Sunday, by the user's short date pattern.
[[nodiscard]] std::wstring week_caption(double date, const Regional& regional);

/// Replaces a month of 0 and a year of 0 by those of `today`.
void default_to_current_month(std::int16_t& month, std::int16_t& year, std::int32_t today);

/// The month before. A month of 0 is not January: what comes before it is month -1. Failure 6
/// (overflow) before January of the first 16-bit year.
[[nodiscard]] MonthOfYear month_before(std::uint8_t month, std::int16_t year);

/// The first of a month, and its last day where it has `days` days. Failure 13 (type mismatch) for
/// what a user could not write as a date; "1/13/2024" could be, and is 13 January.
[[nodiscard]] std::int32_t first_of_month(MonthOfYear month, TwoDigitYearMax max);
[[nodiscard]] std::int32_t last_of_month(MonthOfYear month, std::int16_t days, TwoDigitYearMax max);

/// The name of a month in capitals; "---" for a number outside 1 to 12.
[[nodiscard]] std::wstring_view month_name(std::uint8_t month) noexcept;

}  // namespace kovrel
