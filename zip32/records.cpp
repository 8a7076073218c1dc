#include "records.h"

#include <algorithm>

namespace kovrel::zip {
namespace {

constexpr std::uint16_t zip64_version = 45;

std::string text_at(ByteView bytes, std::size_t offset, std::size_t length) {
    const ByteView part = bytes.subspan(offset, length);
    return {part.begin(), part.end()};
}

// Takes the next 64-bit value of the ZIP64 field where the 32-bit one says so.
bool widen(std::uint64_t& value, ByteView& field) {
    if (value != in_zip64) return true;
    if (field.size() < 8) return false;
    value = load64(field, 0);
    field = field.subspan(8);
    return true;
}

std::uint32_t narrow(std::uint64_t value) {
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(value, in_zip64));
}

std::uint16_t narrow_short(std::uint64_t value) {
    return static_cast<std::uint16_t>(std::min<std::uint64_t>(value, in_zip64_short));
}

// The ZIP64 field of a directory entry: only what does not fit its 32 bits, in the fixed order.
Bytes zip64_field(const CentralEntry& entry) {
    Bytes values;
    for (const std::uint64_t value : {entry.size, entry.packed_size, entry.local_offset}) {
        if (value >= in_zip64) append(values, value);
    }
    if (values.empty()) return values;
    Bytes field;
    append(field, zip64_field_id, static_cast<std::uint16_t>(values.size()));
    append_all(field, values);
    return field;
}

// The fields from "version needed" to the name's length, which both headers of an entry share.
void append_shared_fields(Bytes& bytes, const CentralEntry& entry, bool zip64,
                          std::uint32_t packed_size, std::uint32_t size) {
    append(bytes, zip64 ? std::max(entry.version_needed, zip64_version) : entry.version_needed,
           entry.flags, entry.method, entry.modified.time, entry.modified.date, entry.crc,
           packed_size, size, static_cast<std::uint16_t>(entry.name.size()));
}

constexpr std::size_t field_header = 4;

// Takes the field at the front off, header included; empty when there is no complete one.
std::string_view take_extra_field(std::string_view& extra) {
    if (extra.size() < field_header) return {};
    const std::size_t length = field_header + load16(as_bytes(extra), 2);
    if (length > extra.size()) return {};
    const std::string_view field = extra.substr(0, length);
    extra.remove_prefix(length);
    return field;
}

}  // namespace

std::optional<CentralEntry> take_central_entry(ByteView& directory) {
    if (directory.size() < central_header_size || load32(directory, 0) != central_signature) {
        return std::nullopt;
    }
    const std::size_t name_length = load16(directory, 28);
    const std::size_t extra_length = load16(directory, 30);
    const std::size_t comment_length = load16(directory, 32);
    const std::size_t length = central_header_size + name_length + extra_length + comment_length;
    if (directory.size() < length) return std::nullopt;
    CentralEntry entry;
    entry.made_by = load16(directory, 4);
    entry.version_needed = load16(directory, 6);
    entry.flags = load16(directory, 8);
    entry.method = load16(directory, 10);
    entry.modified = {.date = load16(directory, 14), .time = load16(directory, 12)};
    entry.crc = load32(directory, 16);
    entry.packed_size = load32(directory, 20);
    entry.size = load32(directory, 24);
    const std::uint16_t volume = load16(directory, 34);
    entry.internal_attributes = load16(directory, 36);
    entry.external_attributes = load32(directory, 38);
    entry.local_offset = load32(directory, 42);
    entry.name = text_at(directory, central_header_size, name_length);
    const std::string extra = text_at(directory, central_header_size + name_length, extra_length);
    entry.comment =
        text_at(directory, central_header_size + name_length + extra_length, comment_length);
    directory = directory.subspan(length);

    ByteView wide = as_bytes(find_extra_field(extra, zip64_field_id));
    if (!widen(entry.size, wide) || !widen(entry.packed_size, wide) ||
        !widen(entry.local_offset, wide) || (volume != 0 && volume != in_zip64_short)) {
        return std::nullopt;
    }
    entry.extra = without_extra_field(extra, zip64_field_id);
    return entry;
}

