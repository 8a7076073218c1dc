#include "files/path_text.h"

#include <gtest/gtest.h>
#include <random>
#include <tuple>

#include "files/ini_file.h"
#include "runtime/failure.h"

namespace kovrel {
namespace {

using namespace std::string_view_literals;

bool runs_out_of_memory(std::wstring_view text, std::wstring_view searched,
                        std::wstring_view replacement) {
    try {
        (void)replace_text(text, searched, replacement);
    } catch (const Failure& failure) {
        return failure.number() == 7;
    }
    return false;
}

TEST(PathText, AddBackslash) {
    EXPECT_EQ(add_backslash(L""), L"");
    EXPECT_EQ(add_backslash(L"C:\\datos"), L"C:\\datos\\");
    EXPECT_EQ(add_backslash(L"C:\\datos\\"), L"C:\\datos\\");
    EXPECT_EQ(add_backslash(L"a/"), L"a/\\");
    EXPECT_EQ(add_backslash(L" "), L" \\");
}

TEST(PathText, RemoveBackslash) {
    EXPECT_EQ(remove_backslash(L""), L"");
    EXPECT_EQ(remove_backslash(L"\\"), L"");
    EXPECT_EQ(remove_backslash(L"C:\\datos"), L"C:\\datos");
    EXPECT_EQ(remove_backslash(L"C:\\datos\\\\"), L"C:\\datos\\");
}

TEST(PathText, SplitPath) {
    const auto expect = [](std::wstring_view path, std::wstring_view folder, std::wstring_view name,
                           std::wstring_view extension) {
        const auto parts = split_path(path);
        EXPECT_EQ(parts.folder, folder);
        EXPECT_EQ(parts.name, name);
        EXPECT_EQ(parts.extension, extension);
    };
    expect(L"C:\\Mis facturas\\año.2024.txt", L"C:\\Mis facturas", L"año.2024.txt", L"txt");
    expect(L"C:\\datos\\leeme", L"C:\\datos", L"leeme", L"*");
    expect(L"C:\\datos\\leeme.", L"C:\\datos", L"leeme.", L"*");
    expect(L"factura.ini", L"", L"factura.ini", L"ini");
    expect(L"C:\\v1.0\\leeme", L"C:\\v1.0", L"leeme", L"0\\leeme");
    expect(L"C:\\datos\\", L"C:\\datos", L"", L"*");
    expect(L"\\x", L"", L"x", L"*");
    expect(L"C:/a/b.c", L"", L"C:/a/b.c", L"c");
    expect(L"", L"", L"", L"*");
    expect(L".", L"", L".", L"*");
    expect(L"\\\\equipo\\carpeta", L"\\\\equipo", L"carpeta", L"*");
}

TEST(PathText, FolderOfAListedFile) {
    EXPECT_EQ(folder_of_listed(L"C:\\datos\\a.txt", 5), L"C:\\datos\\");
    EXPECT_EQ(folder_of_listed(L"C:\\datos\\nada", 0), L"C:\\datos\\nada\\");
    EXPECT_EQ(folder_of_listed(L"C:\\d\\*.txt", 8), L"C:\\");
    EXPECT_EQ(folder_of_listed(L"a.txt", 5), L"");
    try {
        (void)folder_of_listed(L"*", 5);
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), 5);
    }
}

TEST(ReplaceText, RemovalSkipsTheNextCharacter) {
    EXPECT_EQ(replace_text(L"aab", L"a", {}), L"ab");
    EXPECT_EQ(replace_text(L"aaaa", L"a", {}), L"aa");
    EXPECT_EQ(replace_text(L"aba", L"a", {}), L"b");
    EXPECT_EQ(replace_text(L"a", L"a", {}), L"");
    EXPECT_EQ(replace_text(L"xyxyz", L"xy", {}), L"xyz");
    EXPECT_EQ(replace_text(L"1.234.567", L".", {}), L"1234567");
    EXPECT_EQ(replace_text(L"aAa", L"A", {}), L"aa");
    EXPECT_EQ(replace_text(L"abc", L"abcd", {}), L"abc");
}

TEST(ReplaceText, ReplacementSearchesAgainFromItsFirstCharacter) {
    EXPECT_EQ(replace_text(L"aab", L"a", L""), L"b");
    EXPECT_EQ(replace_text(L"aaaa", L"a", L""), L"");
    EXPECT_EQ(replace_text(L"a b c", L" ", L"__"), L"a__b__c");
    EXPECT_EQ(replace_text(L"abb", L"ab", L"a"), L"a");
    EXPECT_EQ(replace_text(L"aaab", L"ab", L"b"), L"aab");
    EXPECT_EQ(replace_text(L"abab", L"aba", L"ba"), L"bab");
    EXPECT_EQ(replace_text(L"xaabb", L"ab", L""), L"xab");
}

TEST(ReplaceText, AnEmptySearchChangesNothing) {
    EXPECT_EQ(replace_text(L"abc", L"", {}), L"abc");
    EXPECT_EQ(replace_text(L"abc", L"", L"x"), L"abc");
    EXPECT_EQ(replace_text(L"a\0\0"sv, L"", L"x"), L"a\0\0"sv);
    EXPECT_EQ(replace_text(L"", L"a", L"b"), L"");
}

