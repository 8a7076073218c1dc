#include "messages/dialog_layout.h"

#include <gtest/gtest.h>

namespace kovrel {
namespace {

TEST(DialogLayout, TheTextFillsAllButTheStrip) {
    EXPECT_EQ(dialog_text_size(6000, 4000, 600), (DialogTextSize{6000, 3400}));
    EXPECT_EQ(dialog_text_size(6000, 601, 600), (DialogTextSize{6000, 1}));
    EXPECT_EQ(dialog_text_size(6000, 600, 600), (DialogTextSize{6000, 0}));
    EXPECT_EQ(dialog_text_size(6000, 300, 600), (DialogTextSize{6000, 0}));
    EXPECT_EQ(dialog_text_size(0, 0, 600), (DialogTextSize{0, 0}));
}

TEST(DialogLayout, TheButtonIsCentredOrAtTheLeftEdge) {
    EXPECT_EQ(dialog_button_left(6000, 1200), 2400);
    EXPECT_EQ(dialog_button_left(6001, 1200), 2400.5F);
    EXPECT_EQ(dialog_button_left(1200, 1200), 0);
    EXPECT_EQ(dialog_button_left(1199, 1200), 0);
    EXPECT_EQ(dialog_button_left(0, 1200), 0);
}

}  // namespace
}  // namespace kovrel
