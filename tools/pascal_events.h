// Events in the unit for Pascal: an object that receives them and calls procedures.
#pragma once

#include <string>

#include "automation/class_info.h"

namespace kovrel {

/// The types that the class's events need.
[[nodiscard]] std::wstring pascal_events_type(const ClassInfo& info);

[[nodiscard]] std::wstring pascal_events_implementation(const ClassInfo& info);

}  // namespace kovrel
