// What the comparison of pictures sees and what it forgives, tried on a picture of the verifier.
#include <gtest/gtest.h>

#include "tests/support/picture.h"

namespace kovrel::test {
namespace {

constexpr std::uint32_t face = 0xF5F5F5;
constexpr std::uint32_t white = 0xFFFFFF;
constexpr RECT close_button{364, 258, 448, 284};
constexpr RECT last_letter_on_it{417, 265, 424, 280};
constexpr RECT colon_of_a_label{87, 115, 91, 125};
constexpr RECT account_mark{302, 190, 326, 214};

class PictureComparison : public testing::Test {
 protected:
    void SetUp() override {
        const auto kept = read_picture(KOVREL_KEPT_PICTURES L"\\96.usual\\verifier_good.png");
        ASSERT_TRUE(kept);
        whole_ = *kept;
        ASSERT_EQ(whole_.at(0, whole_.height - 1), face);
    }

    [[nodiscard]] Picture filled(const RECT& part, std::uint32_t color) const {
        Picture result = whole_;
        for (int y = part.top; y < part.bottom; ++y) {
            for (int x = part.left; x < part.right; ++x) result.pixels[result.index(x, y)] = color;
        }
        return result;
    }
    [[nodiscard]] Picture moved(const RECT& part, int right, int down) const {
        Picture result = filled(part, face);
        for (int y = part.top; y < part.bottom; ++y) {
            for (int x = part.left; x < part.right; ++x) {
                result.pixels[result.index(x + right, y + down)] = whole_.at(x, y);
            }
        }
        return result;
    }
    [[nodiscard]] Picture recoloured(std::uint32_t from, std::uint32_t to) const {
        Picture result = whole_;
        std::replace(result.pixels.begin(), result.pixels.end(), from, to);
        return result;
    }
    [[nodiscard]] std::string difference_of(const Picture& seen) const {
        return difference(whole_, seen);
    }

    Picture whole_;
};

TEST_F(PictureComparison, APictureIsLikeItself) {
    EXPECT_EQ(difference_of(whole_), "");
}

TEST_F(PictureComparison, AMissingControlIsSeen) {
    EXPECT_EQ(difference_of(filled(close_button, face)),
              "2176 pixels differ, first those near 352, 248");
    EXPECT_NE(difference_of(filled(account_mark, face)), "");
    // And one too many.
    EXPECT_NE(difference(filled(close_button, face), whole_), "");
}

TEST_F(PictureComparison, AControlMovedByTwoPixelsIsSeen) {
    for (const int by : {2, 4, 8}) {
        EXPECT_NE(difference_of(moved(close_button, by, 0)), "") << by;
        EXPECT_NE(difference_of(moved(close_button, -by, 0)), "") << by;
        EXPECT_NE(difference_of(moved(close_button, 0, by)), "") << by;
        EXPECT_NE(difference_of(moved(account_mark, 0, -by)), "") << by;
    }
}

TEST_F(PictureComparison, AMissingLetterIsSeen) {
    EXPECT_NE(difference_of(filled(last_letter_on_it, white)), "");
    EXPECT_NE(difference_of(filled(colon_of_a_label, face)), "");
}

TEST_F(PictureComparison, ASurfaceOfAnotherColourIsSeen) {
    EXPECT_NE(difference_of(recoloured(face, white)), "");
    EXPECT_NE(difference_of(recoloured(white, face)), "");
    EXPECT_NE(difference_of(recoloured(face, face - 0x0A)), "");
}

TEST_F(PictureComparison, AnotherSizeIsSeen) {
    Picture wider = whole_;
    wider.width = 2 * wider.width;
    wider.height = wider.height / 2;
    EXPECT_EQ(difference_of(wider), "920 by 148 instead of 460 by 296");
}

TEST_F(PictureComparison, SlightNoiseIsForgiven) {
    Picture seen = whole_;
    std::uint32_t step = 0;
    for (std::uint32_t& pixel : seen.pixels) {
        step = (step + 5) % 7;  // 0 to 6
        for (const unsigned shift : {0U, 8U, 16U}) {
            const std::uint32_t value = pixel >> shift & 0xFFU;
            const std::uint32_t noisy = value >= 0x80 ? value - step : value + step;
            pixel = (pixel & ~(0xFFU << shift)) | noisy << shift;
        }
    }
    ASSERT_NE(seen, whole_);
    EXPECT_EQ(difference_of(seen), "");
}

TEST_F(PictureComparison, LonePixelsAreForgiven) {
    EXPECT_EQ(difference_of(filled({100, 280, 101, 281}, 0)), "");
    EXPECT_NE(difference_of(filled({100, 280, 101, 282}, 0)), "");
}

TEST_F(PictureComparison, OnePixelIsForgiven) {
    EXPECT_EQ(difference_of(moved(close_button, 1, 0)), "");
    EXPECT_EQ(difference_of(moved(close_button, 0, -1)), "");
}

TEST_F(PictureComparison, TheDifferenceIsMarkedInRed) {
    const Picture marked = marked_difference(whole_, filled(close_button, face));
    const auto reds = std::count(marked.pixels.begin(), marked.pixels.end(), 0x0000FFU);
    EXPECT_GT(reds, 100);
    EXPECT_EQ(marked.at(close_button.left, close_button.top + 10), 0x0000FFU);
    EXPECT_EQ(marked.at(0, whole_.height - 1), 0xFAFAFAU);
}

TEST(PictureFiles, APictureIsReadAsItWasWritten) {
    Picture picture{3, 2, {0x0000FF, 0x00FF00, 0xFF0000, 0, 0x123456, 0xFFFFFF}};
    const auto file = std::filesystem::temp_directory_path() / L"kovrel_picture.png";
    ASSERT_TRUE(write_picture(picture, file));
    EXPECT_EQ(read_picture(file), picture);
    std::filesystem::remove(file);
    EXPECT_EQ(read_picture(file), std::nullopt);
}

}  // namespace
}  // namespace kovrel::test
