// Numbers as texts: the number patterns, the default conversion of a number to text, and the
// readings that do not depend on the platform. Nothing here uses the C library's locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/decimal_digits.h"
#include "runtime/regional.h"

namespace kovrel {

/// A number pattern: the least number of digits before the decimal separator and the exact number
/// after it. No pattern in use writes group separators.
struct NumberPattern {
    int whole_digits = 1;
    int decimals = 0;
};

namespace patterns {
inline constexpr NumberPattern whole{1, 0};          ///< "0" and "#0"
inline constexpr NumberPattern two_decimals{1, 2};   ///< "0.00"
inline constexpr NumberPattern four_decimals{1, 4};  ///< "0.0000"
inline constexpr NumberPattern eight_digits{8, 0};   ///< "00000000"
inline constexpr NumberPattern no_zero{0, 0};        ///< "###": nothing at all for zero
}  // namespace patterns

/// The number in the pattern. It is taken to 15 significant decimal digits and then rounded, half
/// away from zero, in decimal: 1.005 with two decimals is 1.01. A number that rounds to zero
/// carries no sign, as the formatters that the pattern notation comes from write it.
/// An infinity or a NaN is an overflow (failure 6).
[[nodiscard]] std::wstring format_number(double value, NumberPattern pattern,
                                         wchar_t decimal_separator);

/// The number that a text stands for, in the pattern. Digits written out are kept however many
/// they are (they never go through a double); a text that is not a number comes back unchanged.
[[nodiscard]] std::wstring format_number(std::wstring_view text, NumberPattern pattern,
                                         const Regional& regional);

/// The number without its sign times ten to the power `decimals` (0 to 4), rounded to a whole one
/// as format_number rounds; absent where that takes decimal arithmetic: near a half, from 1e12 on,
/// and for what is no number. Most amounts have one.
[[nodiscard]] std::optional<std::uint64_t> quickly_rounded(double value, int decimals) noexcept;

/// The default conversion of a number to text: up to 15 significant digits, the regional decimal
/// separator, and an exponent of at least two digits where the number written out would need more
/// than 15 digits before or after the separator (1E+15, 3,33333333333333E-02).
/// An infinity or a NaN is an overflow (failure 6).
[[nodiscard]] std::wstring number_to_text(double value, wchar_t decimal_separator);

/// A number of any count of digits in the same way, written out up to `most_digits` before and
/// after the separator.
[[nodiscard]] std::wstring number_to_text(DecimalDigits number, std::ptrdiff_t most_digits,
                                          wchar_t decimal_separator);

/// The value of a text that is nothing but an optional sign, digits and at most one decimal
/// separator; absent for any other text, infinite past the range of a double.
[[nodiscard]] std::optional<double> plain_number(std::wstring_view text, wchar_t decimal_separator);

/// The number that a text begins with, whatever the regional settings: only "." is a decimal
/// point, the exponent letter is E or D, &H and &O begin hexadecimal and octal whole numbers
/// (16 or 32 bits, signed unless "&" follows), blanks, tabs and line ends are passed over
/// anywhere. 0 when the text begins with no number; past the range of a double, or of 32 bits
/// after a prefix, an overflow (failure 6).
[[nodiscard]] double leading_number(std::wstring_view text);

}  // namespace kovrel
