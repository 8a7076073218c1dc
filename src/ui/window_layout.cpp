// Windows on the screen they have: how large they may be and where they lie, their fields, and the
// icon that they show there.
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

/// Of the display that the window is on or, before it is shown, will be.
RECT Window::work_area() const noexcept {
    HWND const active = GetActiveWindow();
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(visible() || active == nullptr ? handle_ : active,
                                      MONITOR_DEFAULTTOPRIMARY),
                    &monitor);
    return monitor.rcWork;
}

void Window::resize_inner(double width, double height) {
    const SIZE wanted = outer_size(width, height);
    const RECT work = work_area();
    SetWindowPos(handle_, nullptr, 0, 0, std::min(wanted.cx, work.right - work.left),
                 std::min(wanted.cy, work.bottom - work.top),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

double Window::tallest_inner() const noexcept {
    const RECT work = work_area();
    const LONG room = work.bottom - work.top - outer_size(0, 0).cy;
    return scale_.twips(static_cast<int>(room));
}

void Window::center_on_screen() {
    const RECT work = work_area();
    RECT bounds{};
    GetWindowRect(handle_, &bounds);
    SetWindowPos(handle_, nullptr, (work.left + work.right - (bounds.right - bounds.left)) / 2,
                 (work.top + work.bottom - (bounds.bottom - bounds.top)) / 2, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    keep_on_screen();
}

void Window::keep_on_screen() {
    const RECT work = work_area();
    RECT bounds{};
    GetWindowRect(handle_, &bounds);
    const LONG left = std::min(bounds.left, work.right - (bounds.right - bounds.left));
    const LONG top = std::min(bounds.top, work.bottom - (bounds.bottom - bounds.top));
    SetWindowPos(handle_, nullptr, std::max(left, work.left), std::max(top, work.top), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Window::move_field(int id, const Place& row) {
    // Edges are as thick at every resolution.
    const int height = line_height(control(id), font()) + 2 * (GetSystemMetrics(SM_CYEDGE) + 1);
    Place next = row;
    next.height = scale_.twips(height);
    // In whole pixels: the edges of a place are rounded each.
    next.top = scale_.twips(scale_.pixels(row.top + (row.height - next.height) / 2));
    move(id, next);
}

void Window::take_host_icons() {
    icons_ = host_icons(GetActiveWindow(), scale_.dots_per_inch());
    SendMessageW(handle_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icons_.large.get()));
    SendMessageW(handle_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icons_.small.get()));
}

}  // namespace kovrel
