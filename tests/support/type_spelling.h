// A type library's types and values as C spells them.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>

namespace kovrel::test {

/// Whether a type is an interface with vtable entries and calls by number.
bool is_dual(ITypeInfo* info);

/// A type as C spells it, with its pointers.
std::wstring spelled(ITypeInfo* info, const TYPEDESC& type);

/// A default: a text in quotation marks, VARIANT_TRUE or VARIANT_FALSE, or a number.
std::wstring spelled(const VARIANT& value);

}  // namespace kovrel::test
