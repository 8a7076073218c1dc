#include "windows_files.h"

#include <string_view>

#include "services/text_encoding.h"

namespace kovrel::zip {
namespace {

constexpr std::wstring_view unlimited = LR"(\\?\)";
constexpr std::wstring_view unlimited_server = LR"(\\?\UNC\)";
constexpr std::wstring_view server = LR"(\\)";

}  // namespace

std::wstring full_path(const std::wstring& path) {
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

std::wstring system_path(const std::string& path) {
    std::wstring wide = from_utf8(path);
    const DWORD needed = GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
    if (needed < MAX_PATH - 12 || wide.starts_with(unlimited)) {
        return wide;
    }
    const std::wstring full = full_path(wide);
    return full.starts_with(server) ? std::wstring(unlimited_server).append(full, server.size())
                                    : std::wstring(unlimited).append(full);
}

std::wstring without_limit_prefix(const std::wstring& path) {
    if (path.starts_with(unlimited_server)) {
        return std::wstring(server).append(path, unlimited_server.size());
    }
    return path.starts_with(unlimited) ? path.substr(unlimited.size()) : path;
}

}  // namespace kovrel::zip
