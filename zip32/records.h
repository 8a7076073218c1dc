// The records of an archive, as the published ZIP file format lays them out: local headers, the
// central directory's entries, their extra fields and the records at the end, ZIP64 forms included.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "bytes.h"
#include "times.h"

namespace kovrel::zip {

inline constexpr std::uint32_t local_signature = 0x04034B50;
inline constexpr std::uint32_t central_signature = 0x02014B50;
inline constexpr std::uint32_t end_signature = 0x06054B50;
inline constexpr std::uint32_t end64_signature = 0x06064B50;
inline constexpr std::uint32_t locator64_signature = 0x07064B50;
inline constexpr std::uint32_t descriptor_signature = 0x08074B50;

inline constexpr std::size_t local_header_size = 30;
inline constexpr std::size_t central_header_size = 46;
inline constexpr std::size_t end_record_size = 22;
inline constexpr std::size_t end64_record_size = 56;
inline constexpr std::size_t locator64_size = 20;

/// A 32-bit or 16-bit field of this value has its real value in a ZIP64 record.
inline constexpr std::uint32_t in_zip64 = 0xFFFFFFFF;
inline constexpr std::uint16_t in_zip64_short = 0xFFFF;

inline constexpr std::uint16_t flag_encrypted = 1U << 0;
inline constexpr std::uint16_t flag_descriptor = 1U << 3;
inline constexpr std::uint16_t flag_utf8 = 1U << 11;
/// Encrypted data, encrypted data with a header of its own, and masked header fields.
inline constexpr std::uint16_t flags_of_encryption = flag_encrypted | 1U << 6 | 1U << 13;

/// The extra field that holds a 64-bit size or offset.
inline constexpr std::uint16_t zip64_field_id = 1;

/// Extra fields that hold times.
inline constexpr std::uint16_t ntfs_field_id = 0x000A;
inline constexpr std::uint16_t unix_time_field_id = 0x5455;

inline constexpr std::uint16_t method_store = 0;
inline constexpr std::uint16_t method_deflate = 8;

/// One entry of the central directory. Sizes and the offset are the real ones, whether the archive
/// holds them in 32 or 64 bits; `extra` is without the ZIP64 field.
struct CentralEntry {
    std::uint16_t made_by = 0;
    std::uint16_t version_needed = 0;
    std::uint16_t flags = 0;
    std::uint16_t method = method_store;
    DosTime modified;
    std::uint32_t crc = 0;
    std::uint64_t packed_size = 0;
    std::uint64_t size = 0;
    std::uint16_t internal_attributes = 0;
    std::uint32_t external_attributes = 0;
    std::uint64_t local_offset = 0;
    std::string name;
    std::string extra;
    std::string comment;
};

/// Reads the entry at the front of `directory` and takes its bytes off; nothing when it is broken,
/// cut off or part of an archive in several volumes.
[[nodiscard]] std::optional<CentralEntry> take_central_entry(ByteView& directory);

void append_central_entry(Bytes& bytes, const CentralEntry& entry);

/// The local header of an entry, with the entry's extra fields. With `zip64`, both sizes are
/// written in 64 bits.
void append_local_header(Bytes& bytes, const CentralEntry& entry, bool zip64);

/// The extra field with the moment of the last modification: 0x5455, which counts seconds since
/// 1970 in 32 bits, as long as it can hold the moment, else that of NTFS, 0x000A.
[[nodiscard]] std::string moment_field(Moment modified);

/// What the records after the central directory say.
struct DirectoryEnd {
    std::uint64_t entry_count = 0;
    std::uint64_t size = 0;    // of the central directory, bytes
    std::uint64_t offset = 0;  // of the central directory
    std::string comment;       // the archive's own
};

/// With the ZIP64 records where 16 and 32 bits are not enough; `position` is where they begin.
void append_directory_end(Bytes& bytes, const DirectoryEnd& end, std::uint64_t position);

/// An entry's extra fields are a sequence of (16-bit id, 16-bit length, data). The data of the
/// first one with that id; empty when there is none or the sequence is broken before it.
[[nodiscard]] std::string_view find_extra_field(std::string_view extra, std::uint16_t id) noexcept;

/// The sequence without its fields of that id; a broken tail is kept as it is.
[[nodiscard]] std::string without_extra_field(std::string_view extra, std::uint16_t id);

}  // namespace kovrel::zip
