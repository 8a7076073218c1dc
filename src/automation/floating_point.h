// The floating-point environment of a call. Hosts have their own: exceptions that are raised, fewer
// digits, another rounding. The library and what it asks of the platform compute in the default
// one, and wherever the host's code runs the host's is in force.
#pragma once

#include <cstdint>

namespace kovrel {

/// Both floating-point units: what they are set to, and the exceptions that they have noted. What
/// the older unit notes counts where it is not set to the default, and any function may add to it
/// where it is.
struct FloatingPointState {
    std::uint32_t sse;
    std::uint16_t x87_control;
    std::uint16_t x87_status;
};

/// The default environment from its construction to the end of the scope, where the host's is
/// handed back. Stands wherever the host comes in: calls, window procedures.
class DefaultFloatingPoint {
 public:
    DefaultFloatingPoint() noexcept;
    DefaultFloatingPoint(const DefaultFloatingPoint&) = delete;
    DefaultFloatingPoint& operator=(const DefaultFloatingPoint&) = delete;
    ~DefaultFloatingPoint();

 private:
    friend class HostFloatingPoint;

    FloatingPointState host_;
    DefaultFloatingPoint* const outer_;
};

/// The host's environment, as it was when the host came in, while the library calls the host: its
/// objects, its windows. What the host changes it to is what it is handed back.
class HostFloatingPoint {
 public:
    HostFloatingPoint() noexcept;
    HostFloatingPoint(const HostFloatingPoint&) = delete;
    HostFloatingPoint& operator=(const HostFloatingPoint&) = delete;
    ~HostFloatingPoint();

 private:
    DefaultFloatingPoint* const scope_;
};

}  // namespace kovrel
