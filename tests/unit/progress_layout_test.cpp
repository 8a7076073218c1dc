#include "progress/progress_layout.h"

#include <gtest/gtest.h>
#include <limits>

namespace kovrel {
namespace {

TEST(ProgressLabel, IsEmptyAtZero) {
    EXPECT_EQ(progress_label(0), L"%");
    EXPECT_EQ(progress_label(1), L"1%");
    EXPECT_EQ(progress_label(50), L"50%");
    EXPECT_EQ(progress_label(100), L"100%");
    EXPECT_EQ(progress_label(1234), L"1234%");
    EXPECT_EQ(progress_label(-5), L"-5%");
    EXPECT_EQ(progress_label(std::numeric_limits<std::int32_t>::min()), L"-2147483648%");
}

TEST(ProgressLayout, TheWindowFitsItsVisibleAreas) {
    const ProgressHeights heights{3000, 2600, 700, 450, 600};
    EXPECT_EQ(fitted_window_height(heights, true), 400 + 700 + 450 + 600 + 80);
    EXPECT_EQ(fitted_window_height(heights, false), 400 + 700 + 450 + 80);
    EXPECT_EQ(fitted_window_height({0, 0, 0, 0, 600}, false), 80);
}

TEST(ProgressLayout, ImpossibleHeightsAreCut) {
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(fitted_window_height({3000, 2600, most, 450, 600}, true), most);
    EXPECT_EQ(fitted_window_height({least, most, least, least, least}, true), -most);
}

TEST(ProgressLayout, TheLabelLeavesAMarginAboveAndBelow) {
    EXPECT_EQ(header_label_place({0, 0, 5000, 700}), (ProgressRectangle{0, 40, 5000, 620}));
    EXPECT_EQ(header_label_place({15, 30, 4970, 640}), (ProgressRectangle{15, 70, 4970, 560}));
    EXPECT_EQ(header_label_place({0, 0, 5000, 81}), (ProgressRectangle{0, 40, 5000, 1}));
    EXPECT_EQ(header_label_place({0, 0, 5000, 80}), (ProgressRectangle{0, 40, 5000, 0}));
    EXPECT_EQ(header_label_place({0, 0, 5000, 79}), (ProgressRectangle{0, 40, 5000, 0}));
    EXPECT_EQ(header_label_place({0, 0, 0, 0}), (ProgressRectangle{0, 40, 0, 0}));
}

TEST(ProgressLayout, TheCancelButtonIsCentred) {
    EXPECT_EQ(cancel_button_left(5000, 1000), 2000);
    EXPECT_EQ(cancel_button_left(5001, 1000), 2000.5F);
    EXPECT_EQ(cancel_button_left(500, 1000), -250);
}

}  // namespace
}  // namespace kovrel
