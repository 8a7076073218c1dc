// Picture objects loaded from and saved to files, and the names of temporary files for them.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <string>

#include "automation/com_ptr.h"

namespace kovrel {

/// A path in the library's own folder. Two made within one millisecond are equal.
[[nodiscard]] std::wstring temporary_picture_file();

/// Bitmaps, GIF, JPEG, icons and metafiles. Failure 481 for anything else.
[[nodiscard]] ComPtr<IPictureDisp> load_picture(const std::wstring& path);

/// Failure 91 for no picture, 481 for one without content.
void save_picture(const ComPtr<IPictureDisp>& picture, const std::wstring& path);

}  // namespace kovrel
