#include "piece_feeder.h"

#include <algorithm>

#include "zip_error.h"

namespace kovrel::zip {

PieceFeeder::PieceFeeder(std::vector<std::string> paths, WorkerPool& pool,
                         std::function<void(std::size_t)> taken)
    : paths_(std::move(paths)), pool_(pool), taken_(std::move(taken)) {}

const InputFile* PieceFeeder::next_file() {
    if (writer_started_) files_.pop_front();
    writer_started_ = true;
    read_ahead();
    const std::optional<InputFile>& file = files_.front();
    return file ? &*file : nullptr;
}

std::unique_ptr<Piece> PieceFeeder::next_piece() {
    read_ahead();
    std::unique_ptr<Piece> piece = pool_.take();
    taken_(piece->length);
    return piece;
}

void PieceFeeder::read_ahead() {
    while (reading_ || next_path_ < paths_.size()) {
        if (!reading_) {
            open_next();
            continue;
        }
        std::unique_ptr<Piece> piece = pool_.free_piece();
        if (!piece) return;
        fill(*piece);
        reading_ = !piece->last;
        pool_.submit(std::move(piece));
    }
}

void PieceFeeder::open_next() {
    std::optional<InputFile>& file = files_.emplace_back();
    try {
        file.emplace(paths_[next_path_++]);
        reading_ = true;
    } catch (const ZipError&) {
        // next_file() returns null when the writer gets there.
    }
    offset_ = 0;
    tail_.clear();
}

void PieceFeeder::fill(Piece& piece) {
    std::copy_backward(tail_.begin(), tail_.end(),
                       piece.window.begin() + static_cast<std::ptrdiff_t>(dictionary_size));
    piece.dictionary_length = tail_.size();
    piece.length = files_.back()->read_at(offset_, piece.room());
    piece.last = piece.length < piece_size;
    offset_ += piece.length;
    if (!piece.last) {
        const ByteView end = piece.data().last(dictionary_size);
        tail_.assign(end.begin(), end.end());
    }
}

}  // namespace kovrel::zip
