#include "sql/value_literal.h"

#include <cmath>
#include <cwchar>

#include "runtime/calendar.h"
#include "runtime/failure.h"
#include "runtime/text.h"
#include "sql/characters.h"

namespace kovrel {
namespace {

constexpr std::int64_t milliseconds_a_second = 1000;
constexpr std::int64_t milliseconds_a_day = 86'400'000;

/// A day and the milliseconds since its midnight.
struct Moment {
    std::int32_t day;
    std::int64_t time;
};

/// Rounded to whole units, which may lead to the next day.
Moment moment_of(double date, std::int64_t unit) {
    const double fraction = std::abs(date - std::trunc(date));
    const std::int64_t units = milliseconds_a_day / unit;
    Moment moment{day_of(date), std::llround(fraction * static_cast<double>(units)) * unit};
    if (moment.time == milliseconds_a_day) moment = {day_of(moment.day + 1.0), 0};
    return moment;
}

std::wstring padded(std::int64_t number, std::size_t width) {
    return with_leading_zeros(decimal_text(number), width);
}

std::wstring day_text(std::int32_t day, std::wstring_view separator) {
    const CivilDate civil = civil_date(day);
    return concat({padded(civil.year, 4), separator, padded(civil.month, 2), separator,
                   padded(civil.day, 2)});
}

std::wstring moment_text(Moment moment, std::wstring_view separator) {
    const std::int64_t fraction = moment.time % milliseconds_a_second;
    const std::int64_t seconds = moment.time / milliseconds_a_second;
    std::wstring text = concat({day_text(moment.day, L"-"), separator, padded(seconds / 3600, 2),
                                L":", padded(seconds / 60 % 60, 2), L":", padded(seconds % 60, 2)});
    if (fraction != 0) text += concat({L".", padded(fraction, 3)});
    return text;
}

/// As exact as the literals of the dialect.
Moment moment_in(Dialect dialect, double date) {
    return moment_of(date, dialect == Dialect::access ? milliseconds_a_second : 1);
}

std::wstring literal_of_day(Dialect dialect, std::int32_t day) {
    switch (dialect) {
        case Dialect::access:
            return concat({L"#", day_text(day, L"-"), L"#"});
        case Dialect::sql_server:
            // With separators some languages' settings would read year, day and month.
            return concat({L"'", day_text(day, {}), L"'"});
        case Dialect::sqlite:
            return concat({L"'", day_text(day, L"-"), L"'"});
        default:
            return concat({L"DATE '", day_text(day, L"-"), L"'"});
    }
}

std::wstring literal_of_moment(Dialect dialect, Moment moment) {
    const wchar_t* const separator = dialect == Dialect::sql_server ? L"T" : L" ";
    const std::wstring text = moment_text(moment, separator);
    switch (dialect) {
        case Dialect::access:
            return concat({L"#", text, L"#"});
        case Dialect::sql_server:
        case Dialect::sqlite:
            return concat({L"'", text, L"'"});
        case Dialect::oracle:
            if (moment.time % milliseconds_a_second == 0) {
                // With a timestamp the index of a column of dates would not be used.
                return concat({L"TO_DATE('", text, L"', 'YYYY-MM-DD HH24:MI:SS')"});
            }
            [[fallthrough]];
        default:
            return concat({L"TIMESTAMP '", text, L"'"});
    }
}

/// Whether a number in Oracle lies outside 1E-130 to 1E+126, the range of NUMBER.
bool is_past_oracle_number(std::wstring_view number) {
    constexpr long least_exponent = -130;
    constexpr long most_exponent = 125;
    const auto mark = number.find(L'E');
    if (mark == std::wstring_view::npos) return false;
    const long exponent = std::wcstol(std::wstring(number.substr(mark + 1)).c_str(), nullptr, 10);
    return exponent < least_exponent || exponent > most_exponent;
}

}  // namespace

std::wstring number_literal(Dialect dialect, std::wstring_view number) {
    const bool is_double = dialect == Dialect::oracle && is_past_oracle_number(number);
    const auto literal = concat({number, is_double ? L"d" : L""});
    return number.front() == L'-' ? concat({L"(", literal, L")"}) : literal;
}

std::wstring date_literal(Dialect dialect, double date) {
    return literal_of_day(dialect, moment_of(date, 1).day);
}

std::wstring date_time_literal(Dialect dialect, double date) {
    return literal_of_moment(dialect, moment_in(dialect, date));
}

std::wstring shortest_date_literal(Dialect dialect, double date) {
    const Moment moment = moment_in(dialect, date);
    return moment.time == 0 ? literal_of_day(dialect, moment.day)
                            : literal_of_moment(dialect, moment);
}

std::wstring boolean_literal(Dialect dialect, bool value) {
    switch (dialect) {
        case Dialect::access:
            return value ? L"True" : L"False";
        case Dialect::postgresql:
        case Dialect::mysql:
            return value ? L"TRUE" : L"FALSE";
        default:
            return value ? L"1" : L"0";
    }
}

std::wstring bytes_literal(Dialect dialect, std::span<const std::uint8_t> bytes) {
    constexpr std::size_t most_oracle_bytes = 2000;
    const std::wstring digits = hexadecimal(bytes.data(), bytes.size());
    switch (dialect) {
        case Dialect::access:
        case Dialect::sql_server:
            return L"0x" + digits;
        case Dialect::postgresql:
            // Without the backslash of '\x...', which standard_conforming_strings changes.
            return concat({L"decode('", digits, L"', 'hex')"});
        case Dialect::oracle:
            if (bytes.size() > most_oracle_bytes) {
                refuse_literal(L"un literal de Oracle no admite más de 2000 bytes");
            }
            return concat({L"HEXTORAW('", digits, L"')"});
        default:
            return concat({L"X'", digits, L"'"});
    }
}

std::wstring list_literal(Dialect dialect, const std::vector<std::wstring>& literals) {
    constexpr std::size_t most_oracle_values = 1000;
    if (literals.empty()) refuse_literal(L"la lista está vacía");
    if (dialect == Dialect::oracle && literals.size() > most_oracle_values) {
        refuse_literal(L"una lista de Oracle no admite más de 1000 valores");
    }
    std::wstring text;
    for (const std::wstring& literal : literals) {
        text += text.empty() ? L"(" : L", ";
        text += literal;
    }
    return text + L")";
}

}  // namespace kovrel
