#include "frame/wait.h"

#include <windows.h>

#include "frame/clock.h"
#include "ui/modal.h"

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

void wait_with_hourglass(float seconds) {
    const Hourglass hourglass;
    const double start = seconds_since_midnight();
    while (static_cast<float>(seconds_since_midnight() - start) < seconds) {
        pump_events();
        hourglass.keep();
    }
}

}  // namespace kovrel
