// Contrast of colours, and the colours of the progress bar derived from it.
#include <gtest/gtest.h>

#include "progress/bar_colors.h"

namespace kovrel {
namespace {

constexpr Color rgb(Color red, Color green, Color blue) {
    return red | green << 8U | blue << 16U;
}
constexpr Color black = 0;
constexpr Color white = rgb(255, 255, 255);
constexpr Color cyan = rgb(26, 235, 255);

TEST(Contrast, IsThePublishedRatio) {
    EXPECT_DOUBLE_EQ(contrast(white, black), 21);
    EXPECT_DOUBLE_EQ(contrast(black, white), 21);
    EXPECT_DOUBLE_EQ(contrast(cyan, cyan), 1);
    // The greys next to the border, and the primary colours.
    EXPECT_NEAR(contrast(white, rgb(118, 118, 118)), 4.54, 0.005);
    EXPECT_NEAR(contrast(white, rgb(119, 119, 119)), 4.48, 0.005);
    EXPECT_NEAR(contrast(white, rgb(255, 0, 0)), 4.00, 0.005);
    EXPECT_NEAR(contrast(white, rgb(0, 255, 0)), 1.37, 0.005);
    EXPECT_NEAR(contrast(white, rgb(0, 0, 255)), 8.59, 0.005);
    EXPECT_NEAR(contrast(white, cyan), 1.46, 0.005);
    // A grey of the straight part of the curve, and one past it.
    EXPECT_NEAR(contrast(white, rgb(10, 10, 10)), 19.80, 0.005);
    EXPECT_NEAR(contrast(white, rgb(20, 20, 20)), 18.42, 0.005);
}

TEST(Contrast, ADarkenedColourKeepsItsHue) {
    EXPECT_EQ(darkened(cyan, 255), cyan);
    EXPECT_EQ(darkened(rgb(200, 100, 50), 51), rgb(40, 20, 10));
    EXPECT_EQ(darkened(white, 0), black);
}

TEST(BarColors, ABarIsDarkenedNoMoreThanNeeded) {
    for (const Color color : {white, cyan, rgb(51, 153, 255), rgb(0, 120, 215), rgb(255, 255, 0)}) {
        const double ratio = contrast(bar_colors(white, color).bar(), white);
        EXPECT_GE(ratio, 4.5) << std::hex << color;
        EXPECT_LT(ratio, 4.7) << std::hex << color;
    }
}

TEST(BarColors, AreTheSystemColoursIfLegible) {
    EXPECT_EQ(bar_colors(white, rgb(0, 0, 128)), (BarColors{white, rgb(0, 0, 128)}));
    EXPECT_EQ(bar_colors(white, rgb(55, 0, 110)).bar(), rgb(55, 0, 110));
    const BarColors desert = bar_colors(rgb(255, 250, 239), rgb(144, 57, 9));
    EXPECT_EQ(desert.ground, rgb(255, 250, 239));
    EXPECT_EQ(desert.bar(), rgb(144, 57, 9));
}

TEST(BarColors, ADarkBackgroundIsKept) {
    for (const Color window : {black, rgb(32, 32, 32), rgb(45, 50, 54)}) {
        for (const Color highlight : {cyan, rgb(214, 180, 253), rgb(161, 191, 222), white}) {
            EXPECT_EQ(bar_colors(window, highlight).ground, window) << std::hex << highlight;
        }
    }
}

TEST(BarColors, TheBackgroundIsWhiteIfTheBarWouldBeInvisible) {
    EXPECT_EQ(bar_colors(black, rgb(0, 0, 128)), (BarColors{white, rgb(0, 0, 128)}));
    for (const Color highlight : {rgb(0, 120, 215), cyan, rgb(255, 255, 0), white}) {
        EXPECT_EQ(bar_colors(rgb(128, 128, 128), highlight), bar_colors(white, highlight));
    }
}

TEST(BarColors, AreLegibleWithAnySystemColours) {
    for (Color window = 0; window <= white; window += 0x050B11) {
        for (Color highlight = 0; highlight <= white; highlight += 0x0B0705) {
            const BarColors colors = bar_colors(window, highlight);
            ASSERT_GE(contrast(colors.bar(), white), 4.5) << std::hex << window << highlight;
            ASSERT_GE(contrast(colors.pen, colors.ground), 4.5) << std::hex << window << highlight;
            ASSERT_GE(contrast(colors.bar(), colors.ground), 2) << std::hex << window << highlight;
        }
    }
}

}  // namespace
}  // namespace kovrel
