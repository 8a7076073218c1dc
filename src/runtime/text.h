// Text operations that several subsystems share.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace kovrel {

/// True for the ten ASCII digits, and nothing else.
[[nodiscard]] constexpr bool is_digit(wchar_t character) noexcept {
    return character >= L'0' && character <= L'9';
}

/// The pieces one after the other.
[[nodiscard]] std::wstring concat(std::initializer_list<std::wstring_view> pieces);

/// A whole number in decimal digits, with a "-" in front when negative.
[[nodiscard]] std::wstring decimal_text(std::int64_t number);

/// The digits, padded with zeros in front to a width.
[[nodiscard]] std::wstring with_leading_zeros(std::wstring digits, std::size_t width);

/// The text without the blanks (character 32 only) at its beginning, or at both ends.
[[nodiscard]] std::wstring_view trim_left(std::wstring_view text) noexcept;
[[nodiscard]] std::wstring_view trim(std::wstring_view text) noexcept;

/// The capital of an ASCII or Latin-1 letter, enough for the library's own names and words; any
/// other character is returned unchanged. For users' texts see Regional::capitals.
[[nodiscard]] constexpr wchar_t to_upper(wchar_t character) noexcept {
    const auto code = static_cast<unsigned>(character);
    const bool small =
        (code >= 0x61 && code <= 0x7A) || (code >= 0xE0 && code <= 0xFE && code != 0xF7);
    return static_cast<wchar_t>(small ? code - 0x20 : code == 0xFF ? 0x178 : code);
}
[[nodiscard]] std::wstring to_upper(std::wstring_view text);
void make_upper(std::wstring& text) noexcept;

/// True when the two texts differ at most in the case of their letters (see to_upper).
[[nodiscard]] bool equal_without_case(std::wstring_view left, std::wstring_view right) noexcept;

/// Whether a text contains another, or one that differs at most in the case of its letters.
[[nodiscard]] bool contains_without_case(std::wstring_view text,
                                         std::wstring_view searched) noexcept;

/// The pieces between separators; consecutive separators give empty pieces, an empty text none.
[[nodiscard]] std::vector<std::wstring_view> split(std::wstring_view text, wchar_t separator);

/// Up to `count` characters from the 1-based `position`; fewer, or none, past the end.
[[nodiscard]] std::wstring_view middle(std::wstring_view text, std::size_t position,
                                       std::size_t count = std::wstring_view::npos) noexcept;

}  // namespace kovrel
