// Recognising data that is compressed already, up to the last byte on either side of its limits.
#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <random>

#include "deflater.h"
#include "tests/zip/test_folder.h"

namespace kovrel::zip {
namespace {

using test::compressible;
using test::incompressible;

constexpr std::size_t block_size = std::size_t{16} * 1024;

bool is_left_alone(const std::string& data, std::size_t known = 0) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(data.data());
    return looks_incompressible({bytes + known, data.size() - known}, known);
}

/// A block of random order whose values occur 64 times each, but for pairs of values with so many
/// more and so many less. The sum of the squares of the counts grows by twice the square of each.
std::string block_with(std::initializer_list<std::size_t> differences, unsigned seed) {
    std::array<std::size_t, 256> counts{};
    counts.fill(block_size / 256);
    std::size_t value = 0;
    for (const std::size_t difference : differences) {
        counts[value++] += difference;
        counts[value++] -= difference;
    }
    std::string block;
    for (value = 0; value < counts.size(); ++value) {
        block.append(counts[value], static_cast<char>(value));
    }
    std::shuffle(block.begin(), block.end(), std::mt19937(seed));
    return block;
}

/// Random bytes in which `count` bytes from `place` on are those from 40 bytes before: four bytes
/// are repeated at three places less.
std::string with_repeats(std::size_t size, std::size_t place, std::size_t count) {
    std::string data = incompressible(size, 3);
    data.replace(place, count, data.substr(place - 40, count));
    return data;
}

TEST(ZipIncompressible, RandomBytesAreAndOthersAreNot) {
    EXPECT_TRUE(is_left_alone(incompressible(piece_size, 8)));
    EXPECT_TRUE(is_left_alone(incompressible(5000, 9)));
    EXPECT_TRUE(is_left_alone(incompressible(4096, 9)));
    EXPECT_FALSE(is_left_alone(incompressible(4095, 9)));
    EXPECT_FALSE(is_left_alone(compressible(piece_size, 10)));
    EXPECT_FALSE(is_left_alone(std::string(piece_size, '\0')));
    EXPECT_FALSE(looks_incompressible({}));
}

TEST(ZipIncompressible, ASmallReadablePartOrARepetitionIsSeen) {
    const std::string noise = incompressible(200'000, 11);
    EXPECT_FALSE(is_left_alone(noise + compressible(16'000, 12)));
    EXPECT_FALSE(is_left_alone(noise + noise.substr(noise.size() - 20'000)));
    // The same bytes further back than deflate can reach do not help it.
    EXPECT_TRUE(is_left_alone(noise + noise.substr(0, 20'000)));
}

TEST(ZipIncompressible, ValuesMayDifferInNumberByASixteenth) {
    // The limit is 1,130,432, reached with 1,048,576 and twice these squares.
    const std::string even = block_with({64, 64, 64, 64, 64, 64, 64, 64, 64, 63, 9, 3, 2, 1}, 1);
    const std::string uneven =
        block_with({64, 64, 64, 64, 64, 64, 64, 64, 64, 63, 9, 3, 2, 1, 1}, 2);
    EXPECT_TRUE(is_left_alone(even));
    EXPECT_FALSE(is_left_alone(uneven));
    // Each block is looked at.
    EXPECT_FALSE(is_left_alone(even + uneven));
    EXPECT_FALSE(is_left_alone(uneven + even));
}

TEST(ZipIncompressible, OnePlaceIn512MayRepeatWhatStoodBefore) {
    EXPECT_TRUE(is_left_alone(with_repeats(block_size, 6000, 32 + 3)));
    EXPECT_FALSE(is_left_alone(with_repeats(block_size, 6000, 33 + 3)));
}

TEST(ZipIncompressible, RepeatsAreCountedUpToTheLastByte) {
    EXPECT_TRUE(is_left_alone(with_repeats(block_size, block_size - 35, 35)));
    EXPECT_FALSE(is_left_alone(with_repeats(block_size, block_size - 36, 36)));
}

TEST(ZipIncompressible, BytesBeforeAPieceAreLookedBackToButNotCounted) {
    const std::size_t known = 8192;
    // From the piece's first byte on.
    EXPECT_TRUE(is_left_alone(with_repeats(known + block_size, known, 35), known));
    EXPECT_FALSE(is_left_alone(with_repeats(known + block_size, known, 36), known));
    EXPECT_TRUE(is_left_alone(with_repeats(known + block_size, known - 1, 36), known));
    EXPECT_TRUE(is_left_alone(with_repeats(known + block_size, 100, 400), known));
}

}  // namespace
}  // namespace kovrel::zip
