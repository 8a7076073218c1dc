#include "ui/text_box_lines.h"

#include <gtest/gtest.h>

namespace kovrel {
namespace {

TEST(TextBoxLines, EndWithBothCharacters) {
    EXPECT_EQ(text_box_lines(L""), L"");
    EXPECT_EQ(text_box_lines(L"uno"), L"uno");
    EXPECT_EQ(text_box_lines(L"uno\rdos"), L"uno\r\ndos");
    EXPECT_EQ(text_box_lines(L"uno\ndos"), L"uno\r\ndos");
    EXPECT_EQ(text_box_lines(L"uno\r\ndos"), L"uno\r\ndos");
}

TEST(TextBoxLines, KeepEveryLine) {
    EXPECT_EQ(text_box_lines(L"\r\r"), L"\r\n\r\n");
    EXPECT_EQ(text_box_lines(L"\n\n"), L"\r\n\r\n");
    EXPECT_EQ(text_box_lines(L"\n\r"), L"\r\n\r\n");
    EXPECT_EQ(text_box_lines(L"\r\n\n"), L"\r\n\r\n");
    EXPECT_EQ(text_box_lines(L"\r\r\n"), L"\r\n\r\n");
    EXPECT_EQ(text_box_lines(L"\rx\n"), L"\r\nx\r\n");
}

TEST(TextBoxLines, GoOnBehindAZeroCharacter) {
    EXPECT_EQ(text_box_lines(std::wstring_view(L"a\0b\0", 4)), L"a b ");
}

}  // namespace
}  // namespace kovrel
