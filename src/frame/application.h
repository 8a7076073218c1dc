// What the library knows of itself: its title and how its message boxes are shown.
#pragma once

#include <cstdint>

#include "frame/version.h"
#include "runtime/notice.h"

namespace kovrel {

/// The library's application title: that of every standard error box and of every notice that has
/// no title of its own.
inline constexpr const wchar_t* application_title = L"" KOVREL_TITLE;

/// Shows a notice in a modal message box and waits for the answer: the published button codes
/// (1 OK, 2 Cancel, 6 Yes, 7 No). It disables every window of the thread, and is shown again where
/// it goes away unanswered; one that cannot be shown is answered with No, Cancel or OK.
std::int32_t show(const Notice& notice);

}  // namespace kovrel
