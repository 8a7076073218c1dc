#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "sql/characters.h"

namespace kovrel {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(SqlCharacters, FirstAndLastOfEachLengthInUtf8) {
    EXPECT_EQ(utf8_of(std::wstring(1, L'\0')), (Bytes{0}));
    EXPECT_EQ(utf8_of(L"\x7F"), (Bytes{0x7F}));
    EXPECT_EQ(utf8_of(L"\x80"), (Bytes{0xC2, 0x80}));
    EXPECT_EQ(utf8_of(L"\x7FF"), (Bytes{0xDF, 0xBF}));
    EXPECT_EQ(utf8_of(L"\x800"), (Bytes{0xE0, 0xA0, 0x80}));
    EXPECT_EQ(utf8_of(L"\xD7FF"), (Bytes{0xED, 0x9F, 0xBF}));
    EXPECT_EQ(utf8_of(L"\xE000"), (Bytes{0xEE, 0x80, 0x80}));
    EXPECT_EQ(utf8_of(L"\xFFFF"), (Bytes{0xEF, 0xBF, 0xBF}));
    EXPECT_EQ(utf8_of(L"\xD800\xDC00"), (Bytes{0xF0, 0x90, 0x80, 0x80}));
    EXPECT_EQ(utf8_of(L"\xDBFF\xDFFF"), (Bytes{0xF4, 0x8F, 0xBF, 0xBF}));
    EXPECT_EQ(utf8_of(L"a\xF1"), (Bytes{0x61, 0xC3, 0xB1}));
    EXPECT_EQ(utf8_of(L"\x6C34"), (Bytes{0xE6, 0xB0, 0xB4}));
    EXPECT_EQ(utf8_of(L"\xD801\xDC37"), (Bytes{0xF0, 0x90, 0x90, 0xB7}));
}

TEST(SqlCharacters, CodePointsTakeOneOrTwoUnits) {
    const auto again = [](std::wstring_view text) {
        std::wstring units;
        while (!text.empty()) append_code_point(units, take_code_point(text));
        return units;
    };
    for (const std::wstring text : {L"a\xFFFF", L"\xD800\xDC00", L"\xDBFF\xDFFF\xE000"}) {
        EXPECT_EQ(again(text), text);
    }
    std::wstring_view pair = L"\xD83D\xDE00z";
    EXPECT_EQ(take_code_point(pair), U'\x1F600');
    EXPECT_EQ(pair, L"z");
}

TEST(SqlCharacters, HexadecimalDigits) {
    constexpr std::uint8_t bytes[]{0, 0x0F, 0xA9, 0xFF};
    EXPECT_EQ(hexadecimal(bytes, 4), L"000FA9FF");
    std::wstring text = L"x";
    append_hexadecimal(text, 0x12AB, 4);
    EXPECT_EQ(text, L"x12AB");
}

}  // namespace
}  // namespace kovrel
