// Pictures in files: the library's own temporary files, and picture objects loaded from and saved
// to a file.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <string>

#include "automation/com_ptr.h"

namespace kovrel {

/// A fresh name in the library's own folder. Two names made within one tick of the clock are
/// equal.
[[nodiscard]] std::wstring temporary_picture_file();

/// Bitmaps, GIF, JPEG, icons and metafiles. Failure 481 for a content that is none of them.
[[nodiscard]] ComPtr<IPictureDisp> load_picture(const std::wstring& path);

/// Failure 91 for no picture, 481 for one without content.
void save_picture(const ComPtr<IPictureDisp>& picture, const std::wstring& path);

}  // namespace kovrel
