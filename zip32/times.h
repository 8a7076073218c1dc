// Dates and times of day as archives hold them: local time in two 16-bit words.
#pragma once

#include <algorithm>
#include <cstdint>

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

}  // namespace kovrel::zip
