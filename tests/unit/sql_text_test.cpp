// Texts, names and patterns for each database.
#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "runtime/failure.h"
#include "sql/pattern.h"
#include "sql/quoted_name.h"
#include "sql/text_literal.h"
#include "tests/support/sql_reader.h"

namespace kovrel {
namespace {

using namespace std::string_literals;

constexpr std::array dialects{Dialect::access, Dialect::sql_server, Dialect::postgresql,
                              Dialect::mysql,  Dialect::sqlite,     Dialect::oracle};

/// The description of the failure; empty where there is none.
template <class Call>
std::wstring refusal(const Call& call) {
    try {
        (void)call();
        return {};
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), 5);
        return std::wstring(failure.description());
    }
}

TEST(SqlText, QuotesAreDoubled) {
    EXPECT_EQ(text_literal(Dialect::access, L"d'Ors"), L"'d''Ors'");
    EXPECT_EQ(text_literal(Dialect::sql_server, L"d'Ors"), L"N'd''Ors'");
    EXPECT_EQ(text_literal(Dialect::postgresql, L"d'Ors"), L"'d''Ors'");
    EXPECT_EQ(text_literal(Dialect::mysql, L"d'Ors"), L"'d''Ors'");
    EXPECT_EQ(text_literal(Dialect::sqlite, L"d'Ors"), L"'d''Ors'");
    EXPECT_EQ(text_literal(Dialect::oracle, L"d'Ors"), L"'d''Ors'");
    EXPECT_EQ(text_literal(Dialect::access, L"''"), L"''''''");
    EXPECT_EQ(text_literal(Dialect::access, L"\"a\""), L"'\"a\"'");
}

TEST(SqlText, EmptyTexts) {
    for (const Dialect dialect : dialects) {
        EXPECT_EQ(text_literal(dialect, L""), dialect == Dialect::sql_server ? L"N''" : L"''");
    }
}

TEST(SqlText, Backslashes) {
    EXPECT_EQ(text_literal(Dialect::access, L"C:\\a'b"), L"'C:\\a''b'");
    EXPECT_EQ(text_literal(Dialect::sql_server, L"C:\\a"), L"N'C:\\a'");
    EXPECT_EQ(text_literal(Dialect::postgresql, L"C:\\a'b"), L"E'C:\\\\a''b'");
    EXPECT_EQ(text_literal(Dialect::mysql, L"\\'ñ€"), L"_utf8mb4 X'5C27C3B1E282AC'");
    EXPECT_EQ(text_literal(Dialect::sqlite, L"C:\\a"), L"'C:\\a'");
    EXPECT_EQ(text_literal(Dialect::oracle, L"C:\\a"), L"'C:\\a'");
    EXPECT_EQ(text_literal(Dialect::oracle, L"C:\\€"), L"UNISTR('C:\\\\\\20AC')");
}

TEST(SqlText, ABackslashBeforeALineEndDoesNotContinueTheLine) {
    EXPECT_EQ(text_literal(Dialect::sql_server, L"a\\\r\n"),
              L"CAST(0x61005C000D000A00 AS nvarchar(4000))");
    EXPECT_EQ(text_literal(Dialect::sql_server, L"\\\nñ"),
              L"CAST(0x5C000A00F100 AS nvarchar(4000))");
    EXPECT_EQ(text_literal(Dialect::sql_server, L"\r\n\\"), L"N'\r\n\\'");
}

TEST(SqlText, ALongTextByItsBytesHasNoLimit) {
    const auto end_of = [](std::size_t count) {
        const auto literal = text_literal(Dialect::sql_server, std::wstring(count, L'a') + L'\0');
        return literal.substr(literal.find(L' '));
    };
    EXPECT_EQ(end_of(3999), L" AS nvarchar(4000))");
    EXPECT_EQ(end_of(4000), L" AS nvarchar(max))");
}

