#include "ui/drawn_icon.h"

#include <gtest/gtest.h>
#include <set>

namespace kovrel {
namespace {

constexpr std::uint32_t disc = 0xC42026;
constexpr std::uint32_t white = 0xFFFFFF;

std::uint32_t opacity(std::uint32_t pixel) {
    return pixel >> 24U;
}
std::uint32_t color(std::uint32_t pixel) {
    return pixel & 0xFFFFFFU;
}

TEST(DrawnIcon, IsAWhiteCrossOnARedDiscOnTransparent) {
    for (const int size : {16, 32, 48, 256}) {
        const auto pixels = draw_sign(Sign::rejected, size);
        const auto side = static_cast<std::size_t>(size);
        ASSERT_EQ(pixels.size(), side * side);
        EXPECT_EQ(pixels.front(), 0U);
        EXPECT_EQ(pixels.back(), 0U);
        EXPECT_EQ(pixels[side / 2 * side + side / 2], 0xFFFFFFFFU);
        EXPECT_EQ(pixels[side / 2 * side + side / 8], 0xFF000000U | disc);
    }
}

TEST(DrawnIcon, TheRimHasTheColourOfTheDisc) {
    for (const int size : {16, 20, 32, 48, 64}) {
        std::set<std::uint32_t> opacities;
        for (const std::uint32_t pixel : draw_sign(Sign::rejected, size)) {
            opacities.insert(opacity(pixel));
            if (opacity(pixel) == 0 || opacity(pixel) == 255) continue;
            EXPECT_EQ(color(pixel), disc) << size;
        }
        EXPECT_GT(opacities.size(), 4U) << size;
    }
}

TEST(DrawnIcon, EverySignHasSoftEdgesAndAClearCorner) {
    for (const Sign sign : {Sign::accept, Sign::papers, Sign::accepted, Sign::rejected}) {
        for (int size = 1; size <= 64; ++size) {
            const auto pixels = draw_sign(sign, size);
            ASSERT_EQ(pixels.size(), static_cast<std::size_t>(size * size));
            if (size < 16) continue;
            EXPECT_EQ(pixels.front(), 0U);
            std::size_t seen = 0;
            for (const std::uint32_t pixel : pixels) seen += opacity(pixel) > 0 ? 1 : 0;
            EXPECT_GT(seen, pixels.size() / 20);
            EXPECT_LT(seen, pixels.size());
        }
    }
    EXPECT_EQ(color(draw_sign(Sign::accepted, 16)[8]), 0x16843AU);
    EXPECT_NE(color(draw_sign(Sign::accepted, 16)[8]), white);
}

}  // namespace
}  // namespace kovrel
