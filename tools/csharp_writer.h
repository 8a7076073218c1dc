// The source through which C# programs call the library early-bound.
#pragma once

#include <string>

#include "automation/class_info.h"

namespace kovrel {

/// Everything that the type library publishes, as C# 4 or later.
[[nodiscard]] std::wstring csharp_text(const LibraryInfo& library);

}  // namespace kovrel
