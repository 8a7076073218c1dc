#include "runtime/date_format.h"

#include <cstddef>

#include "runtime/calendar.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

std::wstring padded(int number, std::size_t width) {
    std::wstring digits = decimal_text(number);
    if (digits.size() < width) digits.insert(0, width - digits.size(), L'0');
    return digits;
}

std::wstring joined(int first, int second, const CivilDate& date,
                    const RegionalSettings& settings) {
    return padded(first, 2) + settings.date_separator + padded(second, 2) +
           settings.date_separator + padded(date.year, 4);
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
    return joined(date.day, date.month, date, settings);
}

std::wstring month_day_year_text(std::int32_t day, const RegionalSettings& settings) {
    const CivilDate date = civil_date(day);
    return joined(date.month, date.day, date, settings);
}

}  // namespace kovrel
