#include "frame/wait.h"

#include <windows.h>

#include "frame/clock.h"
#include "ui/modal.h"

namespace kovrel {
namespace {

/// Windows set their own pointer whenever the mouse moves over them, so it is put back after every
/// event.
void keep_hourglass() {
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
}

/// The hourglass from construction to the end of the scope.
class Hourglass {
 public:
    Hourglass() { keep_hourglass(); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() { SetCursor(LoadCursorW(nullptr, IDC_ARROW)); }
};

}  // namespace

void wait_with_hourglass(float seconds) {
    const Hourglass hourglass;
    const double start = seconds_since_midnight();
    while (static_cast<float>(seconds_since_midnight() - start) < seconds) {
        pump_events(&keep_hourglass);
    }
}

}  // namespace kovrel
