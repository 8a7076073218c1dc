// What the writers of declarations for other languages have in common.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "automation/class_info.h"

namespace kovrel {

/// A GUID as C initializes one: 0x..., 0x..., 0x..., and then the last eight bytes in `braces`.
[[nodiscard]] std::wstring initializer(const GUID& id, bool braces);

[[nodiscard]] std::wstring without_braces(const GUID& id);

/// get_, put_ or putref_ for the accessors of a property, which C and C++ know by these names.
[[nodiscard]] std::wstring_view prefix(MemberKind kind);

/// The new value of a property has no name of its own.
[[nodiscard]] const wchar_t* name_of(const ParameterInfo& parameter);

/// A type as C passes a value of it: interfaces are pointers.
[[nodiscard]] std::wstring c_type_name(const TypeRef& type);

/// A default in C's notation.
[[nodiscard]] std::wstring default_text(const VARIANT& value);

/// Direction, default and C type of a parameter: /* [in, out] */ BSTR* name.
[[nodiscard]] std::wstring c_parameter_text(const ParameterInfo& parameter);

/// A name for compilers that take ASCII alone: ñ becomes ny, and accents are left out. Failure for
/// other letters.
[[nodiscard]] std::wstring ascii_name(std::wstring_view name);

/// As it stands in an XML document, in an attribute too.
[[nodiscard]] std::wstring xml_text(std::wstring_view text);

/// The names of the parameters that a member may change, with commas; empty if there are none.
[[nodiscard]] std::wstring changed_names(std::span<const ParameterInfo> parameters);

/// An event as the method that a receiver has for it.
[[nodiscard]] MemberInfo method_of(const EventsInfo::Event& event);

/// The accessors of a property, which stand together, or one method.
using MemberGroup = std::span<const MemberInfo>;
void for_each_group(const ClassInfo& info, const std::function<void(MemberGroup)>& visit);

/// The class whose instances a collection enumerates; null when the class is no collection.
[[nodiscard]] const ClassInfo* element_of(const ClassInfo& info);

}  // namespace kovrel
