#include "entry_reader.h"

#include <algorithm>
#include <new>

#include "deflater.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

// Holds the largest local header whole: 30 bytes, and two texts of up to 65,535.
constexpr std::size_t buffer_size = std::size_t{256} * 1024;

struct Sizes {
    std::uint64_t packed = 0;
    std::uint64_t unpacked = 0;
};

// The sizes of a local header; its ZIP64 field holds both, though some programs write one alone.
std::optional<Sizes> local_sizes(ByteView header, std::string_view extra) {
    Sizes sizes{load32(header, 18), load32(header, 22)};
    ByteView wide = as_bytes(find_extra_field(extra, zip64_field_id));
    const bool both = wide.size() >= 16;
    if (sizes.unpacked == in_zip64) {
        if (wide.size() < 8) return std::nullopt;
        sizes.unpacked = load64(wide, 0);
        wide = wide.subspan(8);
    } else if (both) {
        wide = wide.subspan(8);
    }
    if (sizes.packed == in_zip64) {
        if (wide.size() < 8) return std::nullopt;
        sizes.packed = load64(wide, 0);
    }
    return sizes;
}

bool agrees(ByteView header, std::string_view name, std::string_view extra,
            const CentralEntry& entry) {
    const std::uint16_t flags = load16(header, 6);
    if (name != entry.name || load16(header, 8) != entry.method ||
        ((flags ^ entry.flags) & flags_of_encryption) != 0) {
        return false;
    }
    // With a descriptor the values follow the data, and these fields are usually zero.
    if ((flags & flag_descriptor) != 0) return true;
    const std::optional<Sizes> sizes = local_sizes(header, extra);
    return sizes && sizes->packed == entry.packed_size && sizes->unpacked == entry.size &&
           load32(header, 14) == entry.crc;
}

}  // namespace

EntryState readable_state(const CentralEntry& entry) noexcept {
    if ((entry.flags & flags_of_encryption) != 0) return EntryState::encrypted;
    const bool known = entry.method == method_store || entry.method == method_deflate;
    return known ? EntryState::done : EntryState::unknown_method;
}

EntryReader::EntryReader()
    : packed_(std::make_unique_for_overwrite<std::uint8_t[]>(buffer_size)),
      unpacked_(std::make_unique_for_overwrite<std::uint8_t[]>(buffer_size)) {
    if (inflateInit2(&stream_, raw_deflate_window) != Z_OK) throw std::bad_alloc();
    stream_end_.reset(&stream_);
}

EntryState EntryReader::read(const ArchiveReader& archive, const OldEntry& entry,
                             const std::function<void(ByteView)>& sink) {
    if (const EntryState state = readable_state(entry.central); state != EntryState::done) {
        return state;
    }
    archive_ = &archive;
    entry_ = &entry.central;
    sink_ = &sink;
    position_ = entry.start;
    packed_left_ = entry.length;
    given_ = 0;
    crc_ = crc32(0, nullptr, 0);
    if (const EntryState state = begin(entry.central, entry.length); state != EntryState::done) {
        return state;
    }
    return entry.central.method == method_store ? copy_stored() : inflate_data();
}

// Reads the local header and, with it, the beginning of the data.
EntryState EntryReader::begin(const CentralEntry& entry, std::uint64_t length) {
    if (!fill()) return EntryState::read_failed;
    const ByteView header = input_;
    if (header.size() < local_header_size) return EntryState::damaged;
    const std::size_t name_length = load16(header, 26);
    const std::size_t extra_length = load16(header, 28);
    const std::size_t data = local_header_size + name_length + extra_length;
    if (header.size() < data || length < data + entry.packed_size) return EntryState::damaged;
    const std::string_view texts(reinterpret_cast<const char*>(header.data()) + local_header_size,
                                 name_length + extra_length);
    const bool sizes_fit = entry.method != method_store || entry.packed_size == entry.size;
    if (load32(header, 0) != local_signature || !sizes_fit ||
        !agrees(header, texts.substr(0, name_length), texts.substr(name_length), entry)) {
        return EntryState::contradicting;
    }
    // The data descriptor behind the data is not part of it.
    const std::uint64_t in_memory =
        std::min<std::uint64_t>(header.size() - data, entry.packed_size);
    input_ = header.subspan(data, static_cast<std::size_t>(in_memory));
    packed_left_ = entry.packed_size - in_memory;
    return EntryState::done;
}

EntryState EntryReader::copy_stored() {
    while (!input_.empty() || packed_left_ > 0) {
        if (input_.empty() && !fill()) return EntryState::read_failed;
        if (input_.empty() || !give(input_)) return EntryState::damaged;
        input_ = {};
    }
    return verdict();
}

EntryState EntryReader::inflate_data() {
    const auto begin_piece = [this] {
        stream_.next_out = unpacked_.get();
        stream_.avail_out = buffer_size;
    };
    inflateReset(&stream_);
    begin_piece();
    for (bool ended = false; !ended;) {
        if (input_.empty() && packed_left_ > 0) {
            if (!fill()) return EntryState::read_failed;
            if (input_.empty()) return EntryState::damaged;
        }
        stream_.next_in = const_cast<Bytef*>(input_.data());
        stream_.avail_in = static_cast<uInt>(input_.size());
        // Told that nothing follows, zlib does without its window where the output is in one piece.
        const int result = inflate(&stream_, packed_left_ == 0 ? Z_FINISH : Z_NO_FLUSH);
        input_ = input_.last(stream_.avail_in);
        ended = result == Z_STREAM_END;
        if (!ended && result != Z_OK && result != Z_BUF_ERROR) return EntryState::damaged;
        if (ended || stream_.avail_out == 0) {
            if (!give({unpacked_.get(), buffer_size - stream_.avail_out}))
                return EntryState::damaged;
            begin_piece();
        } else if (input_.empty() && packed_left_ == 0) {
            return EntryState::damaged;
        }
    }
    return input_.empty() && packed_left_ == 0 ? verdict() : EntryState::damaged;
}

// Reads what comes next; nothing at the end of an archive that has become shorter. False when the
// archive cannot be read.
bool EntryReader::fill() {
    const auto wanted =
        static_cast<std::size_t>(std::min<std::uint64_t>(packed_left_, buffer_size));
    try {
        input_ = {packed_.get(), archive_->read_at(position_, {packed_.get(), wanted})};
    } catch (const ZipError&) {
        return false;
    }
    position_ += input_.size();
    packed_left_ -= input_.size();
    return true;
}

bool EntryReader::give(ByteView piece) {
    if (piece.size() > entry_->size - given_) return false;
    if (piece.empty()) return true;
    given_ += piece.size();
    crc_ = crc32(crc_, piece.data(), static_cast<uInt>(piece.size()));
    (*sink_)(piece);
    return true;
}

EntryState EntryReader::verdict() const noexcept {
    if (given_ != entry_->size) return EntryState::damaged;
    return crc_ == entry_->crc ? EntryState::done : EntryState::wrong_checksum;
}

}  // namespace kovrel::zip
