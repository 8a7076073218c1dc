// The library's message boxes.
#pragma once

#include <cstdint>

#include "runtime/notice.h"

namespace kovrel {

/// The title of every notice without a title of its own and of the standard error box.
inline constexpr const wchar_t* application_title = L"kovrel";

/// Shows a notice in a modal message box and waits for the answer: the published button codes
/// (1 OK, 2 Cancel, 6 Yes, 7 No). It disables every window of the thread, and is shown again where
/// it goes away unanswered; one that cannot be shown is answered with No, Cancel or OK. Where the
/// library does not show what it says (announcer.h), the answer comes at once.
std::int32_t show(const Notice& notice);

}  // namespace kovrel
