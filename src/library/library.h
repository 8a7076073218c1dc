// The library as a whole: its name and everything that it publishes.
#pragma once

#include "automation/class_info.h"

namespace kovrel {

/// The type library's name and the first part of every ProgID.
inline constexpr const wchar_t* library_name = L"Kovrel";

extern const LibraryInfo library;

}  // namespace kovrel
