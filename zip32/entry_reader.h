// The contents of an entry, unpacked piece by piece and checked against what the archive says.
#pragma once

#include <functional>
#include <memory>
#include <zlib.h>

#include "archive_reader.h"
#include "entry_state.h"
#include "runtime/owned.h"

namespace kovrel::zip {

/// What is known without reading: encrypted, unknown_method, or done for an entry that can be read.
[[nodiscard]] EntryState readable_state(const CentralEntry& entry) noexcept;

/// Reads entries one after the other, into the same half a megabyte of memory for any of them.
class EntryReader {
 public:
    /// Throws std::bad_alloc.
    EntryReader();
    EntryReader(const EntryReader&) = delete;
    EntryReader& operator=(const EntryReader&) = delete;

    /// Gives the contents to `sink` in pieces, never a byte more than the directory says. They are
    /// only right if the answer is done; else it is encrypted, unknown_method, contradicting,
    /// damaged, wrong_checksum or read_failed. Throws what `sink` throws.
    [[nodiscard]] EntryState read(const ArchiveReader& archive, const OldEntry& entry,
                                  const std::function<void(ByteView)>& sink);

 private:
    [[nodiscard]] EntryState begin(const CentralEntry& entry, std::uint64_t length);
    [[nodiscard]] EntryState copy_stored();
    [[nodiscard]] EntryState inflate_data();
    [[nodiscard]] bool fill();
    [[nodiscard]] bool give(ByteView piece);
    [[nodiscard]] EntryState verdict() const noexcept;

    std::unique_ptr<std::uint8_t[]> packed_;
    std::unique_ptr<std::uint8_t[]> unpacked_;
    z_stream stream_{};
    Owned<z_stream*, &inflateEnd> stream_end_;

    // Of the entry being read.
    const ArchiveReader* archive_ = nullptr;
    const CentralEntry* entry_ = nullptr;
    const std::function<void(ByteView)>* sink_ = nullptr;
    std::uint64_t position_ = 0;     // in the archive, of what is read next
    std::uint64_t packed_left_ = 0;  // from position_ on
    ByteView input_;                 // what was read and is still packed
    std::uint64_t given_ = 0;
    uLong crc_ = 0;
};

}  // namespace kovrel::zip
