#include "files/ini_file.h"

#include <windows.h>

#include <array>

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

void write_ini(const std::string& file, const std::string& section, const char* key,
               const char* value) noexcept {
    WritePrivateProfileStringA(section.c_str(), key, value, file.c_str());
}

}  // namespace kovrel
