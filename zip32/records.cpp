#include "records.h"

#include <algorithm>

#include "extra_fields.h"

namespace kovrel::zip {
namespace {

constexpr std::uint16_t zip64_field_id = 1;
constexpr std::uint16_t zip64_version = 45;

std::string text_at(ByteView bytes, std::size_t offset, std::size_t length) {
    const ByteView part = bytes.subspan(offset, length);
    return {part.begin(), part.end()};
}

// Takes the next 64-bit value of the ZIP64 field where the 32-bit one says so.
bool widen(std::uint64_t& value, ByteView& field) {
    if (value != in_zip64) {
        return true;
    }
    if (field.size() < 8) {
        return false;
    }
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
        if (value >= in_zip64) {
            append(values, value);
        }
    }
    if (values.empty()) {
        return values;
    }
    Bytes field;
    append(field, zip64_field_id);
    append(field, static_cast<std::uint16_t>(values.size()));
    append_all(field, values);
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
    if (directory.size() < length) {
        return std::nullopt;
    }
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

    const std::string_view found = find_extra_field(extra, zip64_field_id);
    ByteView wide(reinterpret_cast<const std::uint8_t*>(found.data()), found.size());
    if (!widen(entry.size, wide) || !widen(entry.packed_size, wide) ||
        !widen(entry.local_offset, wide) || (volume != 0 && volume != in_zip64_short)) {
        return std::nullopt;
    }
    entry.extra = without_extra_field(extra, zip64_field_id);
    return entry;
}

void append_central_entry(Bytes& bytes, const CentralEntry& entry) {
    const Bytes wide = zip64_field(entry);
    append(bytes, central_signature);
    append(bytes, entry.made_by);
    append(bytes,
           wide.empty() ? entry.version_needed : std::max(entry.version_needed, zip64_version));
    append(bytes, entry.flags);
    append(bytes, entry.method);
    append(bytes, entry.modified.time);
    append(bytes, entry.modified.date);
    append(bytes, entry.crc);
    append(bytes, narrow(entry.packed_size));
    append(bytes, narrow(entry.size));
    append(bytes, static_cast<std::uint16_t>(entry.name.size()));
    append(bytes, static_cast<std::uint16_t>(wide.size() + entry.extra.size()));
    append(bytes, static_cast<std::uint16_t>(entry.comment.size()));
    append(bytes, std::uint16_t{0});
    append(bytes, entry.internal_attributes);
    append(bytes, entry.external_attributes);
    append(bytes, narrow(entry.local_offset));
    append_all(bytes, entry.name);
    append_all(bytes, wide);
    append_all(bytes, entry.extra);
    append_all(bytes, entry.comment);
}

void append_local_header(Bytes& bytes, const CentralEntry& entry, bool zip64) {
    append(bytes, local_signature);
    append(bytes, zip64 ? std::max(entry.version_needed, zip64_version) : entry.version_needed);
    append(bytes, entry.flags);
    append(bytes, entry.method);
    append(bytes, entry.modified.time);
    append(bytes, entry.modified.date);
    append(bytes, entry.crc);
    append(bytes, zip64 ? in_zip64 : narrow(entry.packed_size));
    append(bytes, zip64 ? in_zip64 : narrow(entry.size));
    append(bytes, static_cast<std::uint16_t>(entry.name.size()));
    append(bytes, static_cast<std::uint16_t>(zip64 ? 20 : 0));
    append_all(bytes, entry.name);
    if (zip64) {
        append(bytes, zip64_field_id);
        append(bytes, std::uint16_t{16});
        append(bytes, entry.size);
        append(bytes, entry.packed_size);
    }
}

void append_directory_end(Bytes& bytes, const DirectoryEnd& end, std::uint64_t position) {
    if (end.entry_count >= in_zip64_short || end.size >= in_zip64 || end.offset >= in_zip64) {
        append(bytes, end64_signature);
        append(bytes, std::uint64_t{end64_record_size - 12});
        append(bytes, zip64_version);
        append(bytes, zip64_version);
        append(bytes, std::uint32_t{0});
        append(bytes, std::uint32_t{0});
        append(bytes, end.entry_count);
        append(bytes, end.entry_count);
        append(bytes, end.size);
        append(bytes, end.offset);
        append(bytes, locator64_signature);
        append(bytes, std::uint32_t{0});
        append(bytes, position);
        append(bytes, std::uint32_t{1});
    }
    append(bytes, end_signature);
    append(bytes, std::uint16_t{0});
    append(bytes, std::uint16_t{0});
    append(bytes, narrow_short(end.entry_count));
    append(bytes, narrow_short(end.entry_count));
    append(bytes, narrow(end.size));
    append(bytes, narrow(end.offset));
    append(bytes, static_cast<std::uint16_t>(end.comment.size()));
    append_all(bytes, end.comment);
}

}  // namespace kovrel::zip
