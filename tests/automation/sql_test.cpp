// clsCSQL: literals for SQL texts, the same whatever the user's settings.
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

#include "tests/support/every_way.h"

namespace kovrel::test {
namespace {

constexpr const wchar_t* needs_a_number =
    L"Error en la función SQL.Conv_Double: el valor no es numérico";

class SqlAnySettings : public testing::TestWithParam<Way> {
 protected:
    SqlAnySettings() { put(literals_.get(), L"AppOrigen", Variant(L"Consultas")); }

    std::string shown_for(const wchar_t* member, const Variant& argument,
                          const std::vector<ExpectedBox>& boxes = {}) {
        const Answer answer = call_in(GetParam(), literals_.get(), member, {argument}, boxes);
        EXPECT_EQ(answer.result, S_OK);
        return shown(answer.value);
    }

    ComPtr<IDispatch> literals_ = create(L"Kovrel.clsCSQL");
};

TEST_P(SqlAnySettings, NumbersHaveAPoint) {
    const auto two = [&](const Variant& number) { return shown_for(L"Conv_Double", number); };
    EXPECT_EQ(two(Variant(1234.5)), "texto 1234.50");
    EXPECT_EQ(two(Variant(-0.456)), "texto -0.46");
    EXPECT_EQ(two(Variant(0)), "texto 0.00");
    EXPECT_EQ(two(Variant()), "texto 0.00");
    EXPECT_EQ(two(Variant(true)), "texto -1.00");
    EXPECT_EQ(two(Variant(Variant(12.5).to_text())), "texto 12.50");
    EXPECT_EQ(two(Variant(1e15)), "texto 1000000000000000.00");
    const auto four = [&](const Variant& number) { return shown_for(L"Conv_Double4", number); };
    EXPECT_EQ(four(Variant(1)), "texto 1.0000");
    EXPECT_EQ(four(Variant(-2.00005)), "texto -2.0001");
    EXPECT_EQ(four(Variant(Variant(0.25).to_text())), "texto 0.2500");
    const auto plain = [&](double number) {
        return shown_for(L"Conv_DoubleDeDouble", Variant(number));
    };
    EXPECT_EQ(plain(1234.5), "texto 1234.50");
    EXPECT_EQ(plain(0.005), "texto 0.01");
    EXPECT_EQ(plain(-3), "texto -3.00");
}

TEST_P(SqlAnySettings, TextsThatAreNotNumbersShowABox) {
    for (const Variant& value :
         {Variant(L""), Variant(L"doce"), Variant::null(), Variant(Date{45366})}) {
        EXPECT_EQ(shown_for(L"Conv_Double", value, {{needs_a_number, 16, L"Consultas"}}), "texto ");
        EXPECT_EQ(shown_for(L"Conv_Double4", value, {{needs_a_number, 16, L"kovrel"}}), "texto ");
    }
    put(literals_.get(), L"AppOrigen", Variant(L""));
    EXPECT_EQ(shown_for(L"Conv_Double", Variant(L"doce"), {{needs_a_number, 16, L""}}), "texto ");
}

TEST_P(SqlAnySettings, NumberFailuresShowTheErrorBox) {
    // The rounding shows its own box and returns no digits, so the conversion fails as well.
    const auto twice = [&](const wchar_t* member, const wchar_t* inner, const wchar_t* outer) {
        EXPECT_EQ(shown_for(member, Variant(std::numeric_limits<double>::infinity()),
                            {{inner, 16, L"kovrel"}, {outer, 16, L"kovrel"}}),
                  "texto ");
    };
    twice(
        L"Conv_Double", L"Error 6\r (Desbordamiento) en procedimiento redondeoa2 del Módulo FGen.",
        L"Error 5\r (Llamada a procedimiento o argumento no válidos) en procedimiento Conv_Double "
        L"del Módulo de clase clsCSQL.");
    twice(L"Conv_DoubleDeDouble",
          L"Error 6\r (Desbordamiento) en procedimiento redondeoa2 del Módulo FGen.",
          L"Error 5\r (Llamada a procedimiento o argumento no válidos) en procedimiento "
          L"Conv_DoubleDeDouble del Módulo de clase clsCSQL.");
    twice(L"Conv_Double4",
          L"Error 6\r (Desbordamiento) en procedimiento redondeoa4 del Módulo FGen.",
          L"Error 5\r (Llamada a procedimiento o argumento no válidos) en procedimiento "
          L"Conv_Double4 del Módulo de clase clsCSQL.");
}

TEST_P(SqlAnySettings, DatesHaveTheMonthFirst) {
    EXPECT_EQ(shown_for(L"Conv_Date_Date", Variant(Date{45366})), "texto #03/15/2024#");
    EXPECT_EQ(shown_for(L"Conv_Date_Date", Variant(Date{45366.99})), "texto #03/15/2024#");
    EXPECT_EQ(shown_for(L"Conv_Date_Date", Variant(Date{0})), "texto #12/30/1899#");
    EXPECT_EQ(shown_for(L"Conv_Date_Date", Variant(Date{-0.75})), "texto #12/30/1899#");
    // Not a date in any order of day, month and year.
    EXPECT_EQ(shown_for(L"Conv_Date", Variant(L"15/15/2024")), "texto #15/15/2024#");
    EXPECT_EQ(shown_for(L"Conv_Date", Variant(L"mañana")), "texto #mañana#");
    EXPECT_EQ(shown_for(L"Conv_Date", Variant(L"")), "texto ##");
    // A time alone is on day 0; a number is not a date.
    EXPECT_EQ(shown_for(L"Conv_Date", Variant(L"18:30")), "texto #12/30/1899#");
    EXPECT_EQ(shown_for(L"Conv_Date", Variant(L"0:00")), "texto #12/30/1899#");
    for (const char* const number : {"5", "45366", "-3", "1000000"}) {
        EXPECT_EQ(
            shown_for(L"Conv_Date", Variant(std::wstring(number, number + std::strlen(number)))),
            std::string("texto #") + number + "#");
    }
    // A date in year-month-day order only.
    EXPECT_EQ(shown_for(L"Conv_Date", Variant(L"2024-03-15")), "texto #03/15/2024#");
}

TEST_P(SqlAnySettings, BooleansAndTexts) {
    EXPECT_EQ(shown_for(L"Conv_Boolean", Variant(true)), "entero16 -1");
    EXPECT_EQ(shown_for(L"Conv_Boolean", Variant(false)), "entero16 0");
    EXPECT_EQ(shown_for(L"Conv_Boolean", Variant(5)), "entero16 -1");
    EXPECT_EQ(shown_for(L"Conv_String", Variant(L"")), "texto ''");
    EXPECT_EQ(shown_for(L"Conv_String", Variant(L"Muñoz")), "texto 'Muñoz'");
    EXPECT_EQ(shown_for(L"Conv_String", Variant(L"d'Ors")), "texto 'd'Ors'");
}

TEST_P(SqlAnySettings, DateFailuresReachTheHost) {
    // Outside the years 100 to 9999.
    for (const double days : {1e9, -1e9, std::numeric_limits<double>::quiet_NaN()}) {
        const Answer beyond =
            call_in(GetParam(), literals_.get(), L"Conv_Date_Date", {Variant(Date{days})}, {});
        EXPECT_EQ(beyond.result, failure(5));
        EXPECT_EQ(narrow(beyond.description), "Llamada a procedimiento o argumento no válidos");
        EXPECT_EQ(narrow(beyond.source), "Kovrel.clsCSQL");
        EXPECT_EQ(shown(beyond.value), GetParam() == Way::early ? "texto " : "vacío");
    }
}

INSTANTIATE_TEST_SUITE_P(All, SqlAnySettings, testing::ValuesIn(every_way));

TEST(Sql, DateTextsAreReadDayFirst) {
    const auto literals = create(L"Kovrel.clsCSQL");
    for (const Way way : every_way) {
        const auto date = [&](const wchar_t* text) {
            return shown(call_in(way, literals.get(), L"Conv_Date", {Variant(text)}, {}).value);
        };
        EXPECT_EQ(date(L"15/03/2024"), "texto #03/15/2024#");
        EXPECT_EQ(date(L"1/2/2024"), "texto #02/01/2024#");
        EXPECT_EQ(date(L"15/3/24 18:30"), "texto #03/15/2024#");
        EXPECT_EQ(date(L"29/02/2023"), "texto #29/02/2023#");
    }
}

TEST(Sql, ArgumentsOfTheWrongTypeAreRefused) {
    const auto literals = create(L"Kovrel.clsCSQL");
    const Outcome text = call(literals.get(), L"Conv_Boolean", {L"quizás"});
    EXPECT_EQ(text.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(text.bad_argument, 0U);
    EXPECT_EQ(call(literals.get(), L"Conv_Date_Date", {L"31/31/2024"}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call(literals.get(), L"Conv_Double", {}).result, DISP_E_BADPARAMCOUNT);
}

}  // namespace
}  // namespace kovrel::test