TEST(SqlText, Nul) {
    const auto text = L"a\0b'"s;
    EXPECT_EQ(text_literal(Dialect::access, text), L"('a' & (Chr(0) & 'b'''))");
    EXPECT_EQ(text_literal(Dialect::sql_server, text),
              L"CAST(0x6100000062002700 AS nvarchar(4000))");
    EXPECT_EQ(refusal([&] { return text_literal(Dialect::postgresql, text); }),
              L"Llamada a procedimiento o argumento no válidos: PostgreSQL no admite el carácter "
              L"nulo en un texto");
    EXPECT_EQ(text_literal(Dialect::mysql, text), L"_utf8mb4 X'61006227'");
    EXPECT_EQ(text_literal(Dialect::sqlite, text), L"('a' || (char(0) || 'b'''))");
    EXPECT_EQ(text_literal(Dialect::oracle, text), L"UNISTR('a\\0000b''')");
    EXPECT_EQ(text_literal(Dialect::sqlite, L"\0"s), L"char(0)");
    EXPECT_EQ(text_literal(Dialect::sqlite, L"\0\0"s), L"(char(0) || char(0))");
}

TEST(SqlText, VerticalBarsInAccess) {
    EXPECT_EQ(text_literal(Dialect::access, L"a|b"), L"('a' & (Chr(124) & 'b'))");
    EXPECT_EQ(text_literal(Dialect::access, L"|"), L"Chr(124)");
    EXPECT_EQ(text_literal(Dialect::sqlite, L"a|b"), L"'a|b'");
}

TEST(SqlText, ManyPiecesAreNotNestedDeeply) {
    for (const Dialect dialect : {Dialect::access, Dialect::sqlite}) {
        const auto literal = text_literal(dialect, std::wstring(5000, L'\0'));
        int depth = 0;
        int deepest = 0;
        for (std::size_t i = 0; i + 1 < literal.size(); ++i) {
            if (literal[i] == L'(' && literal[i + 1] != L'0') deepest = std::max(deepest, ++depth);
            if (literal[i] == L')' && literal[i - 1] != L'0') --depth;
        }
        EXPECT_EQ(deepest, 13);
    }
}

TEST(SqlText, NationalTextsInOracle) {
    EXPECT_EQ(text_literal(Dialect::oracle, L"Muñoz\r\n"), L"'Muñoz\r\n'");
    EXPECT_EQ(text_literal(Dialect::oracle, L"\xA0~\xFF"), L"'\xA0~\xFF'");
    EXPECT_EQ(text_literal(Dialect::oracle, L"ñ€"), L"UNISTR('\\00F1\\20AC')");
    EXPECT_EQ(text_literal(Dialect::oracle, L"\x7F"), L"UNISTR('\\007F')");
    EXPECT_EQ(text_literal(Dialect::oracle, L"\x9F"), L"UNISTR('\\009F')");
    EXPECT_EQ(text_literal(Dialect::oracle, L"\x100"), L"UNISTR('\\0100')");
    EXPECT_EQ(text_literal(Dialect::oracle, L"a\xD83D\xDE00"), L"UNISTR('a\\D83D\\DE00')");
}

TEST(SqlText, LongTextsInOracleAreClobs) {
    const std::wstring most(4000, L'a');
    EXPECT_EQ(text_literal(Dialect::oracle, most), L"'" + most + L"'");
    EXPECT_EQ(text_literal(Dialect::oracle, most + L"b"),
              L"(TO_CLOB('" + most + L"') || TO_CLOB('b'))");
    const std::wstring latin(2000, L'ñ');
    EXPECT_EQ(text_literal(Dialect::oracle, latin), L"'" + latin + L"'");
    EXPECT_EQ(text_literal(Dialect::oracle, latin + L"ñ"),
              L"(TO_CLOB('" + latin + L"') || TO_CLOB('ñ'))");
    EXPECT_EQ(text_literal(Dialect::oracle, std::wstring(2001, L'\'')),
              L"(TO_CLOB('" + std::wstring(4000, L'\'') + L"') || TO_CLOB(''''))");
    EXPECT_EQ(
        text_literal(Dialect::oracle, L"€" + std::wstring(2000, L'a')),
        L"(TO_NCLOB(UNISTR('\\20AC" + std::wstring(1999, L'a') + L"')) || TO_NCLOB(UNISTR('a')))");
}

