// Texts in UTF-16, as the system has them, in UTF-8, and in its 8-bit code page, for its functions
// that take no other.
#pragma once

#include <string>
#include <string_view>

namespace kovrel {

/// The text in the system's 8-bit code page; a character that the page lacks becomes "?", never one
/// that resembles it: a name with such a character is no other file's. Characters of code 0 are
/// kept.
[[nodiscard]] std::string to_ansi(std::wstring_view text);

/// The text that bytes of the system's 8-bit code page stand for.
[[nodiscard]] std::wstring from_ansi(std::string_view bytes);

[[nodiscard]] std::string to_utf8(std::wstring_view text);
[[nodiscard]] std::wstring from_utf8(std::string_view bytes);

}  // namespace kovrel
