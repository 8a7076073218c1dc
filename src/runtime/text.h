// Small operations on texts that several subsystems share.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kovrel {

/// True for the ten ASCII digits, and nothing else.
[[nodiscard]] constexpr bool is_digit(wchar_t character) noexcept {
    return character >= L'0' && character <= L'9';
}

/// A whole number in decimal digits, with a "-" in front when negative.
[[nodiscard]] std::wstring decimal_text(std::int64_t number);

/// The text without the blanks (character 32 only) at its beginning, or at both ends.
[[nodiscard]] std::wstring_view trim_left(std::wstring_view text) noexcept;
[[nodiscard]] std::wstring_view trim(std::wstring_view text) noexcept;

/// The capital of a letter of ASCII or Latin-1, which is all that names and words of the library's
/// own need; any other character is its own capital. For users' texts see Regional::capitals.
[[nodiscard]] wchar_t to_upper(wchar_t character) noexcept;
[[nodiscard]] std::wstring to_upper(std::wstring_view text);
void make_upper(std::wstring& text) noexcept;

/// True when the two texts differ at most in the case of their letters (see to_upper).
[[nodiscard]] bool equal_without_case(std::wstring_view left, std::wstring_view right) noexcept;

/// The pieces between separators; consecutive separators give empty pieces, an empty text none.
[[nodiscard]] std::vector<std::wstring_view> split(std::wstring_view text, wchar_t separator);

/// Up to `count` characters from the 1-based `position`; fewer, or none, past the end.
[[nodiscard]] std::wstring_view middle(std::wstring_view text, std::size_t position,
                                       std::size_t count = std::wstring_view::npos) noexcept;

}  // namespace kovrel