TEST(SqlText, HalvesOfSurrogatePairsAreRefusedEverywhere) {
    const auto reason =
        L"Llamada a procedimiento o argumento no válidos: el texto contiene medio par "
        L"suplente de UTF-16"s;
    for (const Dialect dialect : dialects) {
        for (const auto& text :
             {L"a\xD800"s, L"\xDC00"s, L"\xD800z"s, L"\xD800\xD800\xDC00"s, L"\xDC00\xD800"s,
              L"\xDC00\xDC00"s, L"\xD800\xDBFF"s, L"\xDBFF\xE000"s, L"\xDFFF"s}) {
            EXPECT_EQ(refusal([&] { return text_literal(dialect, text); }), reason);
            EXPECT_EQ(refusal([&] { return quoted_name(dialect, text); }), reason);
        }
        EXPECT_EQ(refusal([&] { return text_literal(dialect, L"\xD800\xDC00\xDBFF\xDFFF\xE000"); }),
                  L"");
    }
}

/// What can go wrong in some database, and longer texts of such pieces.
std::vector<std::wstring> hostile_texts() {
    const std::vector<std::wstring> pieces{
        L"'",  L"''",     L"\"", L"`",     L"\\",       L"\\'",    L"\\\\",
        L"--", L"#",      L"/*", L"*/",    L";",        L"\r\n",   L"\r",
        L"\n", L"\\\r\n", L"%",  L"_",     L"[",        L"]",      L"|",
        L"{",  L"}",      L"?",  L"$$",    L"$1",       L":a",     L"@a",
        L"E'", L"N'",     L"X'", L"\x2BC", L"\xFF07",   L"\x2019", L"\xD83D\xDE00",
        L"ñ",  L"€",      L"\t", L"\x1A",  L" OR 1=1 ", L"a"};
    std::vector<std::wstring> texts = pieces;
    std::minstd_rand random(7);
    for (int i = 0; i < 2000; ++i) {
        std::wstring text;
        for (auto left = random() % 12; left > 0; --left) text += pieces[random() % pieces.size()];
        texts.push_back(text);
    }
    texts.emplace_back(70000, L'\'');
    texts.push_back(std::wstring(70000, L'\\') + L'€');
    return texts;
}

TEST(SqlText, IsReadBackAsItWasWithEverySetting) {
    for (const Dialect dialect : dialects) {
        for (const bool backslashes_escape : {false, true}) {
            testing_support::SqlReader reader(dialect, backslashes_escape);
            for (const std::wstring& text : hostile_texts()) {
                ASSERT_EQ(reader.read(text_literal(dialect, text)), text);
                if (dialect == Dialect::postgresql) continue;
                const std::wstring with_nul = text + L'\0' + text;
                ASSERT_EQ(reader.read(text_literal(dialect, with_nul)), with_nul);
            }
        }
    }
}

TEST(SqlName, IsQuotedAsEachDatabaseAsks) {
    EXPECT_EQ(quoted_name(Dialect::access, L"Año de alta"), L"[Año de alta]");
    EXPECT_EQ(quoted_name(Dialect::sql_server, L"a]b[c"), L"[a]]b[c]");
    EXPECT_EQ(quoted_name(Dialect::postgresql, L"a\"b"), L"\"a\"\"b\"");
    EXPECT_EQ(quoted_name(Dialect::mysql, L"a`b"), L"`a``b`");
    EXPECT_EQ(quoted_name(Dialect::sqlite, L"a`b"), L"`a``b`");
    EXPECT_EQ(quoted_name(Dialect::oracle, L"a'b"), L"\"a'b\"");
}

