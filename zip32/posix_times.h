// Between moments and the times of POSIX systems.
#pragma once

#include <array>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>

#include "times.h"

namespace kovrel::zip {

inline constexpr std::int64_t nanoseconds_per_moment = 100;

/// A time before 1601 counts as its beginning.
[[nodiscard]] inline Moment moment_of(const timespec& time) noexcept {
    if (time.tv_sec < -unix_epoch) return 0;
    return moment_of_unix_time(time.tv_sec) +
           static_cast<Moment>(time.tv_nsec / nanoseconds_per_moment);
}

/// As futimens and utimensat take them: the time of the last access stays.
[[nodiscard]] inline std::array<timespec, 2> access_and_modification(Moment modified) noexcept {
    timespec time{};
    time.tv_sec = static_cast<std::time_t>(modified / moments_per_second) - unix_epoch;
    time.tv_nsec = static_cast<long>(modified % moments_per_second) * nanoseconds_per_moment;
    return {timespec{0, UTIME_OMIT}, time};
}

}  // namespace kovrel::zip