TEST(ReplaceText, AGrowingReplacementIsOutOfMemory) {
    EXPECT_TRUE(runs_out_of_memory(L"a", L"a", L"aa"));
    EXPECT_TRUE(runs_out_of_memory(L"xa", L"a", L"ba"));
    EXPECT_TRUE(runs_out_of_memory(L"a", L"a", L"a"));
    EXPECT_EQ(replace_text(L"xyz", L"a", L"aa"), L"xyz");
    // Fails before building a text longer than the limit.
    const std::wstring long_text(100'000, L'a');
    EXPECT_TRUE(runs_out_of_memory(long_text, L"a", std::wstring(100'000, L'b')));
}

TEST(ReplaceText, CleansABuffer) {
    EXPECT_EQ(replace_text(L"valor\0\0\0"sv, L"\0"sv, {}), L"valor");
    EXPECT_EQ(replace_text(L"uno\0dos\0\0"sv, L"\0"sv, {}), L"unodos");
    EXPECT_EQ(replace_text(L"uno\0dos\0\0"sv, L"\0"sv, L";"), L"uno;dos");
    EXPECT_EQ(replace_text(L"a\0\0b"sv, L"\0"sv, {}), L"ab");
    EXPECT_EQ(replace_text(L"a\0\0b"sv, L"\0"sv, L"--"), L"a----b");
    EXPECT_EQ(replace_text(L"\0\0"sv, L"\0"sv, L"x"), L"");
    EXPECT_EQ(replace_text(L"sin ceros", L"\0"sv, L"x"), L"sin ceros");
    EXPECT_EQ(replace_text(L"ab\0\0"sv, L"\0x"sv, {}), L"ab");
}

TEST(ReplaceText, CleaningRemovesOneCharacterOfEachOccurrence) {
    EXPECT_EQ(replace_text(L"a\0xb\0c"sv, L"\0x"sv, {}), L"axb\0c"sv);
    EXPECT_EQ(replace_text(L"a\0xb"sv, L"\0x"sv, L"--"), L"a--xb");
    EXPECT_EQ(replace_text(L"a\0\0\0b"sv, L"\0\0"sv, {}), L"a\0b"sv);
    EXPECT_EQ(replace_text(L"a\0\0\0b"sv, L"\0\0"sv, L"-"), L"a--\0b"sv);
}

TEST(ReplaceText, AGrowingReplacementInABufferIsOutOfMemory) {
    EXPECT_TRUE(runs_out_of_memory(L"a\0b"sv, L"\0"sv, L"\0"sv));
    EXPECT_TRUE(runs_out_of_memory(L"a\0b"sv, L"\0"sv, L"x\0y"sv));
    EXPECT_TRUE(runs_out_of_memory(L"a\0xb"sv, L"\0x"sv, L"-\0"sv));
    EXPECT_EQ(replace_text(L"a\0yb"sv, L"\0x"sv, L"-\0"sv), L"a\0yb"sv);
}

/// The published procedure, character by character; none when the text exceeds a length.
std::optional<std::wstring> step_by_step(std::wstring text, const std::wstring& searched,
                                         const std::optional<std::wstring>& replacement) {
    constexpr int enough_turns = 2000;
    if (searched.empty()) return text;
    const std::wstring inserted = replacement.value_or(L"");
    int turns = 0;
    if (searched[0] != L'\0') {
        for (std::size_t index = 0; index < text.size();) {
            if (++turns > enough_turns) return std::nullopt;
            if (text.compare(index, searched.size(), searched) != 0) {
                ++index;
            } else {
                text.replace(index, searched.size(), inserted);
                if (!replacement) ++index;
            }
        }
        return text;
    }
    while (!text.empty() && text.back() == L'\0') text.pop_back();
    for (auto index = text.find(searched); index != std::wstring::npos;
         index = text.find(searched, index)) {
        if (++turns > enough_turns) return std::nullopt;
        text.replace(index, 1, inserted);
    }
    return text;
}

TEST(ReplaceText, AgreesWithTheCharacterByCharacterProcedure) {
    std::mt19937 random(20240315);  // fixed: the same texts in every run
    const auto short_text = [&random](std::size_t longest) {
        std::wstring text(random() % (longest + 1), L'a');
        for (auto& character : text) character = L"\0ab"[random() % 3];
        return text;
    };
    int endless = 0;
    for (int turn = 0; turn < 20'000; ++turn) {
        const auto text = short_text(9);
        const auto searched = short_text(3);
        const auto replacement = random() % 4 == 0 ? std::nullopt : std::optional(short_text(4));
        const auto expected = step_by_step(text, searched, replacement);
        if (expected) {
            ASSERT_EQ(replace_text(text, searched, replacement), *expected);
        } else {
            ++endless;
            ASSERT_TRUE(runs_out_of_memory(text, searched, *replacement));
        }
    }
    EXPECT_GT(endless, 500);
}

TEST(IniValue, TakesTheStoredCharactersOrTheDefault) {
    EXPECT_EQ(ini_value(L"valor\0\0"sv, 5, L"x"), L"valor");
    EXPECT_EQ(ini_value(L"\0\0"sv, 0, L"x"), L"x");
    EXPECT_EQ(ini_value(L"\0\0"sv, 0, L""), L"");
    EXPECT_EQ(ini_value(L"ab", 254, L"x"), L"ab");
}

}  // namespace
}  // namespace kovrel
