// INI files through the system's 8-bit functions. The arguments are texts of the system code page
// (see services/text_encoding.h), read up to their first character of code 0.
#pragma once

#include <string>
#include <string_view>

namespace kovrel {

/// The value of a key, cut to 254 bytes; `default_text` itself where the system gives back nothing
/// (it copies a default into the answer, so that one comes back through the code page too).
[[nodiscard]] std::wstring read_ini_value(const std::string& file, const std::string& section,
                                          const std::string& key, const std::wstring& default_text);

/// A write that fails (a read-only file, a missing folder) is lost silently.
void write_ini_value(const std::string& file, const std::string& section, const std::string& key,
                     const std::string& value) noexcept;

void delete_ini_key(const std::string& file, const std::string& section,
                    const std::string& key) noexcept;
void delete_ini_section(const std::string& file, const std::string& section) noexcept;

}  // namespace kovrel