void append_central_entry(Bytes& bytes, const CentralEntry& entry) {
    const Bytes wide = zip64_field(entry);
    append(bytes, central_signature, entry.made_by);
    append_shared_fields(bytes, entry, !wide.empty(), narrow(entry.packed_size),
                         narrow(entry.size));
    append(bytes, static_cast<std::uint16_t>(wide.size() + entry.extra.size()),
           static_cast<std::uint16_t>(entry.comment.size()), std::uint16_t{0},
           entry.internal_attributes, entry.external_attributes, narrow(entry.local_offset));
    append_all(bytes, entry.name);
    append_all(bytes, wide);
    append_all(bytes, entry.extra);
    append_all(bytes, entry.comment);
}

void append_local_header(Bytes& bytes, const CentralEntry& entry, bool zip64) {
    append(bytes, local_signature);
    append_shared_fields(bytes, entry, zip64, zip64 ? in_zip64 : narrow(entry.packed_size),
                         zip64 ? in_zip64 : narrow(entry.size));
    append(bytes, static_cast<std::uint16_t>((zip64 ? 20 : 0) + entry.extra.size()));
    append_all(bytes, entry.name);
    if (zip64) append(bytes, zip64_field_id, std::uint16_t{16}, entry.size, entry.packed_size);
    append_all(bytes, entry.extra);
}

std::string moment_field(Moment modified) {
    Bytes field;
    const std::int64_t seconds =
        static_cast<std::int64_t>(modified / moments_per_second) - unix_epoch;
    if (const auto narrowed = static_cast<std::int32_t>(seconds); narrowed == seconds) {
        constexpr std::uint8_t has_modification = 1;
        append(field, unix_time_field_id, std::uint16_t{5}, has_modification,
               static_cast<std::uint32_t>(narrowed));
    } else {
        // Of the three times the others are not known here.
        append(field, ntfs_field_id, std::uint16_t{32}, std::uint32_t{0}, std::uint16_t{1},
               std::uint16_t{24}, modified, modified, modified);
    }
    return {field.begin(), field.end()};
}

void append_directory_end(Bytes& bytes, const DirectoryEnd& end, std::uint64_t position) {
    constexpr std::uint16_t volume = 0;
    constexpr std::uint32_t wide_volume = 0;
    if (end.entry_count >= in_zip64_short || end.size >= in_zip64 || end.offset >= in_zip64) {
        constexpr std::uint64_t rest_of_record = end64_record_size - 12;
        constexpr std::uint32_t volume_count = 1;
        append(bytes, end64_signature, rest_of_record, zip64_version, zip64_version, wide_volume,
               wide_volume, end.entry_count, end.entry_count, end.size, end.offset);
        append(bytes, locator64_signature, wide_volume, position, volume_count);
    }
    const std::uint16_t count = narrow_short(end.entry_count);
    append(bytes, end_signature, volume, volume, count, count, narrow(end.size), narrow(end.offset),
           static_cast<std::uint16_t>(end.comment.size()));
    append_all(bytes, end.comment);
}

std::string_view find_extra_field(std::string_view extra, std::uint16_t id) noexcept {
    for (std::string_view field; !(field = take_extra_field(extra)).empty();) {
        if (load16(as_bytes(field), 0) == id) return field.substr(field_header);
    }
    return {};
}

std::string without_extra_field(std::string_view extra, std::uint16_t id) {
    std::string kept;
    for (std::string_view field; !(field = take_extra_field(extra)).empty();) {
        if (load16(as_bytes(field), 0) != id) kept.append(field);
    }
    return kept.append(extra);
}

}  // namespace kovrel::zip
