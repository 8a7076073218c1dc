#include "name_patterns.h"

#include <gtest/gtest.h>

namespace kovrel::zip {
namespace {

bool match(const char* pattern, std::string_view name) {
    return NamePatterns({pattern}).match(name);
}

TEST(NamePatterns, WithoutFolderTakesTheLastComponent) {
    EXPECT_TRUE(match("*.txt", "datos/2024/notas.txt"));
    EXPECT_TRUE(match("notas.txt", "datos/2024/notas.txt"));
    EXPECT_FALSE(match("*.txt", "datos/notas.txt.bak"));
    EXPECT_FALSE(match("datos*", "otros/notas.txt"));
    EXPECT_TRUE(match("*", "notas.txt"));
    EXPECT_TRUE(match("*", ""));
    EXPECT_FALSE(match("?", ""));
}

TEST(NamePatterns, WithFolderTakesTheWholeName) {
    EXPECT_TRUE(match("datos/*.txt", "datos/notas.txt"));
    EXPECT_FALSE(match("datos/*.txt", "datos/2024/notas.txt"));
    EXPECT_FALSE(match("datos/*.txt", "mis/datos/notas.txt"));
    EXPECT_TRUE(match("datos/**.txt", "datos/2024/notas.txt"));
    EXPECT_TRUE(match("**/notas.txt", "datos/2024/notas.txt"));
    EXPECT_TRUE(match("d**a/x", "d/b/c/a/x"));
    EXPECT_FALSE(match("d?tos/x", "d/tos/x"));
}

TEST(NamePatterns, OfAFolderTakesWhatLiesBelowIt) {
    EXPECT_TRUE(match("2024", "datos/2024/enero/notas.txt"));
    EXPECT_TRUE(match("2024/", "datos/2024/"));
    EXPECT_TRUE(match("datos/20??", "datos/2024/enero/notas.txt"));
    EXPECT_FALSE(match("datos/20??", "datos/20241/notas.txt"));
    EXPECT_FALSE(match("notas.txt/x", "notas.txt"));
}

TEST(NamePatterns, QuestionMarkIsOneCharacterOfAnyLength) {
    EXPECT_TRUE(match("a?o", "año"));
    EXPECT_TRUE(match("?", "€"));
    EXPECT_TRUE(match("?", "\U0001F600"));
    EXPECT_FALSE(match("??", "€"));
    EXPECT_TRUE(match("??", "ñá"));
    EXPECT_TRUE(match("*ñ??", "España€"));
}

TEST(NamePatterns, BackslashIsASeparatorInPatternsForWindows) {
    EXPECT_TRUE(NamePatterns({R"(datos\*.txt)"}, PathStyle::windows).match("datos/notas.txt"));
    EXPECT_FALSE(NamePatterns({R"(datos\*.txt)"}, PathStyle::posix).match("datos/notas.txt"));
}

TEST(NamePatterns, SeveralMeanAnyOfThemAndEmptyOnesNothing) {
    const NamePatterns patterns({"", "*.txt", "/", "*.xls"});
    EXPECT_TRUE(patterns.match("a.xls"));
    EXPECT_FALSE(patterns.match("a.doc"));
    EXPECT_FALSE(patterns.empty());
    EXPECT_TRUE(NamePatterns({"", "//"}).empty());
}

TEST(NamePatterns, TakeNoTimeThatGrowsBeyondBothLengths) {
    std::string pattern;
    for (int i = 0; i < 200; ++i) pattern += "*a";
    EXPECT_FALSE(match((pattern + "b").c_str(), std::string(2000, 'a')));
    EXPECT_TRUE(match(pattern.c_str(), std::string(2000, 'a')));
}

TEST(NamePatterns, ArePatternsByTheirWildcards) {
    EXPECT_TRUE(is_pattern("a*"));
    EXPECT_TRUE(is_pattern("a?b"));
    EXPECT_FALSE(is_pattern("a[b]"));
}

}  // namespace
}  // namespace kovrel::zip
