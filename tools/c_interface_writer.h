// The side of the header that C sees: tables of functions, and macros that call them.
#pragma once

#include <string>

#include "automation/class_info.h"

namespace kovrel {

/// What stands in the header for C, and for C++ with CINTERFACE.
[[nodiscard]] std::wstring c_interface_text(const LibraryInfo& library);

}  // namespace kovrel
