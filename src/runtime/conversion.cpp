#include "runtime/conversion.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

template <class Integer>
Integer round_to(double value) {
    using Limits = std::numeric_limits<Integer>;
    const double rounded = std::nearbyint(value);
    // Negated so that NaN fails.
    if (!(rounded >= Limits::min() && rounded <= Limits::max())) {
        throw Failure(FailureNumber::overflow);
    }
    return static_cast<Integer>(rounded);
}

// Fast path for the most frequent texts: up to nine digits mean the same under any settings and fit
// 32 bits.
bool is_short_digit_run(std::wstring_view text) {
    return !text.empty() && text.size() <= 9 && std::all_of(text.begin(), text.end(), is_digit);
}

std::int32_t value_of_digits(std::wstring_view digits) {
    std::int32_t value = 0;
    for (const wchar_t digit : digits) value = value * 10 + (digit - L'0');
    return value;
}

double number_of(std::wstring_view text, const Regional& regional) {
    if (is_short_digit_run(text)) return value_of_digits(text);
    const auto number = regional.number(text);
    if (!number) throw Failure(FailureNumber::type_mismatch);
    return *number;
}

}  // namespace

std::int32_t round_to_int32(double value) {
    return round_to<std::int32_t>(value);
}
std::int16_t round_to_int16(double value) {
    return round_to<std::int16_t>(value);
}
std::uint8_t round_to_uint8(double value) {
    return round_to<std::uint8_t>(value);
}

std::int32_t to_int32(std::wstring_view text, const Regional& regional) {
    if (is_short_digit_run(text)) return value_of_digits(text);
    return round_to_int32(number_of(text, regional));
}

std::int16_t to_int16(std::wstring_view text, const Regional& regional) {
    return round_to_int16(number_of(text, regional));
}

std::uint8_t to_uint8(std::wstring_view text, const Regional& regional) {
    return round_to_uint8(number_of(text, regional));
}

}  // namespace kovrel
