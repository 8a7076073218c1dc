// Random numbers determined by a seed, so that a run can be repeated.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kovrel::test {

class Random {
 public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    /// The published step of the splitmix64 generator.
    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
        return mixed ^ (mixed >> 31);
    }
    /// From 0 to one below the limit.
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(next() % limit); }
    bool one_in(std::size_t count) { return below(count) == 0; }

    template <class List>
    auto& any_of(List& list) {
        return list[below(std::size(list))];
    }

 private:
    std::uint64_t state_;
};

}  // namespace kovrel::test
