// Numbers, dates, booleans, bytes and lists for each database.
#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "runtime/failure.h"
#include "sql/value_literal.h"

namespace kovrel {
namespace {

constexpr std::array every{Dialect::access, Dialect::sql_server, Dialect::postgresql,
                           Dialect::mysql,  Dialect::sqlite,     Dialect::oracle};
constexpr double day = 45366;  // 15 March 2024
constexpr double milliseconds = 86'400'000;
constexpr double half_past_six = 18.5 / 24;

/// What each database is given, in the order of the enumeration.
using Expected = std::array<const wchar_t*, every.size()>;

template <class Write>
void expect(const Expected& expected, const Write& write) {
    for (std::size_t i = 0; i < every.size(); ++i) EXPECT_EQ(write(every[i]), expected[i]);
}

template <class Call>
int failure_number(const Call& call, std::wstring_view reason = {}) {
    try {
        (void)call();
        return 0;
    } catch (const Failure& failure) {
        if (!reason.empty()) {
            EXPECT_EQ(failure.description(),
                      L"Llamada a procedimiento o argumento no válidos: " + std::wstring(reason));
        }
        return failure.number();
    }
}

TEST(SqlNumber, NegativeNumbersCannotBeginAComment) {
    for (const Dialect dialect : every) {
        EXPECT_EQ(number_literal(dialect, L"12.5"), L"12.5");
        EXPECT_EQ(number_literal(dialect, L"0"), L"0");
        EXPECT_EQ(number_literal(dialect, L"-12.5"), L"(-12.5)");
    }
}

TEST(SqlNumber, PastTheRangeOfOraclesNumbers) {
    EXPECT_EQ(number_literal(Dialect::oracle, L"1E+125"), L"1E+125");
    EXPECT_EQ(number_literal(Dialect::oracle, L"1E+126"), L"1E+126d");
    EXPECT_EQ(number_literal(Dialect::oracle, L"-1.5E+300"), L"(-1.5E+300d)");
    EXPECT_EQ(number_literal(Dialect::oracle, L"1E-130"), L"1E-130");
    EXPECT_EQ(number_literal(Dialect::oracle, L"1E-131"), L"1E-131d");
    EXPECT_EQ(number_literal(Dialect::postgresql, L"1E+300"), L"1E+300");
}

TEST(SqlDate, Days) {
    const Expected expected{L"#2024-03-15#",      L"'20240315'",   L"DATE '2024-03-15'",
                            L"DATE '2024-03-15'", L"'2024-03-15'", L"DATE '2024-03-15'"};
    for (const double date : {day, day + half_past_six, day + 86'399'999.3 / milliseconds}) {
        expect(expected, [&](Dialect dialect) { return date_literal(dialect, date); });
    }
    expect(expected, [](Dialect dialect) { return shortest_date_literal(dialect, day); });
    // Hours that were added up do not reach midnight exactly.
    expect(expected, [](Dialect dialect) { return date_literal(dialect, day - 1e-10); });
    expect(expected, [](Dialect dialect) { return shortest_date_literal(dialect, day - 1e-10); });
}

TEST(SqlDate, DaysWithTheirTime) {
    const Expected expected{
        L"#2024-03-15 18:30:00#",
        L"'2024-03-15T18:30:00'",
        L"TIMESTAMP '2024-03-15 18:30:00'",
        L"TIMESTAMP '2024-03-15 18:30:00'",
        L"'2024-03-15 18:30:00'",
        L"TO_DATE('2024-03-15 18:30:00', 'YYYY-MM-DD HH24:MI:SS')",
    };
    const double date = day + half_past_six;
    expect(expected, [&](Dialect dialect) { return date_time_literal(dialect, date); });
    expect(expected, [&](Dialect dialect) { return shortest_date_literal(dialect, date); });
    EXPECT_EQ(date_time_literal(Dialect::sqlite, day), L"'2024-03-15 00:00:00'");
}

TEST(SqlDate, FractionsOfASecond) {
    const double date = day + (3'600'000 + 2 * 60'000 + 3'045) / milliseconds;
    expect({L"#2024-03-15 01:02:03#", L"'2024-03-15T01:02:03.045'",
            L"TIMESTAMP '2024-03-15 01:02:03.045'", L"TIMESTAMP '2024-03-15 01:02:03.045'",
            L"'2024-03-15 01:02:03.045'", L"TIMESTAMP '2024-03-15 01:02:03.045'"},
           [&](Dialect dialect) { return date_time_literal(dialect, date); });
    const double late = day + 86'399'500 / milliseconds;
    EXPECT_EQ(date_time_literal(Dialect::access, late), L"#2024-03-16 00:00:00#");
    EXPECT_EQ(shortest_date_literal(Dialect::access, late), L"#2024-03-16#");
    EXPECT_EQ(date_literal(Dialect::access, late), L"#2024-03-15#");
    EXPECT_EQ(date_time_literal(Dialect::sqlite, late), L"'2024-03-15 23:59:59.500'");
    EXPECT_EQ(date_time_literal(Dialect::access, day + 400 / milliseconds),
              L"#2024-03-15 00:00:00#");
}

TEST(SqlDate, TheWholeRange) {
    EXPECT_EQ(date_literal(Dialect::access, 0), L"#1899-12-30#");
    EXPECT_EQ(date_time_literal(Dialect::sqlite, -1.25), L"'1899-12-29 06:00:00'");
    EXPECT_EQ(date_time_literal(Dialect::sqlite, -0.75), L"'1899-12-30 18:00:00'");
    EXPECT_EQ(date_literal(Dialect::sql_server, -657434), L"'01000101'");
    EXPECT_EQ(date_literal(Dialect::postgresql, 2958465), L"DATE '9999-12-31'");
    for (const double beyond :
         {-657435.0, 2958466.0, 1e300, -1e300, std::numeric_limits<double>::quiet_NaN(),
          std::numeric_limits<double>::infinity(), 2958465.9999999995}) {
        EXPECT_EQ(failure_number([&] { return date_literal(Dialect::sqlite, beyond); }), 5);
        EXPECT_EQ(failure_number([&] { return date_time_literal(Dialect::sqlite, beyond); }), 5);
        EXPECT_EQ(failure_number([&] { return shortest_date_literal(Dialect::access, beyond); }),
                  5);
    }
}

TEST(SqlBoolean, InEveryDialect) {
    expect({L"True", L"1", L"TRUE", L"TRUE", L"1", L"1"},
           [](Dialect dialect) { return boolean_literal(dialect, true); });
    expect({L"False", L"0", L"FALSE", L"FALSE", L"0", L"0"},
           [](Dialect dialect) { return boolean_literal(dialect, false); });
}

TEST(SqlBytes, InEveryDialect) {
    constexpr std::array<std::uint8_t, 4> bytes{0, 0x27, 0xAB, 0xFF};
    expect({L"0x0027ABFF", L"0x0027ABFF", L"decode('0027ABFF', 'hex')", L"X'0027ABFF'",
            L"X'0027ABFF'", L"HEXTORAW('0027ABFF')"},
           [&](Dialect dialect) { return bytes_literal(dialect, bytes); });
    expect({L"0x", L"0x", L"decode('', 'hex')", L"X''", L"X''", L"HEXTORAW('')"},
           [](Dialect dialect) { return bytes_literal(dialect, {}); });
}

TEST(SqlBytes, OracleTakesTwoThousand) {
    const std::vector<std::uint8_t> bytes(2001);
    EXPECT_EQ(bytes_literal(Dialect::oracle, std::span(bytes).first(2000)).size(), 4012U);
    EXPECT_EQ(failure_number([&] { return bytes_literal(Dialect::oracle, bytes); },
                             L"un literal de Oracle no admite más de 2000 bytes"),
              5);
    EXPECT_EQ(bytes_literal(Dialect::sqlite, bytes).size(), 4005U);
}

TEST(SqlList, LiteralsBetweenParentheses) {
    for (const Dialect dialect : every) {
        EXPECT_EQ(list_literal(dialect, {L"1"}), L"(1)");
        EXPECT_EQ(list_literal(dialect, {L"'a'", L"(-2)", L"3"}), L"('a', (-2), 3)");
        EXPECT_EQ(failure_number([&] { return list_literal(dialect, {}); }, L"la lista está vacía"),
                  5);
    }
    const std::vector<std::wstring> many(1001, L"1");
    EXPECT_EQ(failure_number([&] { return list_literal(Dialect::oracle, many); },
                             L"una lista de Oracle no admite más de 1000 valores"),
              5);
    EXPECT_EQ(list_literal(Dialect::oracle, {many.begin(), many.begin() + 1000}).size(), 3000U);
    EXPECT_EQ(list_literal(Dialect::sqlite, many).size(), 3003U);
}

}  // namespace
}  // namespace kovrel
