// Little-endian integers in byte sequences, as archives hold them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kovrel::zip {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

/// The Width-byte integer at `offset`; the caller has made sure that it lies inside `bytes`.
template <std::size_t Width>
[[nodiscard]] std::uint64_t load(ByteView bytes, std::size_t offset) {
    std::uint64_t value = 0;
    for (std::size_t i = Width; i-- > 0;) {
        value = value << 8 | bytes[offset + i];
    }
    return value;
}

[[nodiscard]] inline std::uint16_t load16(ByteView bytes, std::size_t offset) {
    return static_cast<std::uint16_t>(load<2>(bytes, offset));
}
[[nodiscard]] inline std::uint32_t load32(ByteView bytes, std::size_t offset) {
    return static_cast<std::uint32_t>(load<4>(bytes, offset));
}
[[nodiscard]] inline std::uint64_t load64(ByteView bytes, std::size_t offset) {
    return load<8>(bytes, offset);
}

template <typename Integer>
void append(Bytes& bytes, Integer value) {
    for (std::size_t i = 0; i < sizeof(Integer); ++i) {
        bytes.push_back(static_cast<std::uint8_t>(static_cast<std::uint64_t>(value) >> (8 * i)));
    }
}

template <typename Range>
void append_all(Bytes& bytes, const Range& range) {
    bytes.insert(bytes.end(), range.begin(), range.end());
}

}  // namespace kovrel::zip
