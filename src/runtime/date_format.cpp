#include "runtime/date_format.h"

#include <cstddef>

#include "runtime/calendar.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

std::wstring padded(int number, std::size_t width) {
    return with_leading_zeros(decimal_text(number), width);
}

std::wstring joined(int first, int second, int year, std::wstring_view separator) {
    return concat({padded(first, 2), separator, padded(second, 2), separator, padded(year, 4)});
}

}  // namespace

std::wstring two_digit_year_text(std::int32_t day) {
    return padded(civil_date(day).year % 100, 2);
}

std::wstring four_digit_year_text(std::int32_t day) {
    return padded(civil_date(day).year, 4);
}

std::wstring day_month_year_text(std::int32_t day, const RegionalSettings& settings) {
    const CivilDate date = civil_date(day);
    return joined(date.day, date.month, date.year, settings.date_separator);
}

std::wstring month_day_year_text(std::int32_t day, const RegionalSettings& settings) {
    const CivilDate date = civil_date(day);
    return joined(date.month, date.day, date.year, settings.date_separator);
}

}  // namespace kovrel
