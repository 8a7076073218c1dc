#include "services/system_regional.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <limits>
#include <new>

#include "automation/bstr.h"
#include "runtime/calendar.h"
#include "runtime/date_format.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

std::wstring setting(LCTYPE type) {
    std::array<wchar_t, 128> text{};
    const int length =
        GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text.data(), static_cast<int>(text.size()));
    return length > 0 ? std::wstring(text.data()) : std::wstring();
}

wchar_t first_of(const std::wstring& text, wchar_t otherwise) {
    return text.empty() ? otherwise : text.front();
}

RegionalSettings current_settings() {
    return {.decimal_separator = first_of(setting(LOCALE_SDECIMAL), L'.'),
            .group_separator = first_of(setting(LOCALE_STHOUSAND), L','),
            .date_separator = setting(LOCALE_SDATE)};
}

/// The pattern with its year letters replaced by the year's digits.
std::wstring with_year(std::wstring_view pattern, std::int32_t day) {
    std::wstring result;
    bool quoted = false;
    while (!pattern.empty()) {
        const wchar_t letter = pattern.front();
        std::size_t run = 1;
        if (letter == L'\'') quoted = !quoted;
        if (letter == L'y' && !quoted) {
            run = std::min(pattern.find_first_not_of(letter), pattern.size());
            result += run <= 2 ? two_digit_year_text(day) : four_digit_year_text(day);
        } else {
            result += letter;
        }
        pattern.remove_prefix(run);
    }
    return result;
}

}  // namespace

SystemRegional::SystemRegional() : Regional(current_settings()) {}

std::optional<double> SystemRegional::number(std::wstring_view text) const {
    double value = 0;
    const Bstr copy(text);
    if (FAILED(VarR8FromStr(copy.get(), LOCALE_USER_DEFAULT, 0, &value))) return std::nullopt;
    return value;
}

std::optional<double> SystemRegional::date(std::wstring_view text) const {
    DATE value = 0;
    const Bstr copy(text);
    if (FAILED(VarDateFromStr(copy.get(), LOCALE_USER_DEFAULT, 0, &value))) return std::nullopt;
    return value;
}

std::wstring SystemRegional::short_date(std::int32_t day) const {
    // The system formats dates from 1601 on; weekdays repeat every 400 years.
    constexpr int first_year = 1601;
    constexpr int cycle = 400;
    std::wstring pattern = setting(LOCALE_SSHORTDATE);
    CivilDate date = civil_date(day);
    if (date.year < first_year) pattern = with_year(pattern, day);
    while (date.year < first_year) date.year += cycle;
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(date.year);
    time.wMonth = static_cast<WORD>(date.month);
    time.wDay = static_cast<WORD>(date.day);
    std::array<wchar_t, 512> text{};
    const int length = GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &time, pattern.c_str(),
                                       text.data(), static_cast<int>(text.size()), nullptr);
    return length > 0 ? std::wstring(text.data()) : std::wstring();
}

std::wstring SystemRegional::capitals(std::wstring_view text) const {
    std::wstring result(text);
    const auto is_ascii = [](wchar_t character) { return character < 0x80; };
    if (std::all_of(text.begin(), text.end(), is_ascii)) {
        make_upper(result);
        return result;
    }
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        throw std::bad_alloc();
    }
    const int length = static_cast<int>(text.size());
    LCMapStringEx(LOCALE_NAME_USER_DEFAULT, LCMAP_UPPERCASE, text.data(), length, result.data(),
                  length, nullptr, nullptr, 0);
    return result;
}

int two_digit_year_max() {
    constexpr int platform_default = 2029;
    DWORD year = 0;
    const int read = GetCalendarInfoW(LOCALE_USER_DEFAULT, CAL_GREGORIAN,
                                      CAL_ITWODIGITYEARMAX | CAL_RETURN_NUMBER, nullptr, 0, &year);
    return read != 0 ? static_cast<int>(year) : platform_default;
}

}  // namespace kovrel
