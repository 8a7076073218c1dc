// Archives as other programs write them and this engine does not.
#pragma once

#include <string>
#include <utility>
#include <vector>
#include <zlib.h>

#include "records.h"

namespace kovrel::zip::test {

inline std::uint32_t crc32_of(const std::string& data) {
    return static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(data.data()), static_cast<uInt>(data.size())));
}

/// The entries' own bytes, followed by a central directory of `count` entries and its end.
inline std::string archive_of(Bytes bytes, const Bytes& directory, std::uint64_t count,
                              const std::string& comment = "") {
    const std::size_t offset = bytes.size();
    append_all(bytes, directory);
    append_directory_end(bytes, {count, directory.size(), offset, comment}, bytes.size());
    return {bytes.begin(), bytes.end()};
}

/// The archive, which has no comment, with one.
inline std::string with_comment(std::string archive, const std::string& comment) {
    archive[archive.size() - 2] = static_cast<char>(comment.size());
    archive[archive.size() - 1] = static_cast<char>(comment.size() >> 8);
    return archive + comment;
}

/// An archive made on Unix that holds these names and contents, stored, in this order; names may
/// occur several times or differ in capitals alone.
inline std::string made_on_unix(
    const std::vector<std::pair<std::string, std::string>>& names_and_contents) {
    Bytes bytes;
    Bytes directory;
    for (const auto& [name, data] : names_and_contents) {
        CentralEntry entry;
        entry.made_by = 3 << 8 | 20;
        entry.modified = {(2020 - 1980) << 9 | 2 << 5 | 29, 0};
        entry.name = name;
        entry.size = entry.packed_size = data.size();
        entry.crc = crc32_of(data);
        entry.local_offset = bytes.size();
        append_local_header(bytes, entry, false);
        append_all(bytes, data);
        append_central_entry(directory, entry);
    }
    return archive_of(std::move(bytes), directory, names_and_contents.size());
}

}  // namespace kovrel::zip::test
