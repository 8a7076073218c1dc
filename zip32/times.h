// Dates and times of day as archives hold them: local time in two 16-bit words.
#pragma once

#include <cstdint>

namespace kovrel::zip {

/// A local date and time; month and day from 1, seconds 0 to 60 (a leap second counts as 59).
struct LocalTime {
    int year;
    int month;
    int day;
    int hour;
    int minute;
    int second;
};

/// The published DOS layout: date = (year - 1980) << 9 | month << 5 | day,
/// time = hour << 11 | minute << 5 | second / 2. Ordered as the moments are.
struct DosTime {
    std::uint16_t date = 0;
    std::uint16_t time = 0;

    bool operator==(const DosTime&) const = default;
    bool operator<(const DosTime& other) const {
        return date != other.date ? date < other.date : time < other.time;
    }
};

/// Rounded down to two seconds; what lies outside 1980 to 2107 becomes the nearest moment inside.
[[nodiscard]] DosTime to_dos_time(const LocalTime& local) noexcept;

}  // namespace kovrel::zip
