// The type library as a file, written from the declarations when the library is built. An IDL
// compiler would not do: it takes ASCII identifiers only.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>

#include "automation/class_info.h"

namespace kovrel {

/// Writes the library's description to a file. A platform failure is thrown as its HRESULT in a
/// Failure.
void write_type_library(const LibraryInfo& library, const std::wstring& path, SYSKIND system);

}  // namespace kovrel
