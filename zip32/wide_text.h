// UTF-8 and the system's UTF-16 (Windows only).
#pragma once

#include <string>
#include <string_view>

namespace kovrel::zip {

[[nodiscard]] std::wstring utf16_from_utf8(std::string_view text);
[[nodiscard]] std::string utf8_from_utf16(std::wstring_view text);
/// From the user's ANSI code page, in which callers of zip32.dll hand over their texts.
[[nodiscard]] std::string utf8_from_ansi(std::string_view text);
/// To the ANSI code page, with "?" for what it does not have: never a letter that resembles it.
[[nodiscard]] std::string ansi_from_utf8(std::string_view text);

}  // namespace kovrel::zip
