// Reads the files to pack ahead of the writer, piece by piece, and has the worker pool compress the
// pieces; hands them out in the same order. Never holds a whole file.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "file_access.h"
#include "worker_pool.h"

namespace kovrel::zip {

class PieceFeeder {
 public:
    /// `paths` in the order in which the writer will ask for them. `taken` is called with the
    /// length of each piece that is handed out.
    PieceFeeder(std::vector<std::string> paths, WorkerPool& pool,
                std::function<void(std::size_t)> taken);

    /// Goes on to the next file, once all pieces of the one before have been taken. Null when the
    /// file cannot be opened; valid until the next call.
    [[nodiscard]] const InputFile* next_file();
    /// The current file's next piece, compressed; the file's last piece is marked. A file of no
    /// bytes, or of a whole number of pieces, ends in a piece without data.
    /// Throws ZipError read_failed, what the compression threw and what `taken` throws.
    [[nodiscard]] std::unique_ptr<Piece> next_piece();
    void give_back(std::unique_ptr<Piece> piece) { pool_.give_back(std::move(piece)); }

 private:
    void read_ahead();
    void open_next();
    void fill(Piece& piece);

    std::vector<std::string> paths_;
    WorkerPool& pool_;
    const std::function<void(std::size_t)> taken_;
    std::size_t next_path_ = 0;
    // The writer's file, then those read ahead; nothing stands for one that cannot be opened.
    std::deque<std::optional<InputFile>> files_;
    bool writer_started_ = false;
    bool reading_ = false;      // whether files_.back() has more to read
    std::uint64_t offset_ = 0;  // in files_.back()
    Bytes tail_;                // the bytes before offset_, up to a dictionary's size
};

}  // namespace kovrel::zip
