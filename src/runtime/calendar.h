// The Gregorian calendar on day counts: 30 December 1899 is day 0, years run from 100 to 9999.
#pragma once

#include <chrono>
#include <cstdint>

namespace kovrel {

struct CivilDate {
    int year;
    int month;
    int day;

    bool operator==(const CivilDate&) const = default;
};

inline constexpr std::chrono::sys_days day_zero = std::chrono::year(1899) / 12 / 30;

/// The day count of a valid date of the years 0 to 10000.
[[nodiscard]] constexpr std::int32_t day_count(CivilDate date) noexcept {
    const std::chrono::sys_days day = std::chrono::year(date.year) / date.month / date.day;
    return static_cast<std::int32_t>((day - day_zero).count());
}

/// The first and last day counts that stand for a date: 1 January 100 and 31 December 9999.
inline constexpr std::int32_t first_day = day_count({100, 1, 1});
inline constexpr std::int32_t last_day = day_count({9999, 12, 31});

/// The date of a day count from `first_day` to `last_day`.
[[nodiscard]] constexpr CivilDate civil_date(std::int32_t day) noexcept {
    const std::chrono::year_month_day date = day_zero + std::chrono::days(day);
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

/// Monday is 1, Sunday 7.
[[nodiscard]] constexpr int weekday(std::int32_t day) noexcept {
    return static_cast<int>(std::chrono::weekday(day_zero + std::chrono::days(day)).iso_encoding());
}

/// The week of the year: weeks begin on Monday, and the one that holds 1 January is week 1.
[[nodiscard]] constexpr int week_of_year(std::int32_t day) noexcept {
    const std::int32_t new_year = day_count({civil_date(day).year, 1, 1});
    return (day - new_year + weekday(new_year) - 1) / 7 + 1;
}

/// The day count of a date with a time of day; the time is the fraction, whatever the sign.
/// Failure 5 (invalid argument) outside the years 100 to 9999.
[[nodiscard]] std::int32_t day_of(double date);

/// Gives the last of the hundred years that two digits stand for (2029, 2049: a user's setting). It
/// is called for years from 0 to 99 only, because the system call is slow.
using TwoDigitYearMax = int (*)();

/// The day count of a date written as "day/month/year". Where that is no date, month/day/year,
/// year/month/day and year/day/month are tried as the platform does: "1/13/2024" is 13 January
/// 2024. Years from 0 to 99 are those of the user's hundred years. Failure 13 (type mismatch) for
/// anything that is no date, such as a negative number or a year over 9999.
[[nodiscard]] std::int32_t read_day_month_year(int day, int month, int year,
                                               TwoDigitYearMax two_digit_year_max);

/// The day count that composing year, month and day gives. Any month and day count on from the
/// year's beginning (month 13 is the next January, day 0 the last of the month before). Years from
/// 0 to 99 are those of the user's hundred years, negative ones count back from 2000. Failure 5
/// (invalid argument) when the result or the year itself is not of the years up to 9999, or the
/// result is before the year 100.
[[nodiscard]] std::int32_t compose_date(int year, int month, int day,
                                        TwoDigitYearMax two_digit_year_max);

}  // namespace kovrel
