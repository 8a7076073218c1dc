#include "frame/clock.h"

#include <windows.h>

#include "runtime/calendar.h"

namespace kovrel {

double seconds_since_midnight() noexcept {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return (now.wHour * 60 + now.wMinute) * 60 + now.wSecond + now.wMilliseconds / 1000.0;
}

std::int32_t today() noexcept {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return day_count({now.wYear, now.wMonth, now.wDay});
}

}  // namespace kovrel
