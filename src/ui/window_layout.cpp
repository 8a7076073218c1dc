// A window's size, its place on the screen, its fields' heights and its icon.
#include <algorithm>

#include "ui/window.h"

namespace kovrel {
namespace {

DWORD long_of(HWND window, int index) noexcept {
    return static_cast<DWORD>(GetWindowLongPtrW(window, index));
}

}  // namespace

SIZE Window::outer_size(double width, double height) const noexcept {
    RECT bounds{0, 0, scale_.pixels(width), scale_.pixels(height)};
    AdjustWindowRectEx(&bounds, long_of(handle_, GWL_STYLE), FALSE, long_of(handle_, GWL_EXSTYLE));
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

void Window::resize_inner(double width, double height) {
    const SIZE wanted = outer_size(width, height);
    const RECT work = work_area();
    resize_outer(std::min(wanted.cx, work.right - work.left),
                 std::min(wanted.cy, work.bottom - work.top));
}

double Window::tallest_inner() const noexcept {
    const RECT work = work_area();
    const LONG room = work.bottom - work.top - outer_size(0, 0).cy;
    return scale_.twips(static_cast<int>(room));
}

void Window::center_on_screen() {
    const RECT work = work_area();
    const RECT now = bounds();
    move_inside_screen((work.left + work.right - (now.right - now.left)) / 2,
                       (work.top + work.bottom - (now.bottom - now.top)) / 2);
}

void Window::keep_on_screen() {
    const RECT now = bounds();
    move_inside_screen(now.left, now.top);
}

void Window::move_inside_screen(LONG left, LONG top) const noexcept {
    const RECT work = work_area();
    const RECT now = bounds();
    left = std::min(left, work.right - (now.right - now.left));
    top = std::min(top, work.bottom - (now.bottom - now.top));
    move_to(std::max(left, work.left), std::max(top, work.top));
}

void Window::move_field(int id, const Place& row) {
    // The thickness of edges does not depend on the resolution.
    const int height = line_height(control(id), font()) + 2 * (GetSystemMetrics(SM_CYEDGE) + 1);
    Place next = row;
    next.height = scale_.twips(height);
    // In whole pixels, since put_in_place rounds each edge.
    next.top = scale_.twips(scale_.pixels(row.top + (row.height - next.height) / 2));
    move(id, next);
}

void Window::take_host_icons() {
    large_icon_ = host_icon(GetActiveWindow(), true, scale_.dots_per_inch());
    small_icon_ = host_icon(GetActiveWindow(), false, scale_.dots_per_inch());
    SendMessageW(handle_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(large_icon_.get()));
    SendMessageW(handle_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small_icon_.get()));
}

}  // namespace kovrel
