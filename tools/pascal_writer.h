// The unit through which Delphi and Lazarus call the library early-bound.
#pragma once

#include <string>

#include "automation/class_info.h"

namespace kovrel {

/// Everything that the type library publishes, as a unit for Delphi 2009 or later and Free
/// Pascal 3.
[[nodiscard]] std::wstring pascal_text(const LibraryInfo& library);

}  // namespace kovrel
