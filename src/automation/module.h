// The module that this code was linked into: the DLL, or a test program.
#pragma once

#include <windows.h>

#include <string>

namespace kovrel {

[[nodiscard]] HMODULE own_module() noexcept;

/// Full path of the module's file, of any length.
[[nodiscard]] std::wstring own_module_path();
/// Its folder, with a backslash at the end.
[[nodiscard]] std::wstring own_module_folder();

}  // namespace kovrel
