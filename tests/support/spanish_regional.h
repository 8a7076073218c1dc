// Spanish regional settings for tests and fuzz targets without the platform's parsers: simple
// parsing of numbers and of day/month/year dates.
#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "runtime/date_format.h"
#include "runtime/regional.h"
#include "runtime/text.h"

namespace kovrel::testing_support {

class SpanishRegional : public Regional {
 public:
    explicit SpanishRegional(RegionalSettings settings = {}) : Regional(std::move(settings)) {}

    /// Blanks at both ends, one sign before or after the digits, or parentheses around them for a
    /// negative number; points between whole digits; a decimal comma; an exponent; &H and &O.
    [[nodiscard]] std::optional<double> number(std::wstring_view text) const override {
        text = trim(text);
        if (text.size() > 2 && text.front() == L'&') return with_prefix(text.substr(1));
        bool negative = false;
        bool has_sign = false;
        if (text.size() > 2 && text.front() == L'(' && text.back() == L')') {
            negative = has_sign = true;
            text = text.substr(1, text.size() - 2);
        } else if (!text.empty() && is_sign(text.front())) {
            negative = text.front() == L'-';
            has_sign = true;
            text.remove_prefix(1);
        }
        if (!has_sign && !text.empty() && is_sign(text.back())) {
            negative = text.back() == L'-';
            text.remove_suffix(1);
        }
        const auto value = unsigned_number(text);
        return value && negative ? -*value : value;
    }

    /// Day, month and year between "/" or "-", read as month and day where the first two cannot be
    /// a day and a month; years of two digits lie from 1930 to 2029.
    [[nodiscard]] std::optional<double> date(std::wstring_view text) const override {
        std::array<int, 3> parts{};
        std::size_t part = 0;
        std::size_t digits = 0;
        for (const wchar_t character : trim(text)) {
            if (is_digit(character) && digits < 4) {
                parts[part] = parts[part] * 10 + static_cast<int>(character - L'0');
                ++digits;
            } else if ((character == L'/' || character == L'-') && digits > 0 && part < 2) {
                ++part;
                digits = 0;
            } else {
                return std::nullopt;
            }
        }
        if (part != 2 || digits == 0) return std::nullopt;
        const int year = digits > 2 ? parts[2] : parts[2] + (parts[2] < 30 ? 2000 : 1900);
        if (year < 100) return std::nullopt;
        if (const auto day_first = day_count(year, parts[1], parts[0])) return day_first;
        return parts[1] > 12 ? day_count(year, parts[0], parts[1]) : std::nullopt;
    }

    /// dd/mm/yyyy, with the separator of the settings.
    [[nodiscard]] std::wstring short_date(std::int32_t day) const override {
        return day_month_year_text(day, settings());
    }

    /// ASCII and Latin-1 alone.
    [[nodiscard]] std::wstring capitals(std::wstring_view text) const override {
        return to_upper(text);
    }

 private:
    static bool is_sign(wchar_t character) { return character == L'-' || character == L'+'; }

    static std::optional<double> with_prefix(std::wstring_view text) {
        const int base = to_upper(text.front()) == L'H' ? 16 : 8;
        if (base == 8 && to_upper(text.front()) != L'O') return std::nullopt;
        std::uint64_t value = 0;
        return from_narrow(text.substr(1), value, base) ? std::optional(static_cast<double>(value))
                                                        : std::nullopt;
    }

    static std::optional<double> unsigned_number(std::wstring_view text) {
        std::wstring literal;
        bool has_digit = false;
        bool past_comma = false;
        for (std::size_t index = 0; index < text.size(); ++index) {
            const wchar_t character = text[index];
            if (is_digit(character)) {
                has_digit = true;
                literal.push_back(character);
            } else if (character == L',' && !past_comma) {
                past_comma = true;
                literal.push_back(L'.');
            } else if (has_digit && to_upper(character) == L'E' && index + 1 < text.size()) {
                literal.push_back(L'e');
                literal.append(text.substr(index + 1));
                break;
            } else if (character != L'.' || past_comma) {
                return std::nullopt;
            }
        }
        double value = 0;
        const bool complete = has_digit && from_narrow(literal, value);
        return complete && std::isfinite(value) ? std::optional(value) : std::nullopt;
    }

    /// True when the whole text was read.
    template <typename Value, typename... Format>
    static bool from_narrow(std::wstring_view text, Value& value, Format... format) {
        std::string narrow;
        for (const wchar_t character : text) {
            if (character > L'~') return false;
            narrow.push_back(static_cast<char>(character));
        }
        const auto end = narrow.data() + narrow.size();
        const auto result = std::from_chars(narrow.data(), end, value, format...);
        return result.ec == std::errc{} && result.ptr == end;
    }

    /// Days since 30 December 1899 in the Gregorian calendar.
    static std::optional<double> day_count(int year, int month, int day) {
        constexpr std::array lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
        if (month < 1 || month > 12 || day < 1) return std::nullopt;
        int days = day;
        for (int before = 1; before < month; ++before) {
            days += lengths[static_cast<std::size_t>(before - 1)] + (before == 2 && leap ? 1 : 0);
        }
        const int length =
            lengths[static_cast<std::size_t>(month - 1)] + (month == 2 && leap ? 1 : 0);
        if (day > length) return std::nullopt;
        const int past = year - 1;
        constexpr int days_to_epoch = 693594;  // 1 January of the year 1 counts 1
        days += past * 365 + past / 4 - past / 100 + past / 400 - days_to_epoch;
        return days;
    }
};

}  // namespace kovrel::testing_support
