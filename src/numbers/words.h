// Numbers and euro amounts in Spanish words.
//
// The conversion has three steps that call each other: a text with numbers mixed in, one whole
// number with its unit, and one group of three digits.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "runtime/failure.h"
#include "runtime/regional.h"

namespace kovrel {

/// The name of a unit after exactly one, and after any other number; either may be empty.
struct UnitNames {
    std::wstring_view one;
    std::wstring_view other;
};

/// What a conversion needs besides its text.
struct WordsContext {
    const Regional& regional;
    /// Called with a failure inside any step, which then yields an empty text that its caller uses.
    /// Memory exhaustion arrives as failure 7.
    std::function<void(const Failure&)> on_failure;
};

/// A text with its numbers in words; tokens (the pieces between single blanks) that are not
/// numbers are copied. Decimals are read as the digits written, as a number of sub-units: 3,5 has
/// five of them, 3,50 fifty. A negative number is rounded to a whole one.
[[nodiscard]] std::wstring text_in_words(std::wstring_view text, UnitNames unit, UnitNames subunit,
                                         const WordsContext& context);

/// One number, rounded to a whole one and without its sign, in words and with its unit. "?" alone
/// where it has more than 41 groups of three digits (the scale ends with vigintillions).
[[nodiscard]] std::wstring number_in_words(std::wstring_view text, UnitNames unit,
                                           const WordsContext& context);

/// One group of three digits in words; nothing for zero. A longer number is read as in
/// number_in_words but without the unit, whose names only decide between "un" and "uno".
[[nodiscard]] std::wstring group_in_words(std::wstring_view text, UnitNames unit,
                                          const WordsContext& context);

/// An amount in euros and cents, in capital letters: -12.75 is MENOS TRECE EUROS.
/// An infinity or a NaN is an overflow (failure 6), thrown and not reported to the context.
[[nodiscard]] std::wstring euros_in_words(double amount, const WordsContext& context);

}  // namespace kovrel
