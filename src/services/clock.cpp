#include "services/clock.h"

#include <windows.h>

#include "runtime/calendar.h"
#include "services/modal.h"

namespace kovrel {
namespace {

/// Windows set their own pointer on WM_SETCURSOR, so it is set again after every event.
void keep_hourglass() {
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
}

/// Shows the hourglass for a scope.
class Hourglass {
 public:
    Hourglass() { keep_hourglass(); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() { SetCursor(LoadCursorW(nullptr, IDC_ARROW)); }
};

double seconds_since_midnight(const SYSTEMTIME& time) noexcept {
    return (time.wHour * 60 + time.wMinute) * 60 + time.wSecond + time.wMilliseconds / 1000.0;
}

}  // namespace

double seconds_since_midnight() noexcept {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return seconds_since_midnight(now);
}

std::int32_t today() noexcept {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return day_count({now.wYear, now.wMonth, now.wDay});
}

double now() noexcept {
    constexpr double seconds_a_day = 24 * 60 * 60;
    // Read once: midnight may pass between two readings.
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return day_count({now.wYear, now.wMonth, now.wDay}) +
           seconds_since_midnight(now) / seconds_a_day;
}

void wait_with_hourglass(float seconds) {
    const Hourglass hourglass;
    const double start = seconds_since_midnight();
    while (static_cast<float>(seconds_since_midnight() - start) < seconds) {
        pump_events(&keep_hourglass);
    }
}

}  // namespace kovrel
