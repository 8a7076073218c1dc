// Fails the library's allocations, from a chosen one on or that one only, and counts its allocated
// blocks.
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

    /// Makes the library throw once on this thread, given any instance: the compiler's run time
    /// allocates its per-thread data at the first exception.
    static void warm_up(IDispatch* instance);

    /// Allocations of this thread are counted from 1 on; those before `first` succeed.
    static void refuse(std::size_t first, Refusal refusal);
    /// Lets all allocations succeed again; returns how many there were.
    static std::size_t grant_all();

    /// Blocks that the library has allocated and not freed.
    static std::size_t blocks();

 private:
    struct Patches;
    std::unique_ptr<Patches> patches_;
};

}  // namespace kovrel::test
