// Functions of DLLs that are loaded at run time.
#pragma once

#include <windows.h>

#include <string>

#include "runtime/failure.h"

namespace kovrel {

/// A failure whose description names the file.
[[nodiscard]] Failure failure_over(FailureNumber number, const std::wstring& file);

/// The address of a DLL's function. Failure 453, which names both, when the DLL lacks it.
[[nodiscard]] void* entry_point(HMODULE module, const std::wstring& file, const char* name);

/// The address of a system DLL's function. The DLL is loaded from the system's folder only, and
/// stays loaded. Failure 48 when it cannot be loaded.
[[nodiscard]] void* system_entry_point(const wchar_t* file, const char* name);

/// A function that only few members need: its DLL is loaded with the first call instead of with the
/// library, which would take many times longer to load.
template <class Function>
[[nodiscard]] Function* system_function(const wchar_t* file, const char* name) {
    return reinterpret_cast<Function*>(system_entry_point(file, name));
}

}  // namespace kovrel
