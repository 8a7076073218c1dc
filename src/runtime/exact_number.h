// Numbers as texts that lose nothing: a point as decimal separator, no group separators, no zeros
// that can be left out, and an exponent (1E+300) where it would take too many digits without.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/regional.h"

namespace kovrel {

/// With the fewest digits that are read back as the same number. An infinity or a NaN is an
/// overflow (failure 6).
[[nodiscard]] std::wstring exact_number(double value);
[[nodiscard]] std::wstring exact_number(float value);

/// A whole number of 96 bits with the decimal separator `scale` digits from its end, as the
/// platform's decimal type has it.
struct ScaledInteger {
    std::uint32_t high = 0;
    std::uint64_t low = 0;
    unsigned scale = 0;
    bool negative = false;
};
[[nodiscard]] std::wstring exact_number(const ScaledInteger& value);

/// The number that a text stands for by the user's settings, with all the digits written; absent
/// for a text that is not a number. One past the range of a double is an overflow (failure 6) where
/// it is not written out.
[[nodiscard]] std::optional<std::wstring> exact_number(std::wstring_view text,
                                                       const Regional& regional);

}  // namespace kovrel
