// Message loops.
#pragma once

#include <windows.h>

namespace kovrel {

/// Dispatches the messages that wait in the thread's queue; `after_each` runs after each.
void pump_events(void (*after_each)() = nullptr);

/// Dispatches the waiting messages of one window and its controls only, with dialog keys.
void pump_events_of(HWND window);

/// Runs until the window is destroyed or hidden. WM_QUIT is posted again only then, so that the
/// caller gets the window's answer.
void run_modal_loop(HWND window);

}  // namespace kovrel
