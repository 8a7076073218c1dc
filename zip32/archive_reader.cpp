#include "archive_reader.h"

#include <algorithm>
#include <utility>

#include "zip_error.h"

namespace kovrel::zip {
namespace {

constexpr std::uint64_t largest_comment = 0xFFFF;
constexpr std::size_t copy_piece = std::size_t{256} * 1024;

[[noreturn]] void refuse(const std::string& why) {
    throw ZipError(ZipCode::bad_archive, "the existing archive is not valid: " + why);
}

// Whether a field of the end record refers to the ZIP64 record or holds the same value.
bool agree(std::uint64_t narrow, std::uint64_t refers, std::uint64_t wide) {
    return narrow == refers || narrow == wide;
}

// Whether an end record stands in the comment of another one: programs disagree about which of them
// counts.
bool is_in_comment(ByteView tail, std::size_t position) {
    for (std::size_t i = 0; i < position; ++i) {
        const ByteView record = tail.subspan(i);
        if (load32(record, 0) == end_signature &&
            i + end_record_size + load16(record, 20) > position) {
            return true;
        }
    }
    return false;
}

}  // namespace

ArchiveReader::ArchiveReader(const std::string& path) : file_(path), file_size_(file_.size()) {
    find_directory();
    read_entries();
    for (OldEntry& entry : entries_) locate(entry);
    check_extents();
}

void ArchiveReader::copy(std::uint64_t start, std::uint64_t length, OutputBuffer& output,
                         const std::function<void()>& copied) const {
    Bytes piece(static_cast<std::size_t>(std::min<std::uint64_t>(length, copy_piece)));
    while (length > 0) {
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(length, piece.size()));
        const std::span<std::uint8_t> room(piece.data(), count);
        if (file_.read_at(start, room) < count) {
            throw ZipError(ZipCode::unexpected_end, "the existing archive ends too early");
        }
        output.write(room);
        start += count;
        length -= count;
        copied();
    }
}

Bytes ArchiveReader::read(std::uint64_t offset, std::size_t length) const {
    Bytes bytes(length);
    bytes.resize(file_.read_at(offset, bytes));
    return bytes;
}

// The end record stands last, before a comment of up to 65,535 bytes. When the last one found is
// not valid, none before it is tried: other programs would read another archive.
void ArchiveReader::find_directory() {
    const std::uint64_t reach =
        std::min<std::uint64_t>(file_size_, end_record_size + largest_comment);
    const std::uint64_t from = file_size_ - reach;
    const Bytes tail = read(from, static_cast<std::size_t>(reach));
    std::size_t last_cut_off = 0;
    for (std::size_t i = tail.size() < 4 ? 0 : tail.size() - 3; i-- > 0;) {
        const ByteView record = ByteView(tail).subspan(i);
        if (load32(record, 0) != end_signature) continue;
        if (record.size() < end_record_size) {
            last_cut_off = std::max(last_cut_off, i);
            continue;
        }
        // A cut-off signature within the record's own numbers does not count.
        if (last_cut_off >= i + end_record_size ||
            record.size() < end_record_size + load16(record, 20) ||
            !accept_end(from + i, record.first(end_record_size + load16(record, 20)))) {
            refuse("its end is broken");
        }
        if (is_in_comment(tail, i)) refuse("its comment holds an end of its own");
        return;
    }
    refuse("no central directory found");
}

bool ArchiveReader::accept_end(std::uint64_t position, ByteView record) {
    DirectoryEnd end{load16(record, 10), load32(record, 12), load32(record, 16), {}};
    end.comment.assign(record.begin() + end_record_size, record.end());
    if (accept_end64(end, position)) return true;
    const bool one_volume =
        load16(record, 4) == 0 && load16(record, 6) == 0 && load16(record, 8) == end.entry_count;
    return one_volume && place_directory(end, position);
}

// Takes the ZIP64 end record, if a locator right before the end record leads to one.
bool ArchiveReader::accept_end64(const DirectoryEnd& narrow, std::uint64_t end_position) {
    if (end_position < locator64_size + end64_record_size) return false;
    const std::uint64_t locator_position = end_position - locator64_size;
    const Bytes locator = read(locator_position, locator64_size);
    if (locator.size() < locator64_size || load32(locator, 0) != locator64_signature) return false;
    // Where offsets do not count bytes before the archive, the record stands before the locator.
    const std::uint64_t last_position = locator_position - end64_record_size;
    for (const std::uint64_t position : {load64(locator, 8), last_position}) {
        if (position > last_position) continue;
        const Bytes record = read(position, end64_record_size);
        if (record.size() < end64_record_size || load32(record, 0) != end64_signature ||
            load32(record, 16) != 0 || load32(record, 20) != 0 ||
            load64(record, 24) != load64(record, 32)) {
            continue;
        }
        const DirectoryEnd wide{load64(record, 32), load64(record, 40), load64(record, 48),
                                narrow.comment};
        if (!agree(narrow.entry_count, in_zip64_short, wide.entry_count) ||
            !agree(narrow.size, in_zip64, wide.size) ||
            !agree(narrow.offset, in_zip64, wide.offset)) {
            refuse("its two end records contradict each other");
        }
        if (place_directory(wide, position)) return true;
    }
    return false;
}

