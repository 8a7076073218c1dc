#include "runtime/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kovrel {
namespace {

TEST(Text, TrimTakesBlanksOnly) {
    EXPECT_EQ(trim(L"  a b  "), L"a b");
    EXPECT_EQ(trim(L"\ta\r"), L"\ta\r");
    EXPECT_EQ(trim(L"   "), L"");
    EXPECT_EQ(trim(L""), L"");
    EXPECT_EQ(trim_left(L"  a  "), L"a  ");
}

TEST(Text, UpperCoversLatin1) {
    EXPECT_EQ(to_upper(L"céntimo ñandú güe ç 12,5"), L"CÉNTIMO ÑANDÚ GÜE Ç 12,5");
    EXPECT_EQ(to_upper(L"ßµÿ÷×"), L"ßµŸ÷×");
    EXPECT_EQ(to_upper(L"ıőω"), L"ıőω");
}

TEST(Text, UpperOfATextIsUpperOfEachCharacter) {
    for (unsigned code = 0; code < 0x300; ++code) {
        const auto character = static_cast<wchar_t>(code);
        // The same alone, beside Latin-1 and beside other characters.
        EXPECT_EQ(to_upper(std::wstring(1, character)), std::wstring(1, to_upper(character)));
        EXPECT_EQ(to_upper(L"é" + std::wstring(1, character)).substr(1),
                  std::wstring(1, to_upper(character)));
        EXPECT_EQ(to_upper(L"œ" + std::wstring(1, character)).substr(1),
                  std::wstring(1, to_upper(character)));
    }
}

TEST(Text, EqualWithoutCaseNeedsTheSameLength) {
    EXPECT_TRUE(equal_without_case(L"ConvierteAñoA2", L"CONVIERTEAÑOA2"));
    EXPECT_FALSE(equal_without_case(L"abc", L"ab"));
    EXPECT_FALSE(equal_without_case(L"año", L"ano"));
}

TEST(Text, SplitKeepsEmptyPieces) {
    EXPECT_THAT(split(L"a  b", L' '), testing::ElementsAre(L"a", L"", L"b"));
    EXPECT_THAT(split(L" ", L' '), testing::ElementsAre(L"", L""));
    EXPECT_THAT(split(L"", L' '), testing::IsEmpty());
}

TEST(Text, MiddleStopsAtTheEnd) {
    EXPECT_EQ(middle(L"abcdef", 2, 3), L"bcd");
    EXPECT_EQ(middle(L"abcdef", 5, 4), L"ef");
    EXPECT_EQ(middle(L"abcdef", 7, 1), L"");
    EXPECT_EQ(middle(L"abcdef", 9), L"");
}

TEST(ContainsWithoutCase, FindsATextAnywhere) {
    for (const wchar_t* text : {L"MIL", L"mil uno", L"dos Mil", L"dos mil uno"}) {
        EXPECT_TRUE(contains_without_case(text, L"mil"));
    }
    for (const wchar_t* text : {L"", L"mi", L"dos mi", L"m il"}) {
        EXPECT_FALSE(contains_without_case(text, L"mil"));
    }
    EXPECT_TRUE(contains_without_case(L"", L""));
}

}  // namespace
}  // namespace kovrel
