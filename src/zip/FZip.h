// Module fZip: the archive procedure behind clsFZip.GenerarZip.
#pragma once

#include <span>
#include <string>

namespace kovrel::FZip {

/// Packs a list of files into an archive through zip32.dll and returns its path; empty when there
/// is no archive afterwards. The user is told about wrong arguments, an existing archive and an
/// unusable DLL, but not about the DLL's result.
///
/// `file_name` is the archive's name in `folder`; without a folder, relative to the current one.
/// `title` is that of the boxes, but for those of a missing name and of a failure.
[[nodiscard]] std::wstring GenerarZipA(const std::wstring& file_name, const std::wstring& folder,
                                       std::span<const std::wstring> names,
                                       const std::wstring& title);

}  // namespace kovrel::FZip
