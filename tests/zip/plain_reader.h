// A reader of archives for tests, which shares no code with the engine: it goes by the central
// directory alone, ZIP64 forms included, and unpacks what it finds there.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kovrel::zip::test {

struct PlainEntry {
    std::string name;
    std::string data;
    std::string extra;
    std::string comment;
    std::uint16_t made_by = 0;
    std::uint16_t flags = 0;
    std::uint16_t method = 0;
    std::uint16_t date = 0;
    std::uint16_t time = 0;
    std::uint32_t attributes = 0;
    bool readable = false;  // header, data and checksum are in order
};

/// The entries in directory order; empty when there is no usable end record.
[[nodiscard]] std::vector<PlainEntry> read_plain(const std::string& archive);

/// Raw deflate data unpacked, at most `limit` bytes; empty when it is broken.
[[nodiscard]] std::string inflate_raw(const std::string& packed, std::size_t limit);

}  // namespace kovrel::zip::test
