// What the literals of all dialects are made of: characters, bytes, and the refusal of what a
// database cannot hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kovrel {

/// Fails as an invalid argument (5), with the reason after the number's description.
[[noreturn]] void refuse_literal(std::wstring_view reason);

/// Takes the next character from a text. Failure 5 for half of a surrogate pair, which is no
/// character in any encoding that databases store.
[[nodiscard]] char32_t take_code_point(std::wstring_view& text);

/// Adds a character to a text of UTF-16 code units.
void append_code_point(std::wstring& text, char32_t code);

/// The bytes of a text in UTF-8. Failure 5 as for take_code_point.
[[nodiscard]] std::vector<std::uint8_t> utf8_of(std::wstring_view text);

/// Two hexadecimal digits a byte, in capitals.
void append_hexadecimal(std::wstring& text, std::uint32_t number, int digits);
[[nodiscard]] std::wstring hexadecimal(const std::uint8_t* bytes, std::size_t count);

}  // namespace kovrel
