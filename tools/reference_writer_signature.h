// Members as a Basic programmer declares and reads them.
#pragma once

#include <string>
#include <vector>

#include "automation/class_info.h"

namespace kovrel::reference {

/// The accessors of one member: a method has one, a property up to two.
using Accessors = std::vector<const MemberInfo*>;

/// "Función", "Propiedad de solo lectura" …
[[nodiscard]] std::string kind_of(const Accessors& accessors);

/// One declaration a line, longer ones over several.
[[nodiscard]] std::string signature_of(const Accessors& accessors);

[[nodiscard]] std::string event_signature_of(const EventsInfo::Event& event);

/// The name that Basic gives a type.
[[nodiscard]] std::string type_name(const TypeRef& type);

/// A default as Basic writes it.
[[nodiscard]] std::string literal(const VARIANT& constant);

}  // namespace kovrel::reference
