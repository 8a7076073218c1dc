// The parts of the source for C# that no member's types enter.
#pragma once

#include <string>

#include "automation/class_info.h"

namespace kovrel {

extern const wchar_t* const csharp_preamble;
/// What the declarations refer to.
extern const wchar_t* const csharp_support;

[[nodiscard]] std::wstring csharp_record(const RecordInfo& info);

/// What "new" creates.
[[nodiscard]] std::wstring csharp_class(const ClassInfo& info);

/// A method for each collection by which foreach goes over it.
[[nodiscard]] std::wstring csharp_collections(const LibraryInfo& library);

/// The class that receives the events of another one, but for the events themselves.
[[nodiscard]] std::wstring csharp_receiver_head(const ClassInfo& info);
extern const wchar_t* const csharp_receiver_end;

}  // namespace kovrel
