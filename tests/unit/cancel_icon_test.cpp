#include "progress/cancel_icon.h"

#include <gtest/gtest.h>

namespace kovrel {
namespace {

TEST(CancelIcon, IsAWhiteCrossOnARedDiscWithNothingAround) {
    for (const int size : {16, 32, 48, 256}) {
        const auto pixels = cancel_icon(size);
        const auto side = static_cast<std::size_t>(size);
        ASSERT_EQ(pixels.size(), side * side);
        EXPECT_EQ(pixels.front(), 0U);
        EXPECT_EQ(pixels.back(), 0U);
        EXPECT_EQ(pixels[side / 2 * side + side / 2], 0xFFFFFFFFU);
        EXPECT_EQ(pixels[side / 2 * side + side / 5], 0xFFC82828U);
    }
}

TEST(CancelIcon, ColoursNeverExceedTheirOpacity) {
    for (int size = 1; size <= 64; ++size) {
        for (const std::uint32_t pixel : cancel_icon(size)) {
            const std::uint32_t opacity = pixel >> 24;
            EXPECT_LE(pixel >> 16 & 0xFF, opacity);
            EXPECT_LE(pixel >> 8 & 0xFF, opacity);
            EXPECT_LE(pixel & 0xFF, opacity);
        }
    }
}

}  // namespace
}  // namespace kovrel
