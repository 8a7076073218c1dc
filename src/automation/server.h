// The in-process server: class factories and what the four exported functions do.
#pragma once

#include <windows.h>

#include "automation/class_info.h"

namespace kovrel {

/// The class factory of one of the library's classes.
HRESULT get_class_object(const LibraryInfo& library, REFCLSID class_id, REFIID interface_id,
                         void** result) noexcept;

/// Pins the module until the process ends.
void stay_loaded() noexcept;

/// S_OK when no instance and no lock is left.
[[nodiscard]] HRESULT can_unload_now() noexcept;

HRESULT register_server(const LibraryInfo& library) noexcept;
HRESULT unregister_server(const LibraryInfo& library) noexcept;

}  // namespace kovrel
