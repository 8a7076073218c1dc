// A window's size, its place on the screen, its fields' heights and its icon.
#include <algorithm>

#include "ui/window.h"

namespace kovrel {
SIZE Window::outer_size(double width, double height) const noexcept {
    RECT bounds{0, 0, scale_.pixels(width), scale_.pixels(height)};
    AdjustWindowRectEx(&bounds, design_.style, FALSE, WS_EX_CONTROLPARENT);
    return {bounds.right - bounds.left, bounds.bottom - bounds.top};
}

/// Of the window's display or, before it is shown, of the active window's.
RECT Window::work_area() const noexcept {
    HWND const active = GetActiveWindow();
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(visible() || active == nullptr ? handle_ : active,
                                      MONITOR_DEFAULTTOPRIMARY),
                    &monitor);
    return monitor.rcWork;
}

Place Window::size_of(HWND window) const noexcept {
    RECT bounds{};
    GetWindowRect(window, &bounds);
    return {0, 0, scale_.twips(bounds.right - bounds.left),
            scale_.twips(bounds.bottom - bounds.top)};
}

Place Window::inner_size_of(HWND window) const noexcept {
    RECT bounds{};
    GetClientRect(window, &bounds);
    return {0, 0, scale_.twips(bounds.right), scale_.twips(bounds.bottom)};
}

RECT Window::bounds() const noexcept {
    RECT result{};
    GetWindowRect(handle_, &result);
    return result;
}

void Window::resize_outer(int width, int height) const noexcept {
    SetWindowPos(handle_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Window::move_to(int left, int top) const noexcept {
    SetWindowPos(handle_, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// The outer size for an inner one in twips, limited to the work area.
SIZE Window::fitted_size(double width, double height, const RECT& work) const noexcept {
    const SIZE wanted = outer_size(width, height);
    return {std::min(wanted.cx, work.right - work.left),
            std::min(wanted.cy, work.bottom - work.top)};
}

void Window::resize_inner(double width, double height) {
    const SIZE size = fitted_size(width, height, work_area());
    resize_outer(size.cx, size.cy);
}

double Window::tallest_inner() const noexcept {
    const RECT work = work_area();
    const LONG room = work.bottom - work.top - outer_size(0, 0).cy;
    return scale_.twips(static_cast<int>(room));
}

void Window::put(const RECT& bounds) const noexcept {
    SetWindowPos(handle_, nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
                 bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

/// The bounds of a window in the middle of the work area, its top left corner inside.
RECT Window::centered(const SIZE& size, const RECT& work) noexcept {
    const LONG left = std::max((work.left + work.right - size.cx) / 2, work.left);
    const LONG top = std::max((work.top + work.bottom - size.cy) / 2, work.top);
    return {left, top, left + size.cx, top + size.cy};
}

void Window::center_on_screen() {
    const RECT now = bounds();
    const RECT place = centered({now.right - now.left, now.bottom - now.top}, work_area());
    move_to(place.left, place.top);
}

void Window::keep_on_screen() {
    const RECT work = work_area();
    const RECT now = bounds();
    const LONG left = std::min(now.left, work.right - (now.right - now.left));
    const LONG top = std::min(now.top, work.bottom - (now.bottom - now.top));
    move_to(std::max(left, work.left), std::max(top, work.top));
}

Place Window::field_place(const Place& row) const noexcept {
    // The thickness of edges does not depend on the resolution.
    const int height = line_height(handle_, font()) + 2 * (GetSystemMetrics(SM_CYEDGE) + 1);
    Place next = row;
    next.height = scale_.twips(height);
    // In whole pixels, since put_in_place rounds each edge.
    next.top = scale_.twips(scale_.pixels(row.top + (row.height - next.height) / 2));
    return next;
}

void Window::take_host_icons() {
    HWND const active = GetActiveWindow();
    large_icon_ = host_icon(active, true, scale_.dots_per_inch());
    small_icon_ = host_icon(active, false, scale_.dots_per_inch());
    const auto give = [this](WPARAM kind, HICON icon) {
        if (icon != nullptr)
            SendMessageW(handle_, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
    };
    give(ICON_BIG, large_icon_.get());
    give(ICON_SMALL, small_icon_.get());
}

}  // namespace kovrel
