// Reads the files to pack ahead of the writer, one piece after the other, and hands the pieces to
// the worker pool; gives them back compressed in the same order. Never holds a whole file.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "file_access.h"
#include "worker_pool.h"

namespace kovrel::zip {

class PieceFeeder {
 public:
    /// `paths` in the order in which the writer will ask for them.
    PieceFeeder(std::vector<std::string> paths, WorkerPool& pool);

    /// Goes on to the next file. The file, or nothing when it cannot be opened; valid until the
    /// next call. The pieces of the file before have all been taken.
    [[nodiscard]] const InputFile* next_file();
    /// The current file's next piece, compressed; the file's last piece is marked. A file of no
    /// bytes, or of a whole number of pieces, ends in a piece without data.
    /// Throws ZipError read_failed or what the compression threw.
    [[nodiscard]] std::unique_ptr<Piece> next_piece();
    void give_back(std::unique_ptr<Piece> piece);

 private:
    struct Source {
        std::optional<InputFile> file;
    };

    void read_ahead();
    void open_next();
    void fill(Piece& piece);

    std::vector<std::string> paths_;
    WorkerPool& pool_;
    std::size_t next_path_ = 0;
    std::deque<Source> sources_;  // the writer's file, then those read ahead
    bool writer_started_ = false;
    bool reading_ = false;      // whether sources_.back() has more to read
    std::uint64_t offset_ = 0;  // in sources_.back()
    Bytes tail_;                // the bytes before offset_, up to a dictionary's size
};

}  // namespace kovrel::zip
