// INI files through the system's 8-bit functions. The arguments are texts of the system code page
// (see services/text_encoding.h), read up to their first character of code 0.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kovrel {

/// The size of the buffer that values are read into: longer ones come back cut to one character
/// less, which the system keeps for the ending zero.
inline constexpr std::size_t ini_buffer_size = 255;

/// The first `count` characters of the buffer, or the default where the system stored none.
[[nodiscard]] inline std::wstring ini_value(std::wstring_view buffer, std::size_t count,
                                            std::wstring_view default_text) {
    return std::wstring(count != 0 ? buffer.substr(0, count) : default_text);
}

/// The value of a key, cut to 254 bytes; `default_text` itself where the system gives back nothing
/// (it copies the default into its buffer, so the default passes through the code page too).
[[nodiscard]] std::wstring read_ini_value(const std::string& file, const std::string& section,
                                          const std::string& key, const std::wstring& default_text);

/// Stores a value. A null value deletes the key, a null key the section. A failed write (a
/// read-only file, a missing folder) is ignored.
void write_ini(const std::string& file, const std::string& section, const char* key,
               const char* value) noexcept;

}  // namespace kovrel
