// The header through which C++ programs call the library early-bound.
#pragma once

#include <string>

#include "automation/class_info.h"

namespace kovrel {

/// Everything that the type library publishes, as C++11 for both Visual C++ and mingw-w64.
[[nodiscard]] std::wstring header_text(const LibraryInfo& library);

}  // namespace kovrel
