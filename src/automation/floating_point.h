// The floating-point environment of a call. Hosts may unmask exceptions or change precision and
// rounding. The library and the platform functions that it calls run in the default environment;
// host code that it calls runs in the host's.
#pragma once

#include <cstdint>

namespace kovrel {

/// Control and status of both floating-point units (SSE and x87). The x87 status is saved only
/// where its control word is not the default: otherwise any function may have changed its flags.
struct FloatingPointState {
    std::uint32_t sse;
    std::uint16_t x87_control;
    std::uint16_t x87_status;
};

/// Sets the default environment and restores the host's at the end of the scope. Used wherever
/// control enters from the host: member calls and window procedures.
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

/// Restores the host's environment while the library calls host objects or windows. Changes that
/// the host makes meanwhile are kept for it.
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
