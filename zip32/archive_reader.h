// An existing archive: its entries and where the bytes of each lie, to be copied as they are.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "file_access.h"
#include "output_buffer.h"
#include "records.h"

namespace kovrel::zip {

/// An entry and the extent of its bytes in the archive: local header, data and the data descriptor
/// where there is one.
struct OldEntry {
    CentralEntry central;
    std::uint64_t start = 0;
    std::uint64_t length = 0;
};

class ArchiveReader {
 public:
    /// Reads the central directory and finds every entry's extent.
    /// Throws ZipError: cannot_open_file; unexpected_end where data lies past the archive's end;
    /// bad_archive for anything else that cannot be updated without loss (a broken directory,
    /// several volumes, an encrypted directory, entries that overlap); read_failed.
    explicit ArchiveReader(const std::string& path);

    /// In the order of the central directory.
    [[nodiscard]] const std::vector<OldEntry>& entries() const noexcept { return entries_; }
    /// The bytes before the first entry (the program of a self-extracting archive).
    [[nodiscard]] std::uint64_t prefix_size() const noexcept { return prefix_size_; }
    [[nodiscard]] const std::string& comment() const noexcept { return end_.comment; }

    /// Fills `room` from `offset` of the file unless that ends before; the count of bytes read. May
    /// be called on several threads at once. Throws ZipError read_failed.
    std::size_t read_at(std::uint64_t offset, std::span<std::uint8_t> room) const {
        return file_.read_at(offset, room);
    }
    /// Copies bytes of the archive to `output`, and calls `copied` after each piece. Throws
    /// ZipError unexpected_end or read_failed.
    void copy(std::uint64_t start, std::uint64_t length, OutputBuffer& output,
              const std::function<void()>& copied) const;

 private:
    void find_directory();
    bool accept_end(std::uint64_t position, ByteView record);
    bool accept_end64(const DirectoryEnd& narrow, std::uint64_t end_position);
    bool place_directory(const DirectoryEnd& end, std::uint64_t after);
    void read_entries();
    void locate(OldEntry& entry) const;
    [[nodiscard]] std::uint64_t descriptor_length(const CentralEntry& entry,
                                                  std::uint64_t position) const;
    void check_extents();
    [[nodiscard]] Bytes read(std::uint64_t offset, std::size_t length) const;

    InputFile file_;
    std::uint64_t file_size_;
    DirectoryEnd end_;
    std::uint64_t directory_start_ = 0;  // in the file
    std::uint64_t base_ = 0;             // where the archive's own offsets count from
    std::uint64_t prefix_size_ = 0;
    std::vector<OldEntry> entries_;
};

}  // namespace kovrel::zip
