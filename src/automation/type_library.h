// The type library that the module carries among its resources, for hosts that ask for it.
#pragma once

#include <windows.h>
#include <oleauto.h>

namespace kovrel {

/// The description of a class or interface, by its identifier, from the module's resource.
HRESULT own_type_info(const GUID& id, ITypeInfo** result) noexcept;

}  // namespace kovrel
