// Names and types as Pascal writes them.
#pragma once

#include <string>
#include <string_view>

#include "automation/class_info.h"

namespace kovrel {

/// In ASCII, and with an underscore behind a reserved word.
[[nodiscard]] std::wstring pascal_name(std::wstring_view name);

[[nodiscard]] std::wstring pascal_type(const TypeRef& type);

/// The type in an interface that is called by number, which takes no records: an array of texts
/// stands for one.
[[nodiscard]] std::wstring pascal_dispatch_type(const TypeRef& type);

/// A method of an interface that is called by number, where only what may change is a variable.
[[nodiscard]] std::wstring pascal_dispatch_method(const MemberInfo& member, DISPID id);

}  // namespace kovrel
