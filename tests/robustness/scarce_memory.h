// The library without memory: what it asks the run time and the system for is refused from a chosen
// request on, or at that one request alone. Blocks that it has and has not given back are counted.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <cstddef>
#include <memory>

namespace kovrel::test {

class ScarceMemory {
 public:
    ScarceMemory();
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;
    ~ScarceMemory();

    enum class Refusal { once, from_then_on };

    /// Makes the thread's first exception inside the library, given any instance of it. The
    /// compiler's run time takes a few bytes for it, which it keeps and cannot do without.
    static void warm_up(IDispatch* instance);

    /// Requests of this thread are counted from 1 on; those that the library makes with the ones
    /// before `first` are granted.
    static void refuse(std::size_t first, Refusal refusal);
    /// All is granted again; how many requests there were.
    static std::size_t grant_all();

    /// Blocks of the run time's that the library has.
    static std::size_t blocks();

 private:
    struct Patches;
    std::unique_ptr<Patches> patches_;
};

}  // namespace kovrel::test
