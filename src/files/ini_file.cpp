#include "files/ini_file.h"

#include <windows.h>

#include <array>

#include "files/ini_text.h"
#include "services/text_encoding.h"

namespace kovrel {

std::wstring read_ini_value(const std::string& file, const std::string& section,
                            const std::string& key, const std::wstring& default_text) {
    std::array<char, ini_buffer_size> buffer{};
    const DWORD count =
        GetPrivateProfileStringA(section.c_str(), key.c_str(), to_ansi(default_text).c_str(),
                                 buffer.data(), static_cast<DWORD>(buffer.size()), file.c_str());
    return ini_value(from_ansi({buffer.data(), buffer.size()}), count, default_text);
}

void write_ini_value(const std::string& file, const std::string& section, const std::string& key,
                     const std::string& value) noexcept {
    WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), file.c_str());
}

void delete_ini_key(const std::string& file, const std::string& section,
                    const std::string& key) noexcept {
    WritePrivateProfileStringA(section.c_str(), key.c_str(), nullptr, file.c_str());
}

void delete_ini_section(const std::string& file, const std::string& section) noexcept {
    WritePrivateProfileStringA(section.c_str(), nullptr, nullptr, file.c_str());
}

}  // namespace kovrel
