// Drawing objects and their owners, and the fonts, icons and measures that windows use.
#pragma once

#include <windows.h>

#include "runtime/owned.h"
#include "ui/drawn_icon.h"

namespace kovrel {

using Font = Owned<HFONT, &DeleteObject>;
using Bitmap = Owned<HBITMAP, &DeleteObject>;
using Icon = Owned<HICON, &DestroyIcon>;

/// A sign as an icon, `size` pixels wide. Failure 7 when it cannot be made.
[[nodiscard]] Icon make_icon(Sign sign, int size);

/// The host's icon for a display of that resolution: that of a window of this thread (may be null)
/// or of its owners, else the program's first. Null where there is none.
[[nodiscard]] Icon host_icon(HWND window, bool large, int dots_per_inch) noexcept;

/// Selects an object into a device context for as long as it lives.
class Selected {
 public:
    Selected(HDC context, HGDIOBJ object) noexcept
        : context_(context), previous_(SelectObject(context, object)) {}
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;
    ~Selected() { SelectObject(context_, previous_); }

 private:
    HDC context_;
    HGDIOBJ previous_;
};

/// The device context of a window, or of the screen (null). Selected objects must not outlive it.
class WindowContext {
 public:
    explicit WindowContext(HWND window) noexcept : window_(window), handle_(GetDC(window)) {}
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    ~WindowContext() { ReleaseDC(window_, handle_); }
    [[nodiscard]] HDC get() const noexcept { return handle_; }

 private:
    HWND window_;
    HDC handle_;
};

/// The dots per inch of a window's display, subject to the process's DPI awareness.
[[nodiscard]] int dots_per_inch(HWND window) noexcept;

/// GetSystemMetrics, for a display of that resolution.
[[nodiscard]] int system_metric(int index, int dots_per_inch) noexcept;

/// The description of the system's font for messages, for a display of that resolution.
[[nodiscard]] LOGFONTW system_font(int dots_per_inch) noexcept;

/// A font by name, in hundredths of a point; normal weight. Pitch and family choose the substitute
/// where the system does not have it.
[[nodiscard]] LOGFONTW named_font(const wchar_t* name, int hundredths, int dots_per_inch,
                                  BYTE pitch_and_family = VARIABLE_PITCH | FF_SWISS) noexcept;

[[nodiscard]] Font make_font(const LOGFONTW& description);

/// The height of a line in that font on a window's display, in pixels.
[[nodiscard]] int line_height(HWND window, HFONT font) noexcept;

}  // namespace kovrel
