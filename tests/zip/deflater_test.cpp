// Pieces compressed on their own that join into one deflate stream.
#include "deflater.h"

#include <gtest/gtest.h>

#include "tests/zip/plain_reader.h"
#include "tests/zip/test_folder.h"
#include "worker_pool.h"

namespace kovrel::zip {
namespace {

using test::compressible;
using test::incompressible;

ByteView bytes_of(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

void fill(Piece& piece, const std::string& data, std::size_t start, std::size_t length) {
    piece.dictionary_length = std::min(start, dictionary_size);
    const std::size_t from = start - piece.dictionary_length;
    std::copy_n(data.begin() + static_cast<std::ptrdiff_t>(from), piece.dictionary_length + length,
                piece.window.begin() +
                    static_cast<std::ptrdiff_t>(dictionary_size - piece.dictionary_length));
    piece.length = length;
    piece.last = start + length == data.size();
}

std::string deflate_in_pieces(const std::string& data, std::size_t step, int level) {
    PieceDeflater deflater(level);
    Piece piece;
    std::string packed;
    std::uint32_t crc = 0;
    std::size_t start = 0;
    do {
        fill(piece, data, start, std::min(step, data.size() - start));
        deflater.run(piece);
        packed.append(piece.packed_data().begin(), piece.packed_data().end());
        crc = static_cast<std::uint32_t>(
            crc32_combine(crc, piece.crc, static_cast<z_off_t>(piece.length)));
        start += piece.length;
    } while (!piece.last);
    EXPECT_EQ(crc, crc32(0, bytes_of(data).data(), static_cast<uInt>(data.size())));
    return packed;
}

TEST(ZipDeflater, PiecesJoinIntoOneStream) {
    const std::string mixed =
        compressible(300'000, 1) + incompressible(600'000, 2) + compressible(90'000, 3);
    for (const int level : {1, 6, 9}) {
        for (const std::size_t step : {std::size_t{1000}, std::size_t{40'000}, piece_size}) {
            EXPECT_EQ(test::inflate_raw(deflate_in_pieces(mixed, step, level), mixed.size()),
                      mixed);
        }
    }
    for (const std::size_t size : {1U, 2U, 3U, 1000U}) {
        const std::string data = compressible(size, 4);
        EXPECT_EQ(test::inflate_raw(deflate_in_pieces(data, 1, 6), size), data);
    }
}

TEST(ZipDeflater, IncompressibleDataGrowsByItsBlockHeadersAlone) {
    const std::string data = incompressible(piece_size, 5);
    const std::string packed = deflate_in_pieces(data, piece_size, 6);
    EXPECT_EQ(packed.size(), data.size() + std::size_t{5} * 5);
    EXPECT_EQ(test::inflate_raw(packed, data.size()), data);
}

TEST(ZipDeflater, ThePieceBeforeIsTheDictionary) {
    const std::string half = incompressible(30'000, 6);
    const std::string packed = deflate_in_pieces(half + half, half.size(), 6);
    EXPECT_LT(packed.size(), half.size() + 2000);
}

// Zlib's own streams, as other programs make them.
std::size_t size_by_zlib(const std::string& data, int level) {
    z_stream stream{};
    EXPECT_EQ(deflateInit2(&stream, level, Z_DEFLATED, raw_deflate_window, 8, Z_DEFAULT_STRATEGY),
              Z_OK);
    const Owned<z_stream*, &deflateEnd> end(&stream);
    Bytes packed(data.size());
    stream.next_in = const_cast<Bytef*>(bytes_of(data).data());
    stream.avail_in = static_cast<uInt>(data.size());
    stream.next_out = packed.data();
    stream.avail_out = static_cast<uInt>(packed.size());
    EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
    return packed.size() - stream.avail_out;
}

TEST(ZipDeflater, TheUsualLevelPacksTextsAsSmallAsOthersWithinOnePercent) {
    const std::string text = compressible(200'000, 8);
    const std::size_t usual = deflate_in_pieces(text, piece_size, 6).size();
    EXPECT_LE(usual, size_by_zlib(text, 6) * 101 / 100);
    EXPECT_GT(usual, size_by_zlib(text, 6));  // which takes longer
    EXPECT_LT(usual, size_by_zlib(text, 5));
    EXPECT_EQ(deflate_in_pieces(text, piece_size, 9).size(), size_by_zlib(text, 9));
}

TEST(ZipDeflater, Level0ComputesOnlyTheChecksum) {
    Piece piece;
    const std::string data = compressible(5000, 7);
    fill(piece, data, 0, data.size());
    PieceDeflater(0).run(piece);
    EXPECT_EQ(piece.packed_length, 0U);
    EXPECT_EQ(piece.crc, crc32(0, bytes_of(data).data(), 5000));
}

TEST(ZipWorkerPool, PiecesComeBackInOrderWithAnyNumberOfThreads) {
    const std::string data = compressible(3'000'000, 13);
    std::vector<std::string> results;
    for (const unsigned threads : {1U, 2U, 5U}) {
        WorkerPool pool(threads, 6);
        std::string packed;
        std::size_t start = 0;
        std::size_t on_their_way = 0;
        while (start < data.size() || on_their_way > 0) {
            std::unique_ptr<Piece> piece = start < data.size() ? pool.free_piece() : nullptr;
            if (piece) {
                fill(*piece, data, start, std::min(piece_size, data.size() - start));
                start += piece->length;
                pool.submit(std::move(piece));
                ++on_their_way;
                continue;
            }
            piece = pool.take();
            --on_their_way;
            packed.append(piece->packed_data().begin(), piece->packed_data().end());
            pool.give_back(std::move(piece));
        }
        results.push_back(packed);
    }
    EXPECT_EQ(test::inflate_raw(results[0], data.size()), data);
    EXPECT_EQ(results[1], results[0]);
    EXPECT_EQ(results[2], results[0]);
}

TEST(ZipWorkerPool, CanBeDestroyedWithPiecesInIt) {
    const std::string data = compressible(piece_size, 14);
    for (const unsigned threads : {1U, 3U}) {
        std::unique_ptr<Piece> taken;
        std::size_t submitted = 0;
        {
            WorkerPool pool(threads, 9);
            while (std::unique_ptr<Piece> piece = pool.free_piece()) {
                fill(*piece, data, 0, data.size());
                pool.submit(std::move(piece));
                ++submitted;
            }
            taken = pool.take();
        }
        // Two for each thread and six more; a single thread is never ahead of itself.
        EXPECT_EQ(submitted, threads == 1 ? 1U : 2 * threads + 6);
        // Outlives the pool, whole: its thread wrote nothing into it afterwards.
        EXPECT_EQ(test::inflate_raw({taken->packed_data().begin(), taken->packed_data().end()},
                                    data.size()),
                  data);
    }
}

}  // namespace
}  // namespace kovrel::zip
