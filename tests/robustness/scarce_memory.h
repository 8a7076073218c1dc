// The library without memory: what it asks the run time and the system for is refused from a chosen
// request on, or at that one request alone. Blocks that it has and has not given back are counted.
#pragma once

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
