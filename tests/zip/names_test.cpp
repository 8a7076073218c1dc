// Entry names, DOS times and extra fields of archives.
#include "names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include "records.h"
#include "times.h"

namespace kovrel::zip {
namespace {

TEST(ZipNames, LastComponentDropsFolders) {
    EXPECT_EQ(last_component("a/b/c.txt", PathStyle::posix), "c.txt");
    EXPECT_EQ(last_component("c.txt", PathStyle::posix), "c.txt");
    EXPECT_EQ(last_component("a\\b", PathStyle::posix), "a\\b");
    EXPECT_EQ(last_component("C:\\Datos\\año.txt", PathStyle::windows), "año.txt");
    EXPECT_EQ(last_component("C:factura.txt", PathStyle::windows), "factura.txt");
    EXPECT_EQ(last_component("C:/a\\b/c", PathStyle::windows), "c");
    EXPECT_EQ(last_component("a/", PathStyle::posix), "");
    EXPECT_EQ(last_component("a/..", PathStyle::posix), "");
    EXPECT_EQ(last_component("", PathStyle::windows), "");
    EXPECT_EQ(last_component("C:", PathStyle::windows), "");
}

TEST(ZipNames, TheFolderOfAPathKeepsItsSeparator) {
    EXPECT_EQ(folder_of("a/b/c.txt", PathStyle::posix), "a/b/");
    EXPECT_EQ(folder_of("c.txt", PathStyle::posix), "");
    EXPECT_EQ(folder_of("C:\\Datos\\año.txt", PathStyle::windows), "C:\\Datos\\");
    EXPECT_EQ(folder_of("C:factura.txt", PathStyle::windows), "C:");
}

TEST(ZipNames, ComponentsOfAPath) {
    using testing::ElementsAre;
    EXPECT_THAT(components("/a//b/./c/../d/", PathStyle::posix), ElementsAre("a", "b", "d"));
    EXPECT_THAT(components("../a", PathStyle::posix), ElementsAre("a"));
    EXPECT_THAT(components(R"(C:\a/b)", PathStyle::windows), ElementsAre("C:", "a", "b"));
    EXPECT_THAT(components(R"(C:\..\a)", PathStyle::windows), ElementsAre("C:", "a"));
    EXPECT_TRUE(is_drive("C:", PathStyle::windows));
    EXPECT_FALSE(is_drive("C:", PathStyle::posix));
    EXPECT_FALSE(is_drive("C:a", PathStyle::windows));
}

TEST(ZipNames, JoinedPathsHaveOneSeparator) {
    EXPECT_EQ(join_path("", "a", PathStyle::posix), "a");
    EXPECT_EQ(join_path("b", "a", PathStyle::posix), "b/a");
    EXPECT_EQ(join_path("..", "a", PathStyle::posix), "../a");
    EXPECT_EQ(join_path("b/", "a", PathStyle::posix), "b/a");
    EXPECT_EQ(join_path("b\\", "a", PathStyle::posix), "b\\/a");
    EXPECT_EQ(join_path("C:\\", "a", PathStyle::windows), "C:\\a");
}

TEST(ZipNames, RelativeNamesNeverLeaveTheFolder) {
    EXPECT_EQ(relative_name("/etc/passwd", PathStyle::posix), "etc/passwd");
    EXPECT_EQ(relative_name("../../x", PathStyle::posix), "x");
    EXPECT_EQ(relative_name("./a//b/../c", PathStyle::posix), "a/b/c");
    EXPECT_EQ(relative_name("C:\\a\\b.txt", PathStyle::windows), "a/b.txt");
    EXPECT_EQ(relative_name("\\\\server\\share\\a\\b.txt", PathStyle::windows), "a/b.txt");
    EXPECT_EQ(relative_name("..\\..\\b.txt", PathStyle::windows), "b.txt");
    EXPECT_EQ(relative_name("..", PathStyle::windows), "");
    EXPECT_EQ(relative_name("C:b.txt", PathStyle::windows), "b.txt");
    EXPECT_EQ(relative_name("C:", PathStyle::windows), "");
    EXPECT_EQ(relative_name("//server/share/b.txt", PathStyle::posix), "server/share/b.txt");
    EXPECT_EQ(relative_name("\\\\server", PathStyle::windows), "");
    EXPECT_EQ(relative_name("\\\\", PathStyle::windows), "");
}

TEST(ZipNames, AbsolutePaths) {
    EXPECT_TRUE(is_absolute("/a", PathStyle::posix));
    EXPECT_FALSE(is_absolute("C:\\a", PathStyle::posix));
    EXPECT_TRUE(is_absolute("C:\\a", PathStyle::windows));
    EXPECT_TRUE(is_absolute("\\a", PathStyle::windows));
    EXPECT_FALSE(is_absolute("a\\b", PathStyle::windows));
    EXPECT_FALSE(is_absolute("", PathStyle::windows));
    EXPECT_TRUE(is_absolute("C:", PathStyle::windows));
}

TEST(ZipNames, Utf8IsValidated) {
    for (const char* good :
         {"", "abc", "año", "€", "\xF0\x9F\x98\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
          "\xF4\x8F\xBF\xBF", "\xC2\x80", "\xE0\xA0\x80", "\xF0\x90\x80\x80"}) {
        EXPECT_TRUE(is_utf8(good)) << good;
    }
    for (const char* bad :
         {"a\xF1o", "\xC0\xAF", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80", "\xC3",
          "\xE2\x82", "\xF5\x80\x80\x80", "\xFF", "\xC3\xC3", "\xC1\xBF", "\xE0\x9F\xBF",
          "\xF0\x8F\xBF\xBF", "\xED\xBF\xBF", "ñ\x80"}) {
        EXPECT_FALSE(is_utf8(bad)) << bad;
    }
}

TEST(ZipNames, OldNamesAreReadInTheirCodePage) {
    EXPECT_EQ(utf8_from_code_page_850("a\xA4o \xA0\x82\xA1\xA2\xA3 \xB5\x90\xD6\xE0\xE9 \xA5\x81"),
              "año áéíóú ÁÉÍÓÚ Ñü");
    EXPECT_EQ(utf8_from_code_page_850("\x7F"), "\x7F");
    std::string upper_half;
    for (int code = 0x80; code <= 0xFF; ++code) upper_half.push_back(static_cast<char>(code));
    EXPECT_EQ(utf8_from_code_page_850(upper_half),
              "ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£Ø×ƒ"
              "áíóúñÑªº¿®¬½¼¡«»░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"
              "└┴┬├─┼ãÃ╚╔╩╦╠═╬¤ðÐÊËÈıÍÎÏ┘┌█▄¦Ì▀"
              "ÓßÔÒõÕµþÞÚÛÙýÝ¯´\u00AD±‗¾¶§÷¸°¨·¹³²■\u00A0");
}

TEST(ZipNames, AsciiEndsAt127) {
    EXPECT_TRUE(is_ascii(""));
    EXPECT_TRUE(is_ascii("a\x7F"));
    EXPECT_FALSE(is_ascii("a\x80"));
}

TEST(ZipNames, AnEntrysNameInUtf8) {
    EXPECT_EQ(entry_name_utf8("año", 1U << 11, 0, ""), "año");
    EXPECT_EQ(entry_name_utf8("a\xA4o", 0, 0, ""), "año");
    EXPECT_EQ(entry_name_utf8("año", 0, 3 << 8, ""), "año");
    EXPECT_EQ(entry_name_utf8("a\xA4o", 0, 3 << 8, ""), "año");
}

std::string unicode_path_field(const std::string& raw, const std::string& name) {
    const auto crc =
        crc32(0, reinterpret_cast<const Bytef*>(raw.data()), static_cast<uInt>(raw.size()));
    std::string field = {'\x75', '\x70', static_cast<char>(5 + name.size()), 0, 1};
    for (int i = 0; i < 4; ++i) {
        field.push_back(static_cast<char>(crc >> (8 * i)));
    }
    return field + name;
}

TEST(ZipNames, TheUnicodeFieldCountsIfItsChecksumMatches) {
    EXPECT_EQ(entry_name_utf8("a?\xA4", 0, 0, unicode_path_field("a?\xA4", "a€ñ")), "a€ñ");
    EXPECT_EQ(entry_name_utf8("b\xA4", 0, 0, unicode_path_field("a?\xA4", "a€ñ")), "bñ");
    EXPECT_EQ(entry_name_utf8("b\xA4", 0, 0, unicode_path_field("b\xA4", "b\xFF")), "bñ");
}

TEST(ZipExtraFields, FoundAndTakenOut) {
    const std::string one("\x01\x00\x02\x00xy", 6);
    const std::string two("\x75\x70\x01\x00z", 5);
    EXPECT_EQ(find_extra_field(one + two, 0x7075), "z");
    EXPECT_EQ(find_extra_field(one + two, 7), "");
    EXPECT_EQ(without_extra_field(one + two + one, 1), two);
    EXPECT_EQ(without_extra_field(two, 1), two);
    // A broken tail is kept.
    EXPECT_EQ(without_extra_field(one + "abc", 1), "abc");
    EXPECT_EQ(without_extra_field(one + std::string("\x09\x00\xFF\xFFq", 5), 1),
              std::string("\x09\x00\xFF\xFFq", 5));
    EXPECT_EQ(find_extra_field(std::string("\x01\x00\xFF\xFFq", 5), 1), "");
}

TEST(ZipTimes, DosLayout) {
    const DosTime time = to_dos_time({2024, 2, 29, 23, 59, 58});
    EXPECT_EQ(time.date, 44 << 9 | 2 << 5 | 29);
    EXPECT_EQ(time.time, 23 << 11 | 59 << 5 | 29);
    EXPECT_EQ(to_dos_time({2024, 2, 29, 23, 59, 59}), time);
    EXPECT_EQ(to_dos_time({2024, 2, 29, 23, 59, 60}), time);
    EXPECT_EQ(to_dos_time({1980, 1, 1, 0, 0, 0}), (DosTime{33, 0}));
}

TEST(ZipTimes, OutsideTheRangeTheNearestMomentIsTaken) {
    EXPECT_EQ(to_dos_time({1979, 12, 31, 23, 59, 59}), (DosTime{33, 0}));
    EXPECT_EQ(to_dos_time({1601, 1, 1, 12, 0, 0}), (DosTime{33, 0}));
    EXPECT_EQ(to_dos_time({2108, 1, 1, 0, 0, 0}), to_dos_time({2107, 12, 31, 23, 59, 58}));
}

TEST(ZipTimes, OrderedAsMoments) {
    EXPECT_LT(to_dos_time({2023, 12, 31, 23, 0, 0}), to_dos_time({2024, 1, 1, 0, 0, 0}));
    EXPECT_LT(to_dos_time({2024, 1, 1, 0, 0, 0}), to_dos_time({2024, 1, 1, 0, 0, 2}));
}

}  // namespace
}  // namespace kovrel::zip
