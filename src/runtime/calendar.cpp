#include "runtime/calendar.h"

#include <optional>

#include "runtime/failure.h"

namespace kovrel {
namespace {

constexpr int first_year = 100;
constexpr int last_year = 9999;
constexpr int century = 100;
constexpr int months_of_year = 12;

int full_year(int year, TwoDigitYearMax two_digit_year_max) {
    if (year < 0 || year >= century) return year;
    const int last = two_digit_year_max();
    const int full = last - last % century + year;
    return full > last ? full - century : full;
}

std::optional<std::int32_t> valid_day(CivilDate date) {
    // The range first: std::chrono keeps month and day in one byte each.
    const auto fits = [](int number) { return number >= 1 && number <= 31; };
    if (date.year < first_year || date.year > last_year || !fits(date.month) || !fits(date.day) ||
        !(std::chrono::year(date.year) / date.month / date.day).ok()) {
        return std::nullopt;
    }
    return day_count(date);
}

std::optional<std::int32_t> valid_day_either_way(int year, int month, int day) {
    const auto as_given = valid_day({year, month, day});
    return as_given ? as_given : valid_day({year, day, month});
}

}  // namespace

std::int32_t day_of(double date) {
    // Negated so that NaN fails.
    if (!(date > first_day - 1 && date < last_day + 1)) {
        throw Failure(FailureNumber::invalid_argument);
    }
    return static_cast<std::int32_t>(date);
}

std::int32_t read_day_month_year(int day, int month, int year, TwoDigitYearMax two_digit_year_max) {
    if (const auto count = valid_day_either_way(full_year(year, two_digit_year_max), month, day)) {
        return *count;
    }
    if (const auto count = valid_day_either_way(full_year(day, two_digit_year_max), month, year)) {
        return *count;
    }
    throw Failure(FailureNumber::type_mismatch);
}

std::int32_t compose_date(int year, int month, int day, TwoDigitYearMax two_digit_year_max) {
    constexpr int negative_years_count_from = 2000;
    const int base_year =
        year < 0 ? negative_years_count_from + year : full_year(year, two_digit_year_max);
    // Months since the beginning of the year 0; a date before it is out of range whatever the day.
    const std::int64_t months = std::int64_t{base_year} * months_of_year + month - 1;
    const std::int64_t composed_year = months / months_of_year;
    if (base_year > last_year || months < 0 || composed_year > last_year + 1) {
        throw Failure(FailureNumber::invalid_argument);
    }
    const CivilDate first{static_cast<int>(composed_year),
                          static_cast<int>(months % months_of_year) + 1, 1};
    const std::int64_t count = std::int64_t{day_count(first)} + day - 1;
    if (count < first_day || count > last_day) throw Failure(FailureNumber::invalid_argument);
    return static_cast<std::int32_t>(count);
}

}  // namespace kovrel
