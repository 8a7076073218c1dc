// Conversions to the integer types of the public members, with their failures.
#pragma once

#include <cstdint>
#include <string_view>

#include "runtime/regional.h"

namespace kovrel {

/// The nearest integer, halves to the even one. Failure 6 (overflow) when it lies outside the type
/// or the value is no number.
[[nodiscard]] std::int32_t round_to_int32(double value);
[[nodiscard]] std::int16_t round_to_int16(double value);
[[nodiscard]] std::uint8_t round_to_uint8(double value);

/// The integer that a text stands for by the user's settings, rounded as above. Failure 13 (type
/// mismatch) when the text is not a number, 6 (overflow) when it lies outside the type.
[[nodiscard]] std::int32_t to_int32(std::wstring_view text, const Regional& regional);
[[nodiscard]] std::int16_t to_int16(std::wstring_view text, const Regional& regional);
[[nodiscard]] std::uint8_t to_uint8(std::wstring_view text, const Regional& regional);

}  // namespace kovrel
