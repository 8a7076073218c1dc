// Writes an archive from front to back: entries copied from an older one, folders, and files piece
// by piece.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "archive_reader.h"
#include "file_access.h"
#include "output_buffer.h"
#include "piece_feeder.h"
#include "records.h"

namespace kovrel::zip {

class ArchiveWriter {
 public:
    /// `working` is called again and again while bytes are copied that no feeder hands out; it may
    /// throw to stop.
    ArchiveWriter(OutputBuffer& output, std::function<void()> working)
        : output_(output), working_(std::move(working)) {}

    /// An entry with its name, time and attributes; the rest comes from its data. `zoned`: with the
    /// time in UTC too.
    [[nodiscard]] static CentralEntry new_entry(const std::string& name, const FileStatus& status,
                                                bool zoned);

    void copy_prefix(const ArchiveReader& old);
    /// Copies the entry's bytes as they stand in the old archive.
    void copy_entry(const ArchiveReader& old, const OldEntry& entry);
    void add_folder(CentralEntry entry);
    /// Adds the feeder's current file, deflated or stored, whichever is smaller (stored at level
    /// 0). Throws ZipError entry_too_large when a file grows past 4 GiB while it is read.
    void add_file(CentralEntry entry, const InputFile& file, PieceFeeder& feeder, int level);
    /// Writes the central directory and the records after it. Throws ZipError.
    void finish(const std::string& comment);

    [[nodiscard]] const CentralEntry& last_entry() const { return entries_.back(); }

 private:
    void begin_entry(CentralEntry& entry, bool zip64);
    void take_pieces(CentralEntry& entry, PieceFeeder& feeder, int level);
    void store_whole(CentralEntry& entry, const InputFile& file);
    void append_entry(CentralEntry entry);

    OutputBuffer& output_;
    const std::function<void()> working_;
    std::vector<CentralEntry> entries_;
};

}  // namespace kovrel::zip
