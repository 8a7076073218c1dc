// The library in the interface definition language.
#pragma once

#include <string>

#include "automation/class_info.h"

namespace kovrel {

/// What widl compiles into the type library again, but for names that are not ASCII.
[[nodiscard]] std::wstring idl_text(const LibraryInfo& library);

}  // namespace kovrel
