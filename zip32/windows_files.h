// What the two sources behind file_access.h share on Windows.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace kovrel::zip {

inline constexpr std::intptr_t no_handle = -1;
/// One call moves at most this much, so that a count always fits a DWORD.
inline constexpr std::size_t largest_move = std::size_t{1} << 30;

[[nodiscard]] inline HANDLE as_handle(std::intptr_t value) {
    return reinterpret_cast<HANDLE>(value);
}

[[nodiscard]] std::wstring full_path(const std::wstring& path);

/// The path as the file functions take it; past the classic limit, in the form without limit.
[[nodiscard]] std::wstring system_path(const std::string& path);

/// A path in the form without limit, as users write it.
[[nodiscard]] std::wstring without_limit_prefix(const std::wstring& path);

}  // namespace kovrel::zip
