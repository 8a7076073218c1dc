// Texts out of a fuzzer's bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace kovrel::fuzz {

/// Reads the bytes as Latin-1, so that seeds are legible; the byte 255 stands for a character
/// outside it.
class Texts {
 public:
    Texts(const std::uint8_t* data, std::size_t size) : next_(data), end_(data + size) {}

    /// Up to the next `end` byte, or all that is left.
    std::wstring until(std::uint8_t end) {
        std::wstring text;
        while (next_ != end_) {
            const std::uint8_t byte = *next_++;
            if (byte == end) break;
            text.push_back(byte == 0xFF ? static_cast<wchar_t>(0x20AC)
                                        : static_cast<wchar_t>(byte));
        }
        return text;
    }

    /// The next byte, 0 at the end.
    std::uint8_t byte() { return next_ == end_ ? std::uint8_t{0} : *next_++; }

 private:
    const std::uint8_t* next_;
    const std::uint8_t* end_;
};

/// Stops the fuzzer with a finding.
inline void require(bool condition) {
    if (!condition) std::abort();
}

}  // namespace kovrel::fuzz
