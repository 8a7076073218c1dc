// What an archive holds, as people and programs want to know it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "archive_reader.h"
#include "times.h"

namespace kovrel::zip {

struct Entry {
    std::string name;  // UTF-8, unless the archive marks other bytes as such; may be anything
    bool folder = false;
    bool link = false;  // a symbolic link, whose contents are the path that it leads to
    bool encrypted = false;
    std::uint64_t size = 0;  // bytes
    std::uint64_t packed_size = 0;
    std::uint32_t crc = 0;
    std::uint16_t method = 0;
    std::string comment;             // UTF-8
    std::optional<Moment> modified;  // where the archive holds it in UTC
    DosTime local_modified;
    /// For the owner, the group and others, as chmod takes them.
    std::uint16_t permissions = 0;
};

[[nodiscard]] Entry entry_of(const OldEntry& entry);

/// In the order of the central directory.
[[nodiscard]] std::vector<Entry> list_entries(const ArchiveReader& archive);

}  // namespace kovrel::zip
