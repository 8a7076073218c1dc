// Dates and times of day as archives hold them: local time in two 16-bit words, and moments in UTC.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

namespace kovrel::zip {

/// A local date and time; month and day from 1, seconds 0 to 60 (a leap second counts as 59).
struct LocalTime {
    int year, month, day, hour, minute, second;
};

/// The published DOS layout: date = (year - 1980) << 9 | month << 5 | day,
/// time = hour << 11 | minute << 5 | second / 2.
struct DosTime {
    std::uint16_t date = 0;
    std::uint16_t time = 0;

    bool operator==(const DosTime&) const = default;
    bool operator<(const DosTime& other) const {
        return date != other.date ? date < other.date : time < other.time;
    }
};

/// Rounded down to two seconds; a moment outside 1980 to 2107 becomes the nearest one inside.
[[nodiscard]] inline DosTime to_dos_time(const LocalTime& local) noexcept {
    if (local.year < 1980) return {1 << 5 | 1, 0};
    if (local.year > 2107) return {127 << 9 | 12 << 5 | 31, 23 << 11 | 59 << 5 | 29};
    const int second = std::min(local.second, 59);
    return {static_cast<std::uint16_t>((local.year - 1980) << 9 | local.month << 5 | local.day),
            static_cast<std::uint16_t>(local.hour << 11 | local.minute << 5 | second / 2)};
}

/// What the words say; nothing when they are no date and time.
[[nodiscard]] inline std::optional<LocalTime> from_dos_time(const DosTime& dos) noexcept {
    const LocalTime local{1980 + (dos.date >> 9), dos.date >> 5 & 15, dos.date & 31,
                          dos.time >> 11,         dos.time >> 5 & 63, 2 * (dos.time & 31)};
    constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (local.month < 1 || local.month > 12) return std::nullopt;
    // 2100 is the one year of this range that four divides and that is no leap year.
    const bool leap = local.year % 4 == 0 && local.year != 2100;
    const int last = days[local.month - 1] + (local.month == 2 && leap ? 1 : 0);
    if (local.day < 1 || local.day > last || local.hour > 23 || local.minute > 59 ||
        local.second > 59) {
        return std::nullopt;
    }
    return local;
}

/// A moment in UTC, in 100 ns since the beginning of 1601, as Windows counts.
using Moment = std::uint64_t;

inline constexpr std::int64_t moments_per_second = 10'000'000;
inline constexpr std::int64_t unix_epoch = 11'644'473'600;  // 1970, in seconds since 1601

/// From seconds since 1970, not before 1601.
[[nodiscard]] constexpr Moment moment_of_unix_time(std::int64_t seconds) noexcept {
    return static_cast<Moment>((seconds + unix_epoch) * moments_per_second);
}

}  // namespace kovrel::zip
