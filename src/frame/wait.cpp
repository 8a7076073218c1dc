#include "frame/wait.h"

#include <windows.h>

#include "frame/clock.h"

namespace kovrel {
namespace {

/// The hourglass from construction to the end of the scope. Windows set their own pointer whenever
/// the mouse moves over them, so it is put back after every event.
class Hourglass {
 public:
    Hourglass() noexcept { keep(); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() { SetCursor(LoadCursorW(nullptr, IDC_ARROW)); }

    void keep() const noexcept {
        if (GetCursor() != hourglass_) SetCursor(hourglass_);
    }

 private:
    HCURSOR hourglass_ = LoadCursorW(nullptr, IDC_WAIT);
};

}  // namespace

void run_pending_events() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.message == WM_QUIT) {
            // The host's own loop must see it.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void wait_with_hourglass(float seconds) {
    const Hourglass hourglass;
    const double start = seconds_since_midnight();
    while (static_cast<float>(seconds_since_midnight() - start) < seconds) {
        run_pending_events();
        hourglass.keep();
    }
}

}  // namespace kovrel
