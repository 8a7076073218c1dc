#include "target_name.h"

#include <gtest/gtest.h>
#include <ostream>

namespace kovrel::zip {
namespace {

using enum NameFault;

struct Case {
    std::string name;
    NameFault posix;
    NameFault windows;
};

std::string repeated(const std::string& text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) result += text;
    return result;
}

TEST(TargetName, WhatIsNoSafeNameIsRefused) {
    const std::vector<Case> cases = {
        {"", empty, empty},
        {".", empty, empty},
        {"./", empty, empty},
        {"././/.", empty, empty},
        {"..", climbs, climbs},
        {"../a", climbs, climbs},
        {"a/../b", climbs, climbs},
        {"a/..", climbs, climbs},
        {R"(a\..\b)", none, climbs},
        {R"(..\b)", none, climbs},
        {"/", absolute, absolute},
        {"/etc/passwd", absolute, absolute},
        {"//servidor/a", absolute, server},
        {"//", absolute, server},
        {R"(\a)", none, absolute},
        {R"(\\servidor\a)", none, server},
        {R"(\\?\C:\a)", none, server},
        {R"(/\servidor)", absolute, server},
        {"C:", none, drive},
        {"C:a", none, drive},
        {R"(c:\a)", none, drive},
        {"C:/a", none, drive},
        {"a/C:/b", none, bad_character},
        {"a:b", none, drive},
        {"ab:flujo", none, bad_character},
        {"ab::$DATA", none, bad_character},
        {"a<", none, bad_character},
        {"a>", none, bad_character},
        {"a\"", none, bad_character},
        {"a|", none, bad_character},
        {"a?", none, bad_character},
        {"a*", none, bad_character},
        {std::string("a\0b", 3), bad_character, bad_character},
        {"a\nb", bad_character, bad_character},
        {"a\x1F", bad_character, bad_character},
        {"a\x7F", bad_character, bad_character},
        {"a.", none, bad_end},
        {"a ", none, bad_end},
        {"a./b", none, bad_end},
        {"...", none, bad_end},
        {". .", none, bad_end},
        {"a\xFF", not_utf8, not_utf8},
        {"\xC0\xAE\xC0\xAE/a", not_utf8, not_utf8},  // ".." in an overlong form
        {repeated("a/", 100) + "b", too_deep, too_deep},
        {std::string(256, 'a'), too_long, too_long},
        {"a/" + std::string(256, 'a') + "/b", too_long, too_long},
        {repeated("ñ", 128), too_long, none},
        {repeated("ñ", 256), too_long, too_long},
        {repeated("\U0001F600", 128), too_long, too_long},
        {repeated("\U0001F600", 127) + "a", too_long, none},
    };
    for (const Case& one : cases) {
        const TargetName on_posix = target_name(one.name, PathStyle::posix);
        const TargetName on_windows = target_name(one.name, PathStyle::windows);
        EXPECT_EQ(on_posix.fault, one.posix) << one.name;
        EXPECT_EQ(on_windows.fault, one.windows) << one.name;
        EXPECT_EQ(on_posix.path.empty(), on_posix.fault != none) << one.name;
        EXPECT_EQ(on_windows.path.empty(), on_windows.fault != none) << one.name;
    }
}

TEST(TargetName, DevicesOfWindowsAreReserved) {
    for (const std::string name :
         {"CON", "con", "Prn", "AUX", "nul", "COM0", "COM9", "com1", "LPT0", "lpt9", "CONIN$",
          "conout$", "COM¹", "com²", "LPT³", "nul.txt", "NUL.tar.gz", "con .txt", "aux."}) {
        for (const std::string& path : {name, "a/" + name, name + "/b"}) {
            EXPECT_EQ(target_name(path, PathStyle::windows).fault, reserved) << path;
            EXPECT_EQ(target_name(path, PathStyle::posix).fault, none) << path;
        }
    }
    for (const char* name : {"CONS", "nulo", "COM", "COM10", "COMa", "COM⁴", "LPT", "xCON", ".con",
                             "CONIN", "txt.nul", "COM1x"}) {
        EXPECT_EQ(target_name(name, PathStyle::windows).fault, none) << name;
    }
}

TEST(TargetName, IsTheRelativePath) {
    EXPECT_EQ(target_name("a", PathStyle::posix).path, "a");
    EXPECT_EQ(target_name("./a", PathStyle::posix).path, "a");
    EXPECT_EQ(target_name("a//b/./c/", PathStyle::posix).path, "a/b/c");
    EXPECT_EQ(target_name("..a/b../.c/d..e", PathStyle::windows).path.size(), 0U);
    EXPECT_EQ(target_name("..a/.c/d..e", PathStyle::windows).path, "..a/.c/d..e");
    EXPECT_EQ(target_name("..a/b../...", PathStyle::posix).path, "..a/b../...");
    EXPECT_EQ(target_name(R"(a\b/c\)", PathStyle::windows).path, "a/b/c");
    EXPECT_EQ(target_name(R"(a\b)", PathStyle::posix).path, R"(a\b)");
    EXPECT_EQ(target_name(" a", PathStyle::windows).path, " a");
    EXPECT_EQ(target_name("Año/日本/\U0001F600.txt", PathStyle::windows).path,
              "Año/日本/\U0001F600.txt");
    const std::string deepest = repeated("a/", 99) + "b";
    EXPECT_EQ(target_name(deepest, PathStyle::posix).path, deepest);
    const std::string longest(255, 'a');
    EXPECT_EQ(target_name(longest, PathStyle::windows).path, longest);
    EXPECT_EQ(target_name(longest, PathStyle::posix).path, longest);
}

}  // namespace
}  // namespace kovrel::zip
