// Compression of one piece of a file, which depends only on the 32 KiB before it: pieces can be
// compressed at the same time and joined into one deflate stream.
#pragma once

#include <zlib.h>

#include "bytes.h"
#include "runtime/owned.h"

namespace kovrel::zip {

/// What zlib is told for a window of 32 KiB and no header, as archives hold deflated data.
inline constexpr int raw_deflate_window = -15;

inline constexpr std::size_t piece_size = std::size_t{256} * 1024;
inline constexpr std::size_t dictionary_size = std::size_t{32} * 1024;

/// A piece of a file with its compressed form. Its memory is allocated once.
struct Piece {
    Piece();

    /// The bytes to compress.
    [[nodiscard]] ByteView data() const {
        return ByteView(window).subspan(dictionary_size, length);
    }
    /// Where the bytes to compress are read to.
    [[nodiscard]] std::span<std::uint8_t> room() {
        return std::span(window).subspan(dictionary_size);
    }
    [[nodiscard]] ByteView packed_data() const { return ByteView(packed).first(packed_length); }

    Bytes window;                       // the bytes before the piece, then the piece
    std::size_t dictionary_length = 0;  // how many bytes before the piece are valid
    std::size_t length = 0;
    bool last = false;  // whether it ends its file
    Bytes packed;
    std::size_t packed_length = 0;
    std::uint32_t crc = 0;  // CRC-32 of data()
};

class PieceDeflater {
 public:
    /// `level` 0 to 9; 0 computes only the checksum. Throws std::bad_alloc.
    explicit PieceDeflater(int level);
    PieceDeflater(const PieceDeflater&) = delete;
    PieceDeflater& operator=(const PieceDeflater&) = delete;

    /// Fills packed and crc, which depend on the piece and the level alone. A piece that is not the
    /// last ends at a byte boundary, where the next one can follow.
    void run(Piece& piece);

 private:
    int level_;
    z_stream stream_{};
    Owned<z_stream*, &deflateEnd> stream_end_;  // null at level 0
};

/// A quick estimate: true where deflate could hardly save half a percent, since all byte values are
/// about equally frequent everywhere and almost nothing is repeated within deflate's reach. Never
/// true below 4 KiB, where deflating is as quick as this. `known`: how many bytes right before
/// `data` in memory deflate may refer back to.
[[nodiscard]] bool looks_incompressible(ByteView data, std::size_t known = 0);

}  // namespace kovrel::zip
