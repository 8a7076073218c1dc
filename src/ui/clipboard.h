// Text for the clipboard.
#pragma once

#include <windows.h>

#include <string_view>

namespace kovrel {

/// Replaces what the clipboard holds. Failure 521 while another program keeps it open.
void put_on_clipboard(HWND owner, std::wstring_view text);

}  // namespace kovrel
