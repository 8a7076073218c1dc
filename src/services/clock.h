// The clock, the present day, and waits, which dispatch events and never sleep.
#pragma once

#include <cstdint>

namespace kovrel {

/// Seconds since local midnight, with the fraction that the system's clock gives.
[[nodiscard]] double seconds_since_midnight() noexcept;

/// The present local day: days since 30 December 1899.
[[nodiscard]] std::int32_t today() noexcept;

/// The present local date and time: days since 30 December 1899, the time being the fraction.
[[nodiscard]] double now() noexcept;

/// Dispatches events in a loop until so many seconds have passed, with the hourglass as the mouse
/// pointer. Midnight is not corrected for: a wait that reaches it never ends.
void wait_with_hourglass(float seconds);

}  // namespace kovrel
