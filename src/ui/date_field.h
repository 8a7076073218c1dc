// A date picker that the keyboard can be used on at once.
#pragma once

#include <windows.h>

namespace kovrel {

/// When the focus comes to it by the keyboard or by itself, the day is selected and takes the
/// digits typed; the control alone would begin with its check box, which takes none.
void begin_with_the_day(HWND date_picker);

}  // namespace kovrel
