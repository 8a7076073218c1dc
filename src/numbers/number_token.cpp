#include "numbers/number_token.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "runtime/number_format.h"
#include "runtime/text.h"

namespace kovrel {

bool is_digits(std::wstring_view text) noexcept {
    for (const wchar_t character : text) {
        if (!is_digit(character)) return false;
    }
    return true;
}

std::wstring_view without_leading_zeros(std::wstring_view digits) noexcept {
    return digits.substr(std::min(digits.find_first_not_of(L'0'), digits.size() - 1));
}

/// Fast path for a short positive number: both readings have the same whole part, and the value
/// lies above it if a decimal is not zero. False for any other token.
bool NumberToken::read_short(std::wstring_view token, wchar_t separator) {
    constexpr std::size_t exact_digits = 15;
    if (token.size() > exact_digits) return false;
    std::size_t whole_digits = 0;
    while (whole_digits < token.size() && is_digit(token[whole_digits])) ++whole_digits;
    if (whole_digits == 0) return false;
    if (whole_digits < token.size()) {
        const auto decimals = token.substr(whole_digits + 1);
        if (token[whole_digits] != separator || !is_digits(decimals)) return false;
        if (decimals.find_first_not_of(L'0') != std::wstring_view::npos) {
            whole_part_ = without_leading_zeros(token.substr(0, whole_digits));
        }
    }
    is_number_ = true;
    return true;
}

void NumberToken::read(std::wstring_view token, const Regional& regional) {
    const auto separator = regional.settings().decimal_separator;
    auto value = plain_number(token, separator);
    if (!value) value = regional.number(token);
    if (!value) return;
    is_number_ = true;
    is_negative_ = *value < 0;
    // Past the range of a double decimals make no difference.
    if (std::isinf(*value)) return;
    const double whole = std::floor(leading_number(token));
    if (*value > whole) {
        storage_ = number_to_text(whole, separator);
        // A token equal to the text of its whole part has no decimals, whatever binary rounding
        // says.
        if (storage_ != token) whole_part_ = storage_;
    }
}

}  // namespace kovrel
