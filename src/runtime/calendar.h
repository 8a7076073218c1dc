// The Gregorian calendar on day counts: 30 December 1899 is day 0, years run from 100 to 9999.
#pragma once

#include <cstdint>

namespace kovrel {

struct CivilDate {
    int year;
    int month;
    int day;

    bool operator==(const CivilDate&) const = default;
};

[[nodiscard]] constexpr bool is_leap_year(int year) noexcept {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// The number of days of a month (1 to 12).
[[nodiscard]] constexpr int days_of_month(int year, int month) noexcept {
    if (month == 2) return is_leap_year(year) ? 29 : 28;
    // April, June, September, November: even up to July, odd from August on.
    return 30 + (month + (month > 7 ? 1 : 0)) % 2;
}

/// The day count of a valid date of the years 0 to 9999.
[[nodiscard]] constexpr std::int32_t day_count(CivilDate date) noexcept {
    // Years are taken to begin in March, so that the leap day is the last of its year and the
    // lengths of months repeat every five: 31 30 31 30 31 = 153 days from March to July, again
    // from August to December, and January and February begin a third such run.
    const int shifted_year = date.month > 2 ? date.year : date.year - 1;
    const int shifted_month = date.month > 2 ? date.month - 3 : date.month + 9;
    const int years = shifted_year + 400;  // no negative operand below
    const int day_of_year = (153 * shifted_month + 2) / 5 + date.day - 1;
    // From 1 March of the year 0 to day 0 there are 693899 days, and 400 years have 146097.
    return 365 * years + years / 4 - years / 100 + years / 400 + day_of_year - (693899 + 146097);
}

/// The first and last day counts that stand for a date: 1 January 100 and 31 December 9999.
inline constexpr std::int32_t first_day = day_count({100, 1, 1});
inline constexpr std::int32_t last_day = day_count({9999, 12, 31});

/// The date of a day count from `first_day` to `last_day`.
[[nodiscard]] constexpr CivilDate civil_date(std::int32_t day) noexcept {
    // The inverse of day_count, cycle by cycle: 400 years have 146097 days, and within such a cycle
    // the year is what remains once the leap days before it are taken away.
    const int since = day + 693899;  // since 1 March of the year 0
    const int cycle = since / 146097;
    const int day_of_cycle = since % 146097;
    const int year_of_cycle =
        (day_of_cycle - day_of_cycle / 1460 + day_of_cycle / 36524 - day_of_cycle / 146096) / 365;
    const int day_of_year =
        day_of_cycle - (365 * year_of_cycle + year_of_cycle / 4 - year_of_cycle / 100);
    const int shifted_month = (5 * day_of_year + 2) / 153;
    const int month = shifted_month < 10 ? shifted_month + 3 : shifted_month - 9;
    return {cycle * 400 + year_of_cycle + (month <= 2 ? 1 : 0), month,
            day_of_year - (153 * shifted_month + 2) / 5 + 1};
}

/// Monday is 1, Sunday 7.
[[nodiscard]] constexpr int weekday(std::int32_t day) noexcept {
    constexpr std::int32_t a_monday = day_count({100, 1, 4});
    constexpr int week = 7;
    return (day - a_monday + week) % week + 1;
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
/// is asked for years from 0 to 99 only, since asking the system takes its time.
using TwoDigitYearMax = int (*)();

/// The day count of the date that "day/month/year" is read as by a user who writes the day first.
/// Where that is no date, the platform tries month/day/year, year/month/day and year/day/month, and
/// so does this: "1/13/2024" is 13 January 2024. Years from 0 to 99 are those of the user's hundred
/// years. Failure 13 (type mismatch) for what is no date: a negative number or a year over 9999
/// too.
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
