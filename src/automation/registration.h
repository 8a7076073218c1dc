// Registration: the registry keys of the library, written and removed.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "automation/class_info.h"

namespace kovrel {

/// The platform's own marshaler for interfaces that a type library describes.
inline constexpr std::wstring_view type_library_marshaler =
    L"{00020424-0000-0000-C000-000000000046}";
/// That for interfaces that are called through IDispatch alone, as events are.
inline constexpr std::wstring_view dispatch_marshaler = L"{00020420-0000-0000-C000-000000000046}";

/// An identifier as the registry spells it, in braces.
[[nodiscard]] std::wstring text_of_guid(const GUID& id);

/// The type library's version as the registry spells it: "1.0".
[[nodiscard]] std::wstring version_of(const LibraryInfo& library);

/// The part of the registry that a registration goes to.
enum class RegistrationScope : std::uint8_t {
    machine,  ///< all users; needs the right to write there
    user,     ///< the current user
};

/// Registers every class, interface and the type library of a module of this bitness.
/// Failure 70 when the scope may not be written to.
void register_library(const LibraryInfo& library, const std::wstring& module_path,
                      RegistrationScope scope);

/// Removes what register_library wrote in that scope, and nothing else. What both bitnesses share
/// (ProgIDs, the type library's name) stays as long as the other one is registered.
void unregister_library(const LibraryInfo& library, RegistrationScope scope);

/// Registers for the machine when that is permitted, else for the current user.
void register_library(const LibraryInfo& library, const std::wstring& module_path);

}  // namespace kovrel
