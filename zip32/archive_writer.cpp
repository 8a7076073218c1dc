#include "archive_writer.h"

#include "names.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

constexpr std::uint16_t version_store = 10;
constexpr std::uint16_t version_deflate = 20;
// Files from this size on get 64-bit sizes in their local header, which is written before the data:
// the margin to 4 GiB is for a file that grows while it is read.
constexpr std::uint64_t zip64_from = 0xF0000000;
// The ZIP64 field of a directory entry at its longest.
constexpr std::size_t longest_zip64_field = 28;

// Programs search for the end record from the file's end: they would find one that begins within
// the numbers of the real one and extends into the comment.
bool spells_another_end(ByteView records, const std::string& comment) {
    const ByteView end = records.last(end_record_size + comment.size());
    for (std::size_t i = 1; i + end_record_size <= end.size(); ++i) {
        if (load32(end, i) == end_signature) return true;
    }
    return false;
}

}  // namespace

CentralEntry ArchiveWriter::new_entry(const std::string& name, const FileStatus& status,
                                      bool zoned) {
    CentralEntry entry;
    entry.name = name;
    entry.made_by = made_by_this_system();
    entry.version_needed = status.folder ? version_deflate : version_store;
    entry.flags = !is_ascii(name) && is_utf8(name) ? flag_utf8 : 0;
    entry.modified = status.modified;
    entry.external_attributes = status.attributes;
    if (zoned) entry.extra = moment_field(status.moment);
    return entry;
}

void ArchiveWriter::copy_prefix(const ArchiveReader& old) {
    old.copy(0, old.prefix_size(), output_, working_);
}

void ArchiveWriter::copy_entry(const ArchiveReader& old, const OldEntry& entry) {
    CentralEntry central = entry.central;
    central.local_offset = output_.position();
    old.copy(entry.start, entry.length, output_, working_);
    append_entry(std::move(central));
}

void ArchiveWriter::add_folder(CentralEntry entry) {
    begin_entry(entry, false);
    append_entry(std::move(entry));
}

void ArchiveWriter::add_file(CentralEntry entry, const InputFile& file, PieceFeeder& feeder,
                             int level) {
    const bool zip64 = file.size() >= zip64_from;
    begin_entry(entry, zip64);
    const std::uint64_t data = output_.position();
    take_pieces(entry, feeder, level);
    if (entry.method == method_deflate && entry.packed_size >= entry.size) {
        output_.rewind(data);
        store_whole(entry, file);
    }
    if (!zip64 && entry.size >= in_zip64) {
        throw ZipError(ZipCode::entry_too_large, "grew while it was read: " + entry.name);
    }
    Bytes header;
    append_local_header(header, entry, zip64);
    output_.overwrite(entry.local_offset, header);
    append_entry(std::move(entry));
}

void ArchiveWriter::begin_entry(CentralEntry& entry, bool zip64) {
    entry.local_offset = output_.position();
    Bytes header;
    append_local_header(header, entry, zip64);
    output_.write(header);
}

void ArchiveWriter::take_pieces(CentralEntry& entry, PieceFeeder& feeder, int level) {
    bool last = false;
    for (bool first = true; !last; first = false) {
        std::unique_ptr<Piece> piece = feeder.next_piece();
        last = piece->last;
        // A file of one piece is still in memory: its smaller form is already known.
        const bool deflate = level > 0 && !(first && last && piece->packed_length >= piece->length);
        if (first) {
            entry.method = deflate ? method_deflate : method_store;
            entry.version_needed = deflate ? version_deflate : version_store;
        }
        const ByteView bytes = deflate ? piece->packed_data() : piece->data();
        output_.write(bytes);
        entry.packed_size += bytes.size();
        entry.size += piece->length;
        entry.crc = static_cast<std::uint32_t>(
            crc32_combine(entry.crc, piece->crc, static_cast<z_off_t>(piece->length)));
        feeder.give_back(std::move(piece));
    }
}

// Reads the file again, since its pieces are gone; checksum and size are those of this reading.
void ArchiveWriter::store_whole(CentralEntry& entry, const InputFile& file) {
    entry.method = method_store;
    entry.version_needed = version_store;
    entry.size = 0;
    uLong crc = crc32(0, nullptr, 0);
    Bytes buffer(piece_size);
    while (const std::size_t count = file.read_at(entry.size, buffer)) {
        const ByteView bytes = ByteView(buffer).first(count);
        crc = crc32(crc, bytes.data(), static_cast<uInt>(count));
        output_.write(bytes);
        entry.size += count;
        working_();
    }
    entry.crc = static_cast<std::uint32_t>(crc);
    entry.packed_size = entry.size;
}

void ArchiveWriter::append_entry(CentralEntry entry) {
    if (entry.extra.size() + longest_zip64_field > 0xFFFF && entry.local_offset >= in_zip64) {
        throw ZipError(ZipCode::entry_too_large, "no room for a 64-bit offset: " + entry.name);
    }
    entries_.push_back(std::move(entry));
}

void ArchiveWriter::finish(const std::string& comment) {
    DirectoryEnd end;
    end.entry_count = entries_.size();
    end.offset = output_.position();
    end.comment = comment;
    Bytes record;
    for (const CentralEntry& entry : entries_) {
        record.clear();
        append_central_entry(record, entry);
        output_.write(record);
    }
    end.size = output_.position() - end.offset;
    record.clear();
    append_directory_end(record, end, output_.position());
    if (spells_another_end(record, end.comment)) {
        end.comment.clear();
        record.clear();
        append_directory_end(record, end, output_.position());
    }
    output_.write(record);
    output_.flush();
}

}  // namespace kovrel::zip
