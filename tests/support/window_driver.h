// Drives real windows as a user does: finds them and their controls, types, clicks, resizes, saves
// pictures. Everything waits by polling with a limit, never by a fixed delay.
#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kovrel::test {

using Milliseconds = std::chrono::milliseconds;

inline constexpr Milliseconds default_limit{20'000};

// Polls until the predicate holds; false when the limit passes first.
bool wait_until(const std::function<bool()>& predicate, Milliseconds limit = default_limit);

// The same on a thread that owns windows: its messages are dispatched while it waits.
bool pump_until(const std::function<bool()>& predicate, Milliseconds limit = default_limit);

// Whichever of the two fits the calling thread: it may own the window or not.
bool wait_for(HWND window, const std::function<bool()>& predicate,
              Milliseconds limit = default_limit);

// Reading works across threads and processes; a window that does not answer within the
// default limit reads as empty.
std::wstring class_of(HWND window);
std::wstring text_of(HWND window);
LRESULT ask(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0);

struct WindowQuery {
    std::wstring window_class;  // empty: any
    std::wstring title;         // empty: any; else the whole caption
    DWORD process = 0;          // 0: any
};

// Visible top-level windows, topmost first.
std::vector<HWND> top_level_windows(const WindowQuery& query);

// Null when none appears within the limit.
HWND wait_for_window(const WindowQuery& query, Milliseconds limit = default_limit);
bool wait_until_closed(HWND window, Milliseconds limit = default_limit);

struct Control {
    HWND window = nullptr;
    std::wstring window_class;
    std::wstring text;
    int id = 0;
    RECT bounds{};  // pixels, relative to the client area of the window asked
    bool visible = false;
    bool enabled = false;
};

// All descendants, in the order of their making.
std::vector<Control> controls_of(HWND window);

// The first descendant that fits, or null. Class names compare without regard to case.
HWND find_control(HWND window, std::wstring_view window_class, std::wstring_view text = {});
HWND find_control(HWND window, int id);

// Controls in the order in which the Tab key visits them, beginning with the first of all.
std::vector<HWND> tab_order(HWND window);

// The control of the window's thread that has the focus.
HWND focus_of(HWND window);

// Brings the window to the front, so that real keys reach it; false when it does not come.
bool bring_to_front(HWND window, Milliseconds limit = default_limit);

// Real keyboard and mouse, for the window in front. Characters that the keyboard layout has go as
// their keys, the others as Unicode input.
enum class Modifier { none, shift, control, alt };
void press_key(WORD virtual_key, Modifier modifier = Modifier::none);
void type_text(std::wstring_view text);
void click(HWND control);
// Presses the left button on the control and lets it go beside it: no click.
void press_and_leave(HWND control);

// Outer size in pixels.
void resize(HWND window, int width, int height);

}  // namespace kovrel::test
