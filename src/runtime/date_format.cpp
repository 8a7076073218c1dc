#include "runtime/date_format.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "runtime/calendar.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::array<std::wstring_view, 7> weekday_names{
    L"lunes", L"martes", L"miércoles", L"jueves", L"viernes", L"sábado", L"domingo"};
constexpr std::array<std::wstring_view, 12> month_names{
    L"enero", L"febrero", L"marzo",      L"abril",   L"mayo",      L"junio",
    L"julio", L"agosto",  L"septiembre", L"octubre", L"noviembre", L"diciembre"};

std::wstring padded(int number, std::size_t width) {
    std::wstring digits = decimal_text(number);
    if (digits.size() < width) digits.insert(0, width - digits.size(), L'0');
    return digits;
}

// A run of three letters stands for the first three of a name, a longer one for the whole name.
std::wstring name_piece(std::wstring_view name, std::size_t run) {
    return std::wstring(name.substr(0, run == 3 ? run : name.size()));
}

std::wstring day_piece(std::int32_t day, std::size_t run) {
    if (run <= 2) return padded(civil_date(day).day, run);
    return name_piece(weekday_names[static_cast<std::size_t>(weekday(day) - 1)], run);
}

std::wstring month_piece(std::int32_t day, std::size_t run) {
    const int month = civil_date(day).month;
    if (run <= 2) return padded(month, run);
    return name_piece(month_names[static_cast<std::size_t>(month - 1)], run);
}

std::wstring year_piece(std::int32_t day, std::size_t run) {
    const int year = civil_date(day).year;
    return run <= 2 ? padded(year % 100, run) : padded(year, 4);
}

// Appends the literal that begins with the quote at `position`; within it a doubled quote stands
// for one, and the pattern's end closes it. Returns the position behind it.
std::size_t append_literal(std::wstring& text, std::wstring_view pattern, std::size_t position) {
    const wchar_t quote = pattern[position++];
    while (position < pattern.size()) {
        if (pattern[position] == quote) {
            ++position;
            if (position == pattern.size() || pattern[position] != quote) break;
        }
        text += pattern[position++];
    }
    return position;
}

}  // namespace

std::wstring short_date_text(std::int32_t day, const RegionalSettings& settings) {
    const std::wstring_view pattern = settings.short_date;
    std::wstring text;
    std::size_t position = 0;
    while (position < pattern.size()) {
        const wchar_t letter = pattern[position];
        if (letter == L'\'') {
            position = append_literal(text, pattern, position);
            continue;
        }
        const auto end = pattern.find_first_not_of(letter, position);
        const std::size_t run = (end == std::wstring_view::npos ? pattern.size() : end) - position;
        position += run;
        switch (letter) {
            case L'd':
                text += day_piece(day, run);
                break;
            case L'M':
                text += month_piece(day, run);
                break;
            case L'y':
                text += year_piece(day, run);
                break;
            default:
                text.append(run, letter);
        }
    }
    return text;
}

std::wstring two_digit_year_text(std::int32_t day) {
    return year_piece(day, 2);
}
std::wstring four_digit_year_text(std::int32_t day) {
    return year_piece(day, 4);
}

std::wstring day_month_year_text(std::int32_t day, const RegionalSettings& settings) {
    return day_piece(day, 2) + settings.date_separator + month_piece(day, 2) +
           settings.date_separator + year_piece(day, 4);
}

std::wstring month_day_year_text(std::int32_t day, const RegionalSettings& settings) {
    return month_piece(day, 2) + settings.date_separator + day_piece(day, 2) +
           settings.date_separator + year_piece(day, 4);
}

}  // namespace kovrel
