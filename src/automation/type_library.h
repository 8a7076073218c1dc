// The type library: written from the declarations when the library is built, and read back from the
// module's own resources when a host asks for it.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>

#include "automation/class_info.h"

namespace kovrel {

/// Writes the library's description to a file. A platform failure is thrown as its HRESULT in a
/// Failure.
void write_type_library(const LibraryInfo& library, const std::wstring& path, SYSKIND system);

/// The description of a class or interface, by its identifier, from the module's resource.
HRESULT own_type_info(const GUID& id, ITypeInfo** result) noexcept;

}  // namespace kovrel
