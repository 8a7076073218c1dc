#include "numbers/sql_literal.h"

#include <gtest/gtest.h>

#include "numbers/rounding.h"
#include "runtime/failure.h"

namespace kovrel {
namespace {

TEST(SqlLiteral, NumbersTakeAPointWhateverTheSettings) {
    const RegionalSettings comma;
    const RegionalSettings point{.decimal_separator = L'.'};
    for (const auto& settings : {comma, point}) {
        EXPECT_EQ(sql_number(round_to_two(1234.5, settings), 2), L"1234.50");
        EXPECT_EQ(sql_number(round_to_two(-0.456, settings), 2), L"-0.46");
        EXPECT_EQ(sql_number(round_to_two(0, settings), 2), L"0.00");
        EXPECT_EQ(sql_number(round_to_two(12.5, settings), 2), L"12.50");
        EXPECT_EQ(sql_number(round_to_four(1, settings), 4), L"1.0000");
        EXPECT_EQ(sql_number(round_to_four(-1.00005, settings), 4), L"-1.0001");
    }
    EXPECT_EQ(sql_number(L"3'50", 2), L"3.50");
}

TEST(SqlLiteral, ATextWithoutDecimalsIsAnInvalidArgument) {
    for (const std::wstring_view text : {L"", L"1", L"12"}) {
        try {
            (void)sql_number(text, 2);
            FAIL();
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.number(), 5);
        }
    }
    EXPECT_EQ(sql_number(L",50", 2), L".50");
}

TEST(SqlLiteral, DatesBeginWithTheMonth) {
    EXPECT_EQ(sql_date(2024, 3, 15), L"#03/15/2024#");
    EXPECT_EQ(sql_date(1899, 12, 30), L"#12/30/1899#");
    EXPECT_EQ(sql_date(100, 1, 1), L"#01/01/0100#");
    EXPECT_EQ(sql_date(9999, 12, 31), L"#12/31/9999#");
}

TEST(SqlLiteral, ATextThatIsNotADateIsUnchanged) {
    EXPECT_EQ(sql_date(L"mañana"), L"#mañana#");
    EXPECT_EQ(sql_date(L""), L"##");
}

TEST(SqlLiteral, Booleans) {
    EXPECT_EQ(sql_boolean(true), -1);
    EXPECT_EQ(sql_boolean(false), 0);
}

TEST(SqlLiteral, QuotesInATextAreNotDoubled) {
    EXPECT_EQ(sql_string(L"Peña"), L"'Peña'");
    EXPECT_EQ(sql_string(L""), L"''");
    EXPECT_EQ(sql_string(L"O'Donnell"), L"'O'Donnell'");
}

TEST(SqlLiteral, TheNoticeTakesTheTitleGiven) {
    const std::wstring text = L"Error en la función SQL.Conv_Double: el valor no es numérico";
    EXPECT_EQ(sql_needs_a_number(L"Facturas"), (Notice{text, NoticeStyle::critical, L"Facturas"}));
    EXPECT_EQ(sql_needs_a_number(L""), (Notice{text, NoticeStyle::critical, L""}));
    EXPECT_EQ(sql_needs_a_number(std::nullopt),
              (Notice{text, NoticeStyle::critical, std::nullopt}));
}

}  // namespace
}  // namespace kovrel
