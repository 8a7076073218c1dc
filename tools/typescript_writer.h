// The declarations for TypeScript, in which scripts for Windows can be written.
#pragma once

#include <string>

#include "automation/class_info.h"

namespace kovrel {

/// What scripts can call, as TypeScript 4.3 or later.
[[nodiscard]] std::wstring typescript_text(const LibraryInfo& library);

}  // namespace kovrel