// The directory normally ends where the record at `after` begins, which also tells how many bytes
// stand before the archive; otherwise its offset is taken as it is.
bool ArchiveReader::place_directory(const DirectoryEnd& end, std::uint64_t after) {
    if (end.size > after || end.entry_count > end.size / central_header_size) return false;
    end_ = end;
    const std::uint64_t last_start = after - end.size;
    if (end.entry_count == 0) {
        directory_start_ = last_start;
        return true;
    }
    for (const std::uint64_t start : {last_start, end.offset}) {
        if (start < end.offset || start > last_start) continue;
        const Bytes signature = read(start, 4);
        if (signature.size() == 4 && load32(signature, 0) == central_signature) {
            directory_start_ = start;
            base_ = start - end.offset;
            return true;
        }
    }
    return false;
}

void ArchiveReader::read_entries() {
    const Bytes directory = read(directory_start_, static_cast<std::size_t>(end_.size));
    ByteView rest(directory);
    entries_.reserve(static_cast<std::size_t>(end_.entry_count));
    for (std::uint64_t i = 0; i < end_.entry_count; ++i) {
        std::optional<CentralEntry> entry = take_central_entry(rest);
        if (!entry) refuse("its central directory is broken");
        entries_.push_back({.central = std::move(*entry)});
    }
    if (rest.size() >= 4 && load32(rest, 0) == central_signature) {
        refuse("its central directory holds more entries than it says");
    }
}

void ArchiveReader::locate(OldEntry& entry) const {
    const CentralEntry& central = entry.central;
    if (central.local_offset > directory_start_ - base_) refuse("an entry lies outside it");
    entry.start = base_ + central.local_offset;
    const Bytes header = read(entry.start, local_header_size);
    if (header.size() < local_header_size || load32(header, 0) != local_signature) {
        refuse("an entry has no header");
    }
    const std::uint64_t data =
        entry.start + local_header_size + load16(header, 26) + load16(header, 28);
    if (data > directory_start_ || central.packed_size > directory_start_ - data) {
        throw ZipError(ZipCode::unexpected_end, "an entry runs past the existing archive's end");
    }
    std::uint64_t after = data + central.packed_size;
    if ((load16(header, 6) & flag_descriptor) != 0) after += descriptor_length(central, after);
    entry.length = after - entry.start;
}

// A data descriptor has an optional signature, the CRC-32 and both sizes in 32 or 64 bits; its form
// is the one with the entry's values. 0 when none matches.
std::uint64_t ArchiveReader::descriptor_length(const CentralEntry& entry,
                                               std::uint64_t position) const {
    const auto room = std::min<std::uint64_t>(24, directory_start_ - position);
    const Bytes bytes = read(position, static_cast<std::size_t>(room));
    for (const std::size_t values : {std::size_t{4}, std::size_t{0}}) {
        if (bytes.size() < values + 12 ||
            (values == 4 && load32(bytes, 0) != descriptor_signature) ||
            load32(bytes, values) != entry.crc) {
            continue;
        }
        if (bytes.size() >= values + 20 && load64(bytes, values + 4) == entry.packed_size &&
            load64(bytes, values + 12) == entry.size) {
            return values + 20;
        }
        if (load32(bytes, values + 4) == static_cast<std::uint32_t>(entry.packed_size) &&
            load32(bytes, values + 8) == static_cast<std::uint32_t>(entry.size)) {
            return values + 12;
        }
    }
    return 0;
}

// Entries that overlap are refused: copied one by one, a few bytes could unfold into any size.
void ArchiveReader::check_extents() {
    std::vector<std::pair<std::uint64_t, std::uint64_t>> extents;
    extents.reserve(entries_.size());
    for (const OldEntry& entry : entries_) {
        extents.emplace_back(entry.start, entry.start + entry.length);
    }
    std::sort(extents.begin(), extents.end());
    prefix_size_ = extents.empty() ? directory_start_ : extents.front().first;
    for (std::size_t i = 1; i < extents.size(); ++i) {
        if (extents[i - 1].second > extents[i].first) refuse("its entries overlap");
    }
}

}  // namespace kovrel::zip
