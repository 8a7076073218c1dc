// Numbers as decimal digits, however many they are, out of doubles and texts.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kovrel {

/// A decimal number: 0.digits times ten to the power `point`.
struct DecimalDigits {
    bool negative = false;
    std::string digits;
    std::ptrdiff_t point = 0;
};

/// Cuts to `count` digits, rounding half away from zero.
void round_to(DecimalDigits& number, std::ptrdiff_t count);

/// All decimal digits of a number, exactly; none for zero. An infinity or a NaN is an overflow
/// (failure 6).
[[nodiscard]] DecimalDigits exact_digits(double value);

/// Reads a sign, digits and at most one decimal separator, skipping group separators where one is
/// given; absent for anything else.
[[nodiscard]] std::optional<DecimalDigits> plain_decimal(
    std::wstring_view text, wchar_t decimal_separator,
    std::optional<wchar_t> group_separator = std::nullopt);

/// The value of an ASCII number text in the notation of the language's own literals; infinite past
/// the range of a double.
[[nodiscard]] double double_of(std::string_view text);

}  // namespace kovrel
