#include "ui/drawn_icon.h"

#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <string_view>

namespace kovrel {
namespace {

constexpr std::uint32_t disc = 0xC42026;
constexpr std::uint32_t white_paper = 0xFFFFFF;

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
    EXPECT_NE(color(draw_sign(Sign::accepted, 16)[8]), white_paper);
}

char sixteenths(double share) {
    constexpr std::string_view characters = ".123456789abcdef#";
    return characters.at(static_cast<std::size_t>(std::lround(share * 16)));
}

/// A sign in white and one colour, a line for each row of pixels: how opaque each is, and how much
/// white is in it, in sixteenths.
std::string picture_of(Sign sign, int size, std::uint32_t other) {
    const auto pixels = draw_sign(sign, size);
    const auto side = static_cast<std::size_t>(size);
    std::string picture;
    for (std::size_t row = 0; row < side; ++row) {
        std::string whites;
        for (std::size_t column = 0; column < side; ++column) {
            const std::uint32_t pixel = pixels[row * side + column];
            const double opaque = opacity(pixel) / 255.0;
            double white = 0;
            for (const unsigned shift : {0U, 8U, 16U}) {
                const unsigned without = other >> shift & 0xFFU;
                const unsigned with = pixel >> shift & 0xFFU;
                const double part = (static_cast<double>(with) - without) / (255.0 - without);
                if (shift != 0 && opaque > 0) {
                    EXPECT_NEAR(part, white, 0.02) << row << ", " << column;
                }
                white = part;
            }
            picture += sixteenths(opaque);
            whites += sixteenths(white * opaque);
            if (opaque > 0 && whites.back() == '.') {
                EXPECT_EQ(color(pixel), other) << row << ", " << column;
            }
        }
        picture += "  " + whites + "\n";
    }
    return picture;
}

// The pictures were looked at: a check mark, two sheets with two lines each, a check mark and a
// cross on discs.
TEST(DrawnIcon, TheSignsOfSixteenPixels) {
    const std::string check =
        "................  ................\n"
        "................  ................\n"
        ".............44.  ................\n"
        "............5##2  ................\n"
        "...........3f#e1  ................\n"
        "..........1e#f3.  ................\n"
        "..........d##5..  ................\n"
        ".77......a##7...  ................\n"
        "3##a....7##a....  ................\n"
        ".d##a..5##d.....  ................\n"
        "..a##d4f#e1.....  ................\n"
        "...a####f3......  ................\n"
        "....a###5.......  ................\n"
        ".....8#6........  ................\n"
        "................  ................\n"
        "................  ................\n";
    EXPECT_EQ(picture_of(Sign::accept, 16, 0x16843A), check);
    const std::string papers =
        "................  ................\n"
        ".#########......  ................\n"
        ".#########......  ..#######.......\n"
        ".#########......  ..#######.......\n"
        ".#########......  ..#8...8#.......\n"
        ".##############.  ..####..........\n"
        ".##############.  ..####.#######..\n"
        ".##############.  ..#8...#######..\n"
        ".##############.  ..####.#8...8#..\n"
        ".##############.  ..####.#######..\n"
        ".##############.  .......#######..\n"
        "......#########.  .......#8...8#..\n"
        "......#########.  .......#######..\n"
        "......#########.  .......#######..\n"
        "......#########.  ................\n"
        "................  ................\n";
    EXPECT_EQ(picture_of(Sign::papers, 16, 0x4A5868), papers);
    const std::string check_on_disc =
        ".....158851.....  ................\n"
        "...1a######a1...  ................\n"
        "..3f########f3..  ................\n"
        ".1f##########f1.  ................\n"
        ".a############a.  ...........87...\n"
        "1##############1  ..........6#d...\n"
        "5##############5  .........4#f3...\n"
        "8##############8  ...55...3f#4....\n"
        "8##############8  ...d#6.1d#6.....\n"
        "5##############5  ...3f#8c#a......\n"
        "1##############1  ....3f##c.......\n"
        ".a############a.  .....3dd1.......\n"
        ".1f##########f1.  ................\n"
        "..3f########f3..  ................\n"
        "...1a######a1...  ................\n"
        ".....158851.....  ................\n";
    EXPECT_EQ(picture_of(Sign::accepted, 16, 0x16843A), check_on_disc);
    const std::string cross_on_disc =
        ".....158851.....  ................\n"
        "...1a######a1...  ................\n"
        "..3f########f3..  ................\n"
        ".1f##########f1.  ................\n"
        ".a############a.  ....bc1..1cb....\n"
        "1##############1  ....c#d11d#c....\n"
        "5##############5  ....1d#dd#d1....\n"
        "8##############8  .....1d##d1.....\n"
        "8##############8  .....1d##d1.....\n"
        "5##############5  ....1d#dd#d1....\n"
        "1##############1  ....c#d11d#c....\n"
        ".a############a.  ....bc1..1cb....\n"
        ".1f##########f1.  ................\n"
        "..3f########f3..  ................\n"
        "...1a######a1...  ................\n"
        ".....158851.....  ................\n";
    EXPECT_EQ(picture_of(Sign::rejected, 16, 0xC42026), cross_on_disc);
}

// Here the points that a pixel is computed from lie on the edges of the sheets and their lines.
TEST(DrawnIcon, TheEdgesBelongToTheSigns) {
    const std::string papers =
        "9c6.  482.\n"
        "c#e9  6694\n"
        "9e#c  4886\n"
        ".6c9  .284\n";
    EXPECT_EQ(picture_of(Sign::papers, 4, 0x4A5868), papers);
    const std::string check_on_disc =
        "3cc3  ....\n"
        "c##c  ..62\n"
        "c##c  195.\n"
        "3cc3  ....\n";
    EXPECT_EQ(picture_of(Sign::accepted, 4, 0x16843A), check_on_disc);
    const std::string cross_on_disc =
        "3cc3  ....\n"
        "c##c  .aa.\n"
        "c##c  .aa.\n"
        "3cc3  ....\n";
    EXPECT_EQ(picture_of(Sign::rejected, 4, 0xC42026), cross_on_disc);
}

}  // namespace
}  // namespace kovrel
