// Archives as other programs write them and this engine does not.
#pragma once

#include <string>
#include <utility>
#include <vector>
#include <zlib.h>

#include "names.h"
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

/// An entry as it stands in an archive: its headers may differ, and say anything.
struct MadeEntry {
    CentralEntry central;
    CentralEntry local;
    std::string data;   // after the local header
    std::string after;  // a descriptor
    bool wide = false;  // with both sizes in 64 bits in the local header

    /// Changes both headers.
    template <typename Change>
    MadeEntry& with(const Change& change) {
        change(central);
        change(local);
        return *this;
    }
};

/// A file made on Unix, with permissions 644.
inline MadeEntry stored(const std::string& name, const std::string& data) {
    MadeEntry made;
    made.central.made_by = 3 << 8 | 20;
    made.central.modified = {(2020 - 1980) << 9 | 2 << 5 | 29, 12 << 11 | 34 << 5 | 28};
    made.central.external_attributes = 0100644U << 16;
    made.central.flags = is_ascii(name) ? 0 : flag_utf8;
    made.central.name = name;
    made.central.size = made.central.packed_size = data.size();
    made.central.crc = crc32_of(data);
    made.local = made.central;
    made.data = data;
    return made;
}

inline std::string deflate_raw(const std::string& data) {
    z_stream stream{};
    deflateInit2(&stream, 6, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY);
    std::string packed(deflateBound(&stream, static_cast<uLong>(data.size())), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
    stream.avail_in = static_cast<uInt>(data.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

inline MadeEntry deflated(const std::string& name, const std::string& data) {
    MadeEntry made = stored(name, data);
    made.data = deflate_raw(data);
    made.with([&](CentralEntry& entry) {
        entry.method = method_deflate;
        entry.packed_size = made.data.size();
    });
    return made;
}

inline MadeEntry folder_entry(const std::string& name, std::uint32_t mode = 040755) {
    return stored(name, "").with(
        [&](CentralEntry& entry) { entry.external_attributes = mode << 16 | 0x10; });
}

inline MadeEntry link_entry(const std::string& name, const std::string& target) {
    return stored(name, target).with([](CentralEntry& entry) {
        entry.external_attributes = 0120777U << 16;
    });
}

/// The archive that holds them.
inline std::string archive_with(std::vector<MadeEntry> entries) {
    Bytes bytes;
    Bytes directory;
    for (MadeEntry& made : entries) {
        made.central.local_offset = bytes.size();
        append_local_header(bytes, made.local, made.wide);
        append_all(bytes, made.data);
        append_all(bytes, made.after);
        append_central_entry(directory, made.central);
    }
    return archive_of(std::move(bytes), directory, entries.size());
}

/// A data descriptor, in 32 or 64 bits.
template <typename Size>
std::string descriptor_of(const CentralEntry& entry, bool signature = true) {
    Bytes bytes;
    if (signature) append(bytes, descriptor_signature);
    append(bytes, entry.crc, static_cast<Size>(entry.packed_size), static_cast<Size>(entry.size));
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
