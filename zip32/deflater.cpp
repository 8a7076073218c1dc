#include "deflater.h"

#include <new>

#include "zip_error.h"

namespace kovrel::zip {
namespace {

constexpr int raw_deflate_window = -15;
constexpr int memory_level = 9;
// Room for what ends a piece, beyond zlib's own bound: an empty stored block, aligned.
constexpr std::size_t flush_room = 64;

}  // namespace

Piece::Piece()
    : window(dictionary_size + piece_size),
      packed(compressBound(static_cast<uLong>(piece_size)) + flush_room) {}

PieceDeflater::PieceDeflater(int level) : level_(level) {
    if (level_ > 0 && deflateInit2(&stream_, level_, Z_DEFLATED, raw_deflate_window, memory_level,
                                   Z_DEFAULT_STRATEGY) != Z_OK) {
        throw std::bad_alloc();
    }
}

PieceDeflater::~PieceDeflater() {
    if (level_ > 0) {
        deflateEnd(&stream_);
    }
}

void PieceDeflater::run(Piece& piece) {
    const ByteView data = piece.data();
    piece.crc = static_cast<std::uint32_t>(
        crc32(crc32(0, nullptr, 0), data.data(), static_cast<uInt>(data.size())));
    piece.packed_length = 0;
    if (level_ == 0) {
        return;
    }
    deflateReset(&stream_);
    if (piece.dictionary_length > 0) {
        deflateSetDictionary(&stream_, data.data() - piece.dictionary_length,
                             static_cast<uInt>(piece.dictionary_length));
    }
    stream_.next_in = const_cast<Bytef*>(data.data());
    stream_.avail_in = static_cast<uInt>(data.size());
    stream_.next_out = piece.packed.data();
    stream_.avail_out = static_cast<uInt>(piece.packed.size());
    const int result = deflate(&stream_, piece.last ? Z_FINISH : Z_SYNC_FLUSH);
    if (result != (piece.last ? Z_STREAM_END : Z_OK) || stream_.avail_in != 0 ||
        stream_.avail_out == 0) {
        throw ZipError(ZipCode::internal_error, "a piece did not fit its compressed form");
    }
    piece.packed_length = piece.packed.size() - stream_.avail_out;
}

}  // namespace kovrel::zip
