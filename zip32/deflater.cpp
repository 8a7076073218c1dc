#include "deflater.h"

#include <algorithm>
#include <new>

#include "zip_error.h"

namespace kovrel::zip {
namespace {

constexpr int memory_level = 8;
// More than zlib's bound for a piece (which is below 0.1 % over its size) and what ends it.
constexpr std::size_t packed_room = piece_size + piece_size / 8 + 1024;
constexpr std::size_t largest_stored_block = 0xFFFF;

// At the usual level zlib follows up to 128 earlier places of each three bytes. Half as many, and a
// quarter where four bytes are matched already, take 0.7 to 0.8 of the time and make texts at most
// one percent larger.
constexpr int usual_level = 6;
constexpr int good_length = 4;
constexpr int lazy_length = 16;
constexpr int nice_length = 128;
constexpr int longest_chain = 64;

// Deflate's uncompressed blocks: a byte that says whether it is the last, the length, its
// complement and the bytes. The stream is at a byte boundary where a piece begins.
void store_in_stream(Piece& piece) {
    piece.packed.clear();
    ByteView rest = piece.data();
    while (!rest.empty()) {
        const ByteView block = rest.first(std::min(rest.size(), largest_stored_block));
        rest = rest.subspan(block.size());
        const auto length = static_cast<std::uint16_t>(block.size());
        append(piece.packed, static_cast<std::uint8_t>(piece.last && rest.empty() ? 1 : 0), length,
               static_cast<std::uint16_t>(~length));
        append_all(piece.packed, block);
    }
    piece.packed_length = piece.packed.size();
}

}  // namespace

Piece::Piece() : window(dictionary_size + piece_size), packed(packed_room) {}

PieceDeflater::PieceDeflater(int level) : level_(level) {
    if (level_ == 0) return;
    if (deflateInit2(&stream_, level_, Z_DEFLATED, raw_deflate_window, memory_level,
                     Z_DEFAULT_STRATEGY) != Z_OK) {
        throw std::bad_alloc();
    }
    stream_end_.reset(&stream_);
}

void PieceDeflater::run(Piece& piece) {
    const ByteView data = piece.data();
    piece.crc = static_cast<std::uint32_t>(crc32(0, data.data(), static_cast<uInt>(data.size())));
    if (level_ == 0) return;
    if (looks_incompressible(data, piece.dictionary_length)) {
        store_in_stream(piece);
        return;
    }
    piece.packed.resize(packed_room);
    deflateReset(&stream_);
    if (level_ == usual_level) {
        deflateTune(&stream_, good_length, lazy_length, nice_length, longest_chain);
    }
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
