#include "dates/calendar_rules.h"

#include <array>
#include <cstddef>
#include <limits>

#include "runtime/date_format.h"
#include "runtime/failure.h"

namespace kovrel {
namespace {

constexpr std::uint8_t january = 1;
constexpr std::uint8_t december = 12;

// Moves a date by whole days and keeps its time of day. Before day 0 the time counts backwards from
// the day, so day and time are moved apart.
double moved_by(double date, std::int32_t days) {
    const std::int32_t day = day_of(date);
    const double moved = day + days;
    if (moved < first_day || moved > last_day) throw Failure(FailureNumber::overflow);
    const double time = date < 0 ? day - date : date - day;
    return moved < 0 ? moved - time : moved + time;
}

}  // namespace

std::wstring year_to_two_digits(std::int16_t year, TwoDigitYearMax max) {
    return two_digit_year_text(read_day_month_year(1, january, year, max));
}

std::optional<Notice> two_digit_year_notice(std::int16_t year) {
    if (year < 100) return std::nullopt;
    return Notice{L"Error al convertir el año a 4 dígitos", NoticeStyle::critical, std::nullopt};
}

std::wstring year_to_four_digits(std::int16_t& year, TwoDigitYearMax max) {
    year = static_cast<std::int16_t>(year + 2000);
    return four_digit_year_text(read_day_month_year(1, january, year, max));
}

std::int16_t days_in_month(std::int16_t month, std::int16_t year, TwoDigitYearMax max) {
    if (month == std::numeric_limits<std::int16_t>::max()) throw Failure(FailureNumber::overflow);
    return static_cast<std::int16_t>(civil_date(compose_date(year, month + 1, 0, max)).day);
}

std::int16_t week_of_month(double date) {
    const std::int32_t day = day_of(date);
    const CivilDate civil = civil_date(day);
    if (civil.month == january) return static_cast<std::int16_t>(week_of_year(day));
    const std::int32_t first = day - civil.day + 1;
    const int weeks_since = week_of_year(day) - week_of_year(first - 1);
    return static_cast<std::int16_t>(weekday(first) == 1 ? weeks_since : weeks_since + 1);
}

double monday_of(double date) {
    return moved_by(date, 1 - weekday(day_of(date)));
}
double sunday_of(double date) {
    return moved_by(monday_of(date), 6);
}

std::wstring week_caption(double date, const Regional& regional) {
    return L"Semana del " + regional.short_date(day_of(monday_of(date))) + L" al " +
           regional.short_date(day_of(sunday_of(date)));
}

void default_to_current_month(std::int16_t& month, std::int16_t& year, std::int32_t today) {
    const CivilDate current = civil_date(today);
    if (month == 0) month = static_cast<std::int16_t>(current.month);
    if (year == 0) year = static_cast<std::int16_t>(current.year);
}

MonthOfYear month_before(std::uint8_t month, std::int16_t year) {
    if (month != january) return {month - 1, year};
    if (year == std::numeric_limits<std::int16_t>::min()) throw Failure(FailureNumber::overflow);
    return {december, year - 1};
}

std::int32_t first_of_month(MonthOfYear month, TwoDigitYearMax max) {
    return read_day_month_year(1, month.month, month.year, max);
}

std::int32_t last_of_month(MonthOfYear month, std::int16_t days, TwoDigitYearMax max) {
    return read_day_month_year(days, month.month, month.year, max);
}

std::wstring_view month_name(std::uint8_t month) noexcept {
    constexpr std::array<std::wstring_view, 12> names{
        L"ENERO", L"FEBRERO", L"MARZO",      L"ABRIL",   L"MAYO",      L"JUNIO",
        L"JULIO", L"AGOSTO",  L"SEPTIEMBRE", L"OCTUBRE", L"NOVIEMBRE", L"DICIEMBRE"};
    if (month < january || month > december) return L"---";
    return names[static_cast<std::size_t>(month - 1)];
}

}  // namespace kovrel
