// Hosts with a floating-point environment of their own.
#pragma once

#include <array>
#include <cstdint>

namespace kovrel::test {

/// What both floating-point units are set to; the exceptions that they have noted are left out.
struct Environment {
    const char* name = "";
    std::uint16_t x87 = 0;
    std::uint32_t sse = 0;
};

inline Environment environment() {
    Environment result{.name = "as it is"};
    asm volatile("fnstcw %0\n\tstmxcsr %1" : "=m"(result.x87), "=m"(result.sse));
    result.sse &= ~std::uint32_t{0x3F};
    return result;
}

/// Sets both units, without an exception noted.
inline void set_environment(const Environment& wanted) {
    asm volatile("fnclex\n\tfldcw %0\n\tldmxcsr %1" : : "m"(wanted.x87), "m"(wanted.sse));
}

inline constexpr Environment default_environment{"the default one", 0x037F, 0x1F80};
/// Exceptions raised, as a compiler of native code sets them.
inline constexpr Environment raising{"exceptions raised", 0x1372, 0x1900};
inline constexpr std::array host_environments{
    raising,
    Environment{"every exception raised", 0x0340, 0x0000},
    Environment{"24 bits", 0x007F, 0x1F80},
    Environment{"53 bits", 0x027F, 0x1F80},
    Environment{"24 bits, raised", 0x1072, 0x1900},
    Environment{"downwards", 0x077F, 0x3F80},
    Environment{"upwards", 0x0B7F, 0x5F80},
    Environment{"towards zero", 0x0F7F, 0x7F80},
    Environment{"small numbers are zero", 0x037F, 0x9FC0},
};

/// A host's environment from its construction to the end of the scope; then what was before.
class HostWith {
 public:
    explicit HostWith(const Environment& own) : before_(environment()) { set_environment(own); }
    HostWith(const HostWith&) = delete;
    HostWith& operator=(const HostWith&) = delete;
    ~HostWith() { set_environment(before_); }

 private:
    const Environment before_;
};

}  // namespace kovrel::test
