// Modal life: the thread's other windows are disabled and messages are dispatched until it ends.
#pragma once

#include <windows.h>

#include <vector>

namespace kovrel {

/// Dispatches the events that wait in the thread's queue, and returns; `after_each` runs after
/// every one of them.
void pump_events(void (*after_each)() = nullptr);

/// Dispatches the waiting events of one window and its controls alone, with a dialog's keyboard.
void pump_events_of(HWND window);

/// Disables every other visible window of the thread; release gives them, and the focus, back.
class ModalScope {
 public:
    explicit ModalScope(HWND window);
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;
    ~ModalScope() { release(); }

    void release() noexcept;
    /// To be called once the modal window is gone.
    void restore_focus() const noexcept;

 private:
    std::vector<HWND> disabled_;
    HWND active_;
    HWND focus_;
};

/// Runs until the window is gone or hidden. A request to quit is kept until then, so that a caller
/// who waits for the window's answer gets it.
void run_modal_loop(HWND window);

}  // namespace kovrel
