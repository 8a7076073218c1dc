// The clock that waits and random numbers go by.
#pragma once

namespace kovrel {

/// Seconds since local midnight, with the fraction that the system's clock gives.
[[nodiscard]] double seconds_since_midnight() noexcept;

}  // namespace kovrel
