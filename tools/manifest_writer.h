// The side-by-side manifest that lets an application use the library without registering it.
#pragma once

#include <string>

#include "automation/class_info.h"

namespace kovrel {

/// The manifest of a module of one bitness. Its assembly is named <library>.Assembly, and its file
/// has to be named so too, with .manifest behind: Windows would look for the manifest of an
/// assembly named as the DLL inside the DLL alone.
[[nodiscard]] std::wstring manifest_text(const LibraryInfo& library, bool is_64_bit);

}  // namespace kovrel
