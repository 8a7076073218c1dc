// Recognises data that is compressed already, such as pictures, films and archives.
#include <algorithm>
#include <array>
#include <cstring>

#include "deflater.h"

namespace kovrel::zip {
namespace {

constexpr std::size_t smallest = std::size_t{4} * 1024;
constexpr std::size_t block_size = std::size_t{16} * 1024;
constexpr std::size_t reach = std::size_t{32} * 1024;
constexpr int hash_bits = 13;

// With n bytes and counts c of each value, 256 * sum(c * c) is n * n for exactly equal counts and
// 255 * n more, on average, for random bytes. With an excess of n * n / 16 over that, an ideal code
// saves 1 / 16 / (2 ln 2) = 0.045 of each byte's eight bits, 0.6 %.
bool is_even(ByteView block) {
    std::array<std::uint32_t, 256> counts{};
    for (const std::uint8_t byte : block) ++counts[byte];
    std::uint64_t squares = 0;
    for (const std::uint64_t count : counts) squares += count * count;
    const std::uint64_t n = block.size();
    return 256 * squares <= n * n + 255 * n + n * n / 16;
}

// Whether more than one position in 512 of `data` repeats four bytes seen up to 32 KiB before. The
// first `known` bytes are only looked back to.
bool has_repeats(ByteView data, std::size_t known) {
    std::array<std::uint32_t, 1U << hash_bits> seen{};
    const std::size_t most = (data.size() - known) / 512;
    std::size_t repeats = 0;
    for (std::uint32_t i = 0; i + 4 <= data.size(); ++i) {
        std::uint32_t here = 0;
        std::memcpy(&here, data.data() + i, sizeof here);
        std::uint32_t& place = seen[here * 2654435761U >> (32 - hash_bits)];
        const std::uint32_t before = place;
        place = i;
        std::uint32_t there = 0;
        std::memcpy(&there, data.data() + before, sizeof there);
        if (i >= known && here == there && before < i && i - before <= reach && ++repeats > most) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool looks_incompressible(ByteView data, std::size_t known) {
    if (data.size() < smallest) return false;
    for (std::size_t i = 0; i < data.size(); i += block_size) {
        if (!is_even(data.subspan(i, std::min(block_size, data.size() - i)))) return false;
    }
    return !has_repeats({data.data() - known, data.size() + known}, known);
}

}  // namespace kovrel::zip
