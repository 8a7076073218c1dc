#include "runtime/number_format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <utility>

#include "runtime/decimal_digits.h"
#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr int significant_digits = 15;

DecimalDigits to_decimal(double value) {
    DecimalDigits number = exact_digits(value);
    round_to(number, significant_digits);
    return number;
}

/// The number in the pattern, where it can be rounded quickly.
std::optional<std::wstring> write_quickly(double value, NumberPattern pattern,
                                          wchar_t decimal_separator) {
    constexpr int most_whole_digits = 8;
    if (pattern.whole_digits > most_whole_digits) return std::nullopt;
    const auto rounded = quickly_rounded(value, pattern.decimals);
    if (!rounded) return std::nullopt;
    auto number = *rounded;
    const bool negative = value < 0 && number != 0;
    std::array<wchar_t, 32> buffer;
    std::size_t first = buffer.size();
    const auto put_digit = [&] {
        buffer[--first] = static_cast<wchar_t>(L'0' + number % 10);
        number /= 10;
    };
    for (int count = 0; count < pattern.decimals; ++count) put_digit();
    if (pattern.decimals > 0) buffer[--first] = decimal_separator;
    for (int count = 0; count < pattern.whole_digits || number != 0; ++count) put_digit();
    if (negative) buffer[--first] = L'-';
    return std::wstring(buffer.begin() + static_cast<std::ptrdiff_t>(first), buffer.end());
}

std::wstring write(DecimalDigits number, NumberPattern pattern, wchar_t decimal_separator) {
    round_to(number, number.point + pattern.decimals);
    const bool is_zero = number.digits.find_first_not_of('0') == std::string::npos;
    const auto digit_at = [&number](std::ptrdiff_t index) {
        const bool written =
            index >= 0 && index < static_cast<std::ptrdiff_t>(number.digits.size());
        return static_cast<wchar_t>(written ? number.digits[static_cast<std::size_t>(index)] : '0');
    };

    std::ptrdiff_t first = 0;
    while (first < number.point && digit_at(first) == L'0') ++first;
    first = std::min(first, number.point - pattern.whole_digits);

    std::wstring text;
    if (number.negative && !is_zero) text.push_back(L'-');
    for (auto index = first; index < number.point; ++index) text.push_back(digit_at(index));
    if (pattern.decimals > 0) text.push_back(decimal_separator);
    for (auto index = number.point; index < number.point + pattern.decimals; ++index) {
        text.push_back(digit_at(index));
    }
    return text;
}

/// Reads the digits after &H or &O.
double prefixed_number(std::wstring_view text) {
    const unsigned base = text.front() == L'h' || text.front() == L'H' ? 16 : 8;
    std::uint64_t value = 0;
    text.remove_prefix(1);
    for (; !text.empty(); text.remove_prefix(1)) {
        const auto code = static_cast<unsigned>(text.front());
        unsigned digit = base;
        if (is_digit(text.front())) {
            digit = code - '0';
        } else if ((code | 0x20U) >= 'a') {
            digit = (code | 0x20U) - 'a' + 10;  // past F no digit of any base
        }
        if (digit >= base) break;
        value = value * base + digit;
        if (value > 0xFFFFFFFFU) throw Failure(FailureNumber::overflow);
    }
    const bool is_long = !text.empty() && text.front() == L'&';
    if (value <= 0xFFFFU && !is_long) return static_cast<std::int16_t>(value);
    return static_cast<std::int32_t>(value);
}

std::wstring without_blanks(std::wstring_view text) {
    std::wstring result;
    std::copy_if(text.begin(), text.end(), std::back_inserter(result), [](wchar_t character) {
        return character != L' ' && character != L'\t' && character != L'\n' && character != L'\r';
    });
    return result;
}

}  // namespace

std::optional<std::uint64_t> quickly_rounded(double value, int decimals) noexcept {
    // Below 1e12 and away from a half, binary rounding agrees with rounding 15 decimal digits.
    constexpr std::array powers{1.0, 10.0, 100.0, 1000.0, 10000.0};
    constexpr double digits_to_spare = 1e12;
    constexpr double near_a_half = 0.01;
    const auto power = static_cast<std::size_t>(decimals);
    if (power >= powers.size()) return std::nullopt;
    const double scaled = std::abs(value) * powers[power];
    if (!(scaled < digits_to_spare)) return std::nullopt;
    const auto whole = static_cast<std::uint64_t>(scaled);
    const double fraction = scaled - static_cast<double>(whole);
    if (std::abs(fraction - 0.5) < near_a_half) return std::nullopt;
    return fraction > 0.5 ? whole + 1 : whole;
}

