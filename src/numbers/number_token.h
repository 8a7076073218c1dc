// One token of a text, read as a number in the two ways that the number words compare.
#pragma once

#include <string>
#include <string_view>

#include "runtime/regional.h"

namespace kovrel {

/// True for ASCII digits alone, and for an empty text.
[[nodiscard]] bool is_digits(std::wstring_view text) noexcept;

/// The digits without zeros in front; the last digit stays.
[[nodiscard]] std::wstring_view without_leading_zeros(std::wstring_view digits) noexcept;

/// The value of a token. It keeps a view of the token's text. Failure 6 (overflow) for a number
/// past the range of a double.
class NumberToken {
 public:
    NumberToken(std::wstring_view token, const Regional& regional) {
        if (!read_short(token, regional.settings().decimal_separator)) read(token, regional);
    }
    NumberToken(const NumberToken&) = delete;
    NumberToken& operator=(const NumberToken&) = delete;

    [[nodiscard]] bool is_number() const { return is_number_; }
    [[nodiscard]] bool is_negative() const { return is_negative_; }
    /// The whole part by the reading that knows no regional settings, as text, where the
    /// regional value lies above it; else empty.
    [[nodiscard]] std::wstring_view whole_part() const { return whole_part_; }

 private:
    bool read_short(std::wstring_view token, wchar_t separator);
    void read(std::wstring_view token, const Regional& regional);

    bool is_number_ = false;
    bool is_negative_ = false;
    std::wstring_view whole_part_;
    std::wstring storage_;
};

}  // namespace kovrel
