// The library's message loops.
#pragma once

#include <windows.h>

namespace kovrel {

/// Dispatches the events that wait in the thread's queue, and returns; `after_each` runs after
/// every one of them.
void pump_events(void (*after_each)() = nullptr);

/// Dispatches the waiting events of one window and its controls alone, with a dialog's keyboard.
void pump_events_of(HWND window);

/// Runs until the window is gone or hidden. A request to quit is kept until then, so that a caller
/// who waits for the window's answer gets it.
void run_modal_loop(HWND window);

}  // namespace kovrel
