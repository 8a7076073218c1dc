#include "times.h"

#include <algorithm>

namespace kovrel::zip {

DosTime to_dos_time(const LocalTime& local) noexcept {
    if (local.year < 1980) {
        return {1 << 5 | 1, 0};
    }
    if (local.year > 2107) {
        return {127 << 9 | 12 << 5 | 31, 23 << 11 | 59 << 5 | 29};
    }
    const int second = std::min(local.second, 59);
    return {static_cast<std::uint16_t>((local.year - 1980) << 9 | local.month << 5 | local.day),
            static_cast<std::uint16_t>(local.hour << 11 | local.minute << 5 | second / 2)};
}

}  // namespace kovrel::zip
