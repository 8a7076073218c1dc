// The clock that waits and random numbers go by, and the calendar's present day.
#pragma once

#include <cstdint>

namespace kovrel {

/// Seconds since local midnight, with the fraction that the system's clock gives.
[[nodiscard]] double seconds_since_midnight() noexcept;

/// The present local day: days since 30 December 1899.
[[nodiscard]] std::int32_t today() noexcept;

}  // namespace kovrel
