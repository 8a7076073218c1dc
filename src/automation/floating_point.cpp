#include "automation/floating_point.h"

#include <array>

#include "automation/thread_slot.h"

namespace kovrel {
namespace {

// Round to nearest, full precision, all exceptions masked: what the C++ run time expects.
constexpr std::uint32_t default_sse = 0x1F80;
constexpr std::uint16_t default_x87 = 0x037F;

constexpr std::uint32_t sse_exceptions = 0x3F;      // sticky exception flags; the rest is control
constexpr std::uint16_t x87_control_bits = 0x0F3F;  // the rest is reserved
constexpr std::uint16_t x87_exceptions = 0x7F;      // sticky exception flags, stack fault included
constexpr std::uint16_t x87_pending = 0x80;         // an unmasked exception is pending

void set_sse(std::uint32_t value) noexcept {
    asm volatile("ldmxcsr %0" : : "m"(value) : "memory");
}

void set_x87_control(std::uint16_t value) noexcept {
    asm volatile("fldcw %0" : : "m"(value) : "memory");
}

/// Sets control word and flags in one instruction: in two, an exception could be raised between.
void set_x87(const FloatingPointState& state) noexcept {
    std::array<std::uint32_t, 7> environment;  // layout of fnstenv
    asm volatile("fnstenv %0" : "=m"(environment));
    environment[0] = (environment[0] & 0xFFFF0000U) | state.x87_control;
    environment[1] = (environment[1] & ~std::uint32_t{x87_exceptions | x87_pending}) |
                     (state.x87_status & (x87_exceptions | x87_pending));
    asm volatile("fldenv %0" : : "m"(environment) : "memory");
}

bool is_default_x87(std::uint16_t control) noexcept {
    return (control & x87_control_bits) == (default_x87 & x87_control_bits);
}

std::uint16_t x87_status() noexcept {
    std::uint16_t status = 0;
    asm volatile("fnstsw %0" : "=a"(status));
    return status;
}

/// Each register is stored and later loaded with its own size: a wider load would miss the
/// processor's store forwarding.
void enter_default(FloatingPointState& host) noexcept {
    asm volatile("stmxcsr %0\n\tfnstcw %1" : "=m"(host.sse), "=m"(host.x87_control));
    if ((host.sse & ~sse_exceptions) != default_sse) set_sse(default_sse);
    if (is_default_x87(host.x87_control)) return;
    host.x87_status = x87_status();
    // The next waiting instruction would raise it here, inside the library.
    if ((host.x87_status & x87_pending) != 0) asm volatile("fnclex");
    set_x87_control(default_x87);
}

void hand_back(const FloatingPointState& host) noexcept {
    set_sse(host.sse);
    if (!is_default_x87(host.x87_control) &&
        ((x87_status() ^ host.x87_status) & x87_exceptions) != 0) {
        set_x87(host);
    } else {
        set_x87_control(host.x87_control);
    }
}

/// The innermost scope of the thread.
constinit ThreadSlot<DefaultFloatingPoint> current_scope;

}  // namespace

DefaultFloatingPoint::DefaultFloatingPoint() noexcept : outer_(current_scope.get()) {
    enter_default(host_);
    current_scope.set(this);
}

DefaultFloatingPoint::~DefaultFloatingPoint() {
    current_scope.set(outer_);
    hand_back(host_);
}

HostFloatingPoint::HostFloatingPoint() noexcept : scope_(current_scope.get()) {
    if (scope_ == nullptr) return;
    current_scope.set(nullptr);
    hand_back(scope_->host_);
}

HostFloatingPoint::~HostFloatingPoint() {
    if (scope_ == nullptr) return;
    enter_default(scope_->host_);
    current_scope.set(scope_);
}

}  // namespace kovrel
