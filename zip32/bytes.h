// Little-endian integers in byte sequences, as archives hold them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace kovrel::zip {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

[[nodiscard]] inline ByteView as_bytes(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// The integer at `offset`; the caller has made sure that it lies inside `bytes`.
template <typename Integer>
[[nodiscard]] Integer load(ByteView bytes, std::size_t offset) {
    std::uint64_t value = 0;
    for (std::size_t i = sizeof(Integer); i-- > 0;) value = value << 8 | bytes[offset + i];
    return static_cast<Integer>(value);
}

inline constexpr auto load16 = load<std::uint16_t>;
inline constexpr auto load32 = load<std::uint32_t>;
inline constexpr auto load64 = load<std::uint64_t>;

/// Appends each integer in as many bytes as its type has.
template <typename... Integer>
void append(Bytes& bytes, Integer... values) {
    const auto append_one = [&bytes](std::uint64_t value, std::size_t width) {
        for (; width > 0; --width, value >>= 8) bytes.push_back(static_cast<std::uint8_t>(value));
    };
    (append_one(values, sizeof(Integer)), ...);
}

template <typename Range>
void append_all(Bytes& bytes, const Range& range) {
    bytes.insert(bytes.end(), range.begin(), range.end());
}

}  // namespace kovrel::zip
