// The file that this code was linked into.
#pragma once

#include <windows.h>

#include <string>

namespace kovrel {

[[nodiscard]] HMODULE own_module() noexcept;

/// Full path of the module's file, however long.
[[nodiscard]] std::wstring own_module_path();

}  // namespace kovrel
