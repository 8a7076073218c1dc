// The archive procedure that stands behind the public class.
#pragma once

#include <string>

#include "zip/ZIPnames.h"

namespace kovrel::FZip {

/// Packs a list of files into an archive, through zip32.dll; its path, or empty when there is none
/// afterwards. What is wrong with the arguments, an archive that is there already and a DLL that
/// cannot be used are told to the user; what the DLL makes of the files is not.
///
/// `file_name` is the archive's name in `folder`; without a folder, relative to the current one.
/// `title` is that of the boxes, but for those of a missing name and of a failure.
[[nodiscard]] std::wstring GenerarZipA(const std::wstring& file_name, const std::wstring& folder,
                                       const ZIPnames& names, const std::wstring& title);

}  // namespace kovrel::FZip
