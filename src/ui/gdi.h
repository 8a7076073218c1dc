// Owners of drawing objects, and the fonts that windows use.
#pragma once

#include <windows.h>

#include <utility>

#include "ui/drawn_icon.h"

namespace kovrel {

/// Frees a drawing object (font, bitmap, brush) at the end.
template <class Handle>
class GdiObject {
 public:
    GdiObject() noexcept = default;
    explicit GdiObject(Handle handle) noexcept : handle_(handle) {}
    GdiObject(GdiObject&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    GdiObject& operator=(GdiObject other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~GdiObject() {
        if (handle_ != nullptr) DeleteObject(handle_);
    }
    [[nodiscard]] Handle get() const noexcept { return handle_; }

 private:
    Handle handle_ = nullptr;
};

using Font = GdiObject<HFONT>;
using Bitmap = GdiObject<HBITMAP>;

class Icon {
 public:
    Icon() noexcept = default;
    explicit Icon(HICON handle) noexcept : handle_(handle) {}
    Icon(Icon&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Icon& operator=(Icon other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Icon() {
        if (handle_ != nullptr) DestroyIcon(handle_);
    }
    [[nodiscard]] HICON get() const noexcept { return handle_; }

 private:
    HICON handle_ = nullptr;
};

/// A sign as an icon, `size` pixels wide. Failure 7 when it cannot be made.
[[nodiscard]] Icon make_icon(Sign sign, int size);

/// Puts an object into a device context for as long as it lives.
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

/// The device context of a window, or of the screen (null), with the font that it comes with: what
/// is put into it lives less long.
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

/// The dots per inch of the display that a window is on, as its process sees them.
[[nodiscard]] int dots_per_inch(HWND window) noexcept;

/// GetSystemMetrics, for a display of that resolution.
[[nodiscard]] int system_metric(int index, int dots_per_inch) noexcept;

/// The description of the system's font for messages, for a display of that resolution.
[[nodiscard]] LOGFONTW system_font(int dots_per_inch) noexcept;

/// A font by name, in hundredths of a point; normal weight. The pitch and family choose what stands
/// in for it where the system does not have it.
[[nodiscard]] LOGFONTW named_font(const wchar_t* name, int hundredths, int dots_per_inch,
                                  BYTE pitch_and_family = VARIABLE_PITCH | FF_SWISS) noexcept;

[[nodiscard]] Font make_font(const LOGFONTW& description);

/// The height of a line of that font on a window's display, in pixels.
[[nodiscard]] int line_height(HWND window, HFONT font) noexcept;

}  // namespace kovrel