TEST(SqlName, WhatADatabaseCannotHaveIsRefused) {
    const auto described = [](const wchar_t* reason) {
        return L"Llamada a procedimiento o argumento no válidos: "s + reason;
    };
    const auto of = [](Dialect dialect, const std::wstring& name) {
        return refusal([&] { return quoted_name(dialect, name); });
    };
    for (const Dialect dialect : dialects) {
        EXPECT_EQ(of(dialect, L""), described(L"el nombre está vacío"));
        EXPECT_EQ(of(dialect, L"a\0"s), described(L"la base de datos no admite ese nombre"));
    }
    for (const auto* const name : {L"a.b", L"a!b", L"a`b", L"a[b", L"a]b", L" a", L"a\tb"}) {
        EXPECT_EQ(of(Dialect::access, name), described(L"la base de datos no admite ese nombre"));
    }
    EXPECT_EQ(of(Dialect::access, L"a b"), L"");
    EXPECT_EQ(of(Dialect::oracle, L"a\"b"), described(L"la base de datos no admite ese nombre"));
    for (const auto* const name : {L"a ", L"a\t", L"a\n", L"a\v", L"a\f", L"a\r"}) {
        EXPECT_EQ(of(Dialect::mysql, name), described(L"la base de datos no admite ese nombre"));
    }
    EXPECT_EQ(of(Dialect::mysql, L" a\rb"), L"");
    EXPECT_EQ(of(Dialect::mysql, L"\xD83D\xDE00"),
              described(L"la base de datos no admite ese nombre"));
    EXPECT_EQ(of(Dialect::mysql, L"\xFFFF"), L"");
}

TEST(SqlName, LengthsAreLimited) {
    const auto of = [](Dialect dialect, std::size_t length, wchar_t character) {
        return refusal([&] { return quoted_name(dialect, std::wstring(length, character)); });
    };
    constexpr auto too_long =
        L"Llamada a procedimiento o argumento no válidos: el nombre es demasiado largo";
    struct Limit {
        Dialect dialect;
        wchar_t character;
        std::size_t most;
    };
    for (const auto& [dialect, character, most] :
         {Limit{Dialect::access, L'ñ', 64}, Limit{Dialect::sql_server, L'ñ', 128},
          Limit{Dialect::postgresql, L'a', 63}, Limit{Dialect::postgresql, L'ñ', 31},
          Limit{Dialect::postgresql, L'€', 21}, Limit{Dialect::mysql, L'ñ', 64},
          Limit{Dialect::oracle, L'a', 128}, Limit{Dialect::oracle, L'ñ', 64}}) {
        EXPECT_EQ(of(dialect, most, character), L"");
        EXPECT_EQ(of(dialect, most + 1, character), too_long);
    }
    EXPECT_EQ(of(Dialect::sqlite, 100000, L'a'), L"");
}

TEST(SqlPattern, NothingInTheTextIsAWildcard) {
    const auto* const text = L"50%_[a]*?#!\\";
    EXPECT_EQ(escaped_pattern(Dialect::access, text), L"50[%][_][[]a][*][?][#]!\\");
    EXPECT_EQ(escaped_pattern(Dialect::sql_server, text), L"50!%!_![a]*?#!!\\");
    for (const Dialect dialect :
         {Dialect::postgresql, Dialect::mysql, Dialect::sqlite, Dialect::oracle}) {
        EXPECT_EQ(escaped_pattern(dialect, text), L"50!%!_[a]*?#!!\\");
    }
    EXPECT_EQ(escaped_pattern(Dialect::sqlite, L"\0%"s), L"\0!%"s);
}

TEST(SqlPattern, TheClauseNamesTheEscapeCharacter) {
    EXPECT_EQ(like_clause(Dialect::access, L"d'[%]%"), L"ALIKE 'd''[%]%'");
    EXPECT_EQ(like_clause(Dialect::sql_server, L"a!%%"), L"LIKE N'a!%%' ESCAPE '!'");
    EXPECT_EQ(like_clause(Dialect::postgresql, L"\\%"), L"LIKE E'\\\\%' ESCAPE '!'");
    EXPECT_EQ(like_clause(Dialect::mysql, L"a%"), L"LIKE 'a%' ESCAPE '!'");
    EXPECT_EQ(like_clause(Dialect::sqlite, L"a%"), L"LIKE 'a%' ESCAPE '!'");
    EXPECT_EQ(like_clause(Dialect::oracle, L"€%"), L"LIKE UNISTR('\\20AC%') ESCAPE '!'");
}

}  // namespace
}  // namespace kovrel
