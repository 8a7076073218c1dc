#include "runtime/decimal_digits.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <vector>

#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {

void round_to(DecimalDigits& number, std::ptrdiff_t count) {
    const auto size = static_cast<std::ptrdiff_t>(number.digits.size());
    if (count >= size) return;
    if (count < 0) {
        number.digits.clear();
        return;
    }
    const auto kept = static_cast<std::size_t>(count);
    const bool up = number.digits[kept] >= '5';
    number.digits.resize(kept);
    if (!up) return;
    auto place = number.digits.rbegin();
    for (; place != number.digits.rend() && *place == '9'; ++place) *place = '0';
    if (place != number.digits.rend()) {
        ++*place;
    } else {
        number.digits.insert(number.digits.begin(), '1');
        ++number.point;
    }
}

/// A binary fraction of n places has n decimals. Computed here because std::to_chars would add 280
/// KB of tables to the library, and printf differs between C libraries.
DecimalDigits exact_digits(double value) {
    if (!std::isfinite(value)) throw Failure(FailureNumber::overflow);
    constexpr int mantissa_bits = std::numeric_limits<double>::digits;
    int exponent = 0;
    const double fraction = std::frexp(std::abs(value), &exponent);
    auto mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, mantissa_bits));
    exponent -= mantissa_bits;
    for (; exponent < 0 && mantissa != 0 && mantissa % 2 == 0; ++exponent) mantissa /= 2;

    // Groups of nine digits, the lowest first.
    constexpr std::uint64_t group = 1'000'000'000;
    constexpr int group_digits = 9;
    std::vector<std::uint64_t> groups;
    for (; mantissa != 0; mantissa /= group) groups.push_back(mantissa % group);
    const auto multiply = [&groups](std::uint64_t factor) {
        std::uint64_t carry = 0;
        for (std::uint64_t& digits : groups) {
            carry += digits * factor;
            digits = carry % group;
            carry /= group;
        }
        if (carry != 0) groups.push_back(carry);
    };
    const std::uint64_t base = exponent < 0 ? 5 : 2;
    for (int left = std::abs(exponent); left > 0;) {
        std::uint64_t factor = 1;
        for (; left > 0 && factor < group / base; --left) factor *= base;
        multiply(factor);
    }

    DecimalDigits number;
    number.negative = std::signbit(value);
    std::reverse(groups.begin(), groups.end());
    for (const std::uint64_t digits : groups) {
        const std::string text = std::to_string(digits);
        if (!number.digits.empty()) number.digits.append(group_digits - text.size(), '0');
        number.digits += text;
    }
    if (number.digits.empty()) return {};
    number.point = static_cast<std::ptrdiff_t>(number.digits.size()) + std::min(exponent, 0);
    return number;
}

std::optional<DecimalDigits> plain_decimal(std::wstring_view text, wchar_t decimal_separator,
                                           std::optional<wchar_t> group_separator) {
    DecimalDigits number;
    if (!text.empty() && (text.front() == L'-' || text.front() == L'+')) {
        number.negative = text.front() == L'-';
        text.remove_prefix(1);
    }
    number.digits.reserve(text.size());
    bool past_separator = false;
    for (const wchar_t character : text) {
        if (is_digit(character)) {
            number.digits.push_back(static_cast<char>(character));
            if (!past_separator) ++number.point;
        } else if (character == decimal_separator && !past_separator) {
            past_separator = true;
        } else if (character != group_separator || past_separator) {
            return std::nullopt;
        }
    }
    if (number.digits.empty()) return std::nullopt;
    return number;
}

double double_of(std::string_view text) {
    constexpr long long beyond_every_number = 1'000'000'000;
    const auto mark = std::min(text.find('e'), text.size());
    const std::string_view mantissa = text.substr(0, mark);
    long long exponent = 0;
    if (mark < text.size()) {
        exponent = std::strtoll(std::string(text.substr(mark + 1)).c_str(), nullptr, 10);
        exponent = std::clamp(exponent, -beyond_every_number, beyond_every_number);
    }
    // Written with an exponent instead of a decimal point, which atof reads by the C locale.
    const auto point = mantissa.find('.');
    std::string digits(mantissa.substr(0, point));
    if (point != std::string_view::npos) {
        digits.append(mantissa.substr(point + 1));
        exponent -= static_cast<long long>(mantissa.size() - point - 1);
    }
    digits.append("e").append(std::to_string(exponent));
    // atof comes with the system's C library; std::from_chars would add 140 KB.
    return std::atof(digits.c_str());
}

}  // namespace kovrel
