// What users and logs read about archives.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/notice.h"
#include "zip32/entry_state.h"

namespace kovrel {

/// Why an entry was not dealt with as it was asked, or was left as it is; empty for one that was
/// packed, is whole or was taken out.
[[nodiscard]] std::wstring_view state_text(zip::EntryState state) noexcept;

/// A CRC-32: eight hexadecimal digits in capitals.
[[nodiscard]] std::wstring checksum_text(std::uint32_t checksum);

/// How far an operation is: "Extrayendo datos/a.txt (12 de 340 KB)". `verb` says what it does; the
/// counts are bytes, told in KB, from 10 MB on in MB.
[[nodiscard]] std::wstring progress_text(std::wstring_view verb, std::wstring_view name,
                                         std::uint64_t done, std::uint64_t total);

/// The question whether an existing file is replaced.
[[nodiscard]] Notice may_be_replaced(std::wstring title, std::wstring_view path);

/// The texts between "|", which no file's name contains; empty ones are left out.
[[nodiscard]] std::vector<std::wstring> split_list(std::wstring_view text);

}  // namespace kovrel
