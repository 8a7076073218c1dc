// The icon that the user knows the host by.
#pragma once

#include "ui/gdi.h"

namespace kovrel {

/// Absent where the host has none.
struct HostIcons {
    Icon large;
    Icon small;
};

/// Those of the window, of its owners or, where they have none or there is no window, of the
/// program, for a display of that resolution. A window must be one of this thread.
[[nodiscard]] HostIcons host_icons(HWND window, int dots_per_inch) noexcept;

}  // namespace kovrel
