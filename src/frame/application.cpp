#include "frame/application.h"

#include <windows.h>

#include "automation/floating_point.h"

namespace kovrel {

std::int32_t show(const Notice& notice) {
    HWND owner = GetActiveWindow();
    const auto style = static_cast<UINT>(notice.style) | (owner == nullptr ? MB_TASKMODAL : 0U);
    const wchar_t* title = notice.title ? notice.title->c_str() : application_title;
    const HostFloatingPoint host;
    return MessageBoxW(owner, notice.text.c_str(), title, style);
}

}  // namespace kovrel
