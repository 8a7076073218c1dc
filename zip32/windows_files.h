// What the sources for Windows share.
#pragma once

#include <windows.h>

#include <string>

#include "file_access.h"

namespace kovrel::zip {

inline constexpr DWORD share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

[[nodiscard]] inline Moment moment_of(const FILETIME& time) noexcept {
    return Moment{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

[[nodiscard]] inline FILETIME file_time_of(Moment moment) noexcept {
    return {static_cast<DWORD>(moment), static_cast<DWORD>(moment >> 32)};
}

[[nodiscard]] inline HANDLE as_handle(const OpenFile& file) {
    return reinterpret_cast<HANDLE>(file.handle());
}

/// CreateFileW without security attributes and template.
[[nodiscard]] OpenFile open_file(const std::string& path, DWORD access, DWORD share,
                                 DWORD disposition, DWORD flags);

[[nodiscard]] std::wstring full_path(const std::wstring& path);

/// The path as the system's functions take it: past the classic limit, with the prefix "\\?\".
[[nodiscard]] std::wstring system_path(const std::string& path);

}  // namespace kovrel::zip
