// What the two sources for Windows behind file_access.h share.
#pragma once

#include <windows.h>

#include <string>

#include "file_access.h"

namespace kovrel::zip {

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