std::wstring format_number(double value, NumberPattern pattern, wchar_t decimal_separator) {
    if (auto text = write_quickly(value, pattern, decimal_separator)) return *std::move(text);
    return write(to_decimal(value), pattern, decimal_separator);
}

std::wstring format_number(std::wstring_view text, NumberPattern pattern,
                           const Regional& regional) {
    const auto& settings = regional.settings();
    if (auto plain = plain_decimal(text, settings.decimal_separator)) {
        return write(*std::move(plain), pattern, settings.decimal_separator);
    }
    const auto value = regional.number(text);
    if (!value) return std::wstring(text);
    if (auto grouped = plain_decimal(text, settings.decimal_separator, settings.group_separator)) {
        return write(*std::move(grouped), pattern, settings.decimal_separator);
    }
    return format_number(*value, pattern, settings.decimal_separator);
}

std::wstring number_to_text(DecimalDigits number, std::ptrdiff_t most_digits,
                            wchar_t decimal_separator) {
    const auto first = std::min(number.digits.find_first_not_of('0'), number.digits.size());
    number.digits.erase(0, first);
    number.point -= static_cast<std::ptrdiff_t>(first);
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
    if (number.digits.empty()) return L"0";
    const auto count = static_cast<std::ptrdiff_t>(number.digits.size());
    const auto decimals = count - number.point;
    if (number.point <= most_digits && decimals <= most_digits) {
        return write(std::move(number),
                     {1, static_cast<int>(std::max<std::ptrdiff_t>(decimals, 0))},
                     decimal_separator);
    }
    auto exponent = number.point - 1;
    number.point = 1;
    std::wstring text =
        write(std::move(number), {1, static_cast<int>(count - 1)}, decimal_separator);
    text += exponent < 0 ? L"E-" : L"E+";
    exponent = std::abs(exponent);
    if (exponent < 10) text.push_back(L'0');
    return text + decimal_text(exponent);
}

std::wstring number_to_text(double value, wchar_t decimal_separator) {
    return number_to_text(to_decimal(value), significant_digits, decimal_separator);
}

std::optional<double> plain_number(std::wstring_view text, wchar_t decimal_separator) {
    const auto plain = plain_decimal(text, decimal_separator);
    if (!plain) return std::nullopt;
    std::string literal = plain->digits;
    literal.insert(static_cast<std::size_t>(plain->point), 1, '.');
    const double value = double_of(literal);
    return plain->negative ? -value : value;
}

double leading_number(std::wstring_view text) {
    const std::wstring characters = without_blanks(text);
    std::wstring_view rest = characters;
    if (rest.size() >= 2 && rest.front() == L'&' &&
        std::wstring_view(L"hHoO").find(rest[1]) != std::wstring_view::npos) {
        return prefixed_number(rest.substr(1));
    }
    bool negative = false;
    if (!rest.empty() && (rest.front() == L'-' || rest.front() == L'+')) {
        negative = rest.front() == L'-';
        rest.remove_prefix(1);
    }
    std::string literal;
    const auto take_digits = [&rest, &literal] {
        for (; !rest.empty() && is_digit(rest.front()); rest.remove_prefix(1)) {
            literal.push_back(static_cast<char>(rest.front()));
        }
    };
    take_digits();
    if (!rest.empty() && rest.front() == L'.') {
        rest.remove_prefix(1);
        literal.push_back('.');
        take_digits();
    }
    if (!rest.empty() && std::wstring_view(L"eEdD").find(rest.front()) != std::wstring_view::npos) {
        rest.remove_prefix(1);
        literal.push_back('e');
        if (!rest.empty() && (rest.front() == L'-' || rest.front() == L'+')) {
            literal.push_back(static_cast<char>(rest.front()));
            rest.remove_prefix(1);
        }
        take_digits();
    }
    const double value = double_of(literal);
    if (std::isinf(value)) throw Failure(FailureNumber::overflow);
    return negative ? -value : value;
}

}  // namespace kovrel
