#include "numbers/words.h"

#include <cmath>
#include <cstdint>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <initializer_list>
#include <limits>
#include <new>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "runtime/number_format.h"
#include "tests/support/spanish_regional.h"

namespace kovrel {
namespace {

using testing_support::SpanishRegional;

class Words : public testing::Test {
 protected:
    std::wstring text(std::wstring_view given, UnitNames unit = {}, UnitNames subunit = {}) {
        return text_in_words(given, unit, subunit, context_);
    }
    std::wstring number(std::wstring_view given, UnitNames unit = {}) {
        return number_in_words(given, unit, context_);
    }
    std::wstring group(std::wstring_view given, UnitNames unit = {}) {
        return group_in_words(given, unit, context_);
    }
    std::wstring euros(double amount) { return euros_in_words(amount, context_); }

    static std::wstring digits(std::wstring_view first, std::size_t zeros) {
        return std::wstring(first) + std::wstring(zeros, L'0');
    }

    std::vector<std::int32_t> failures_;

 private:
    SpanishRegional regional_;
    WordsContext context_{
        regional_, [this](const Failure& failure) { failures_.push_back(failure.number()); }};
};

TEST_F(Words, Euros) {
    EXPECT_EQ(euros(12.5), L"DOCE EUROS CON CINCUENTA CÉNTIMOS");
    EXPECT_EQ(euros(12), L"DOCE EUROS");
    EXPECT_EQ(euros(1.01), L"UN EURO CON UN CÉNTIMO");
    EXPECT_EQ(euros(21), L"VEINTIUN EUROS");
    EXPECT_EQ(euros(2000), L"DOS MIL  EUROS");
    EXPECT_EQ(euros(-12.75), L"MENOS TRECE EUROS");
    EXPECT_EQ(euros(0), L"CERO EUROS");
    EXPECT_EQ(euros(1), L"UN EURO");
    EXPECT_EQ(euros(0.5), L"CERO EUROS CON CINCUENTA CÉNTIMOS");
    EXPECT_EQ(euros(0.01), L"CERO EUROS CON UN CÉNTIMO");
    EXPECT_EQ(euros(1234.56),
              L"MIL DOSCIENTOS TREINTA Y CUATRO EUROS CON CINCUENTA Y SEIS CÉNTIMOS");
    EXPECT_EQ(euros(16.26), L"DIECISÉIS EUROS CON VEINTISEIS CÉNTIMOS");
    EXPECT_EQ(euros(1e6), L"UN MILLÓN  EUROS");
    EXPECT_EQ(euros(3000001), L"TRES MILLONES UN EUROS");
}

TEST_F(Words, EurosAreRoundedToCents) {
    EXPECT_EQ(euros(1.005), L"UN EURO CON UN CÉNTIMO");
    EXPECT_EQ(euros(0.995), L"UN EURO");
    EXPECT_EQ(euros(0.004), L"CERO EUROS");
    EXPECT_EQ(euros(-0.004), L"CERO EUROS");
    EXPECT_EQ(euros(-0.25), L"MENOS CERO EUROS");
    EXPECT_EQ(euros(-0.5), L"MENOS UN EURO");
}

TEST_F(Words, EurosAreTheWordsOfTheAmountAsAText) {
    std::mt19937_64 random(20240315);  // fixed: the same amounts in every run
    std::uniform_real_distribution<double> exponents(-3, 15);
    for (int turn = 0; turn < 20000; ++turn) {
        double amount = std::pow(10, exponents(random));
        if (turn % 3 == 0) amount = std::round(amount * 100) / 100;
        if (turn % 7 == 0) amount = std::round(amount / 1000) * 1000;
        if (turn % 11 == 0) amount = -amount;
        const auto amount_text = format_number(amount, patterns::two_decimals, L',');
        ASSERT_EQ(euros(amount),
                  to_upper(text(amount_text, {L"Euro", L"Euros"}, {L"Céntimo", L"Céntimos"})));
    }
}

TEST_F(Words, EurosAtTheEndsOfTheRange) {
    EXPECT_EQ(euros(1e15), L"MIL BILLONES  EUROS");
    EXPECT_EQ(euros(1e200), L"?");
    EXPECT_EQ(euros(std::numeric_limits<double>::max()), L"?");
    EXPECT_EQ(euros(std::numeric_limits<double>::denorm_min()), L"CERO EUROS");
    EXPECT_THROW((void)euros(std::nan("")), Failure);
    EXPECT_THROW((void)euros(std::numeric_limits<double>::infinity()), Failure);
}

TEST_F(Words, UnitsTeensAndTwenties) {
    const std::vector<std::wstring> expected{
        L"cero",        L"uno",        L"dos",         L"tres",       L"cuatro",
        L"cinco",       L"seis",       L"siete",       L"ocho",       L"nueve",
        L"diez",        L"once",       L"doce",        L"trece",      L"catorce",
        L"quince",      L"dieciséis",  L"diecisiete",  L"dieciocho",  L"diecinueve",
        L"veinte",      L"veintiuno",  L"veintidós",   L"veintitrés", L"veinticuatro",
        L"veinticinco", L"veintiseis", L"veintisiete", L"veintiocho", L"veintinueve"};
    for (std::size_t value = 0; value < expected.size(); ++value) {
        EXPECT_EQ(text(std::to_wstring(value)), expected[value]);
    }
}

TEST_F(Words, TensAndHundreds) {
    EXPECT_EQ(text(L"30"), L"treinta");
    EXPECT_EQ(text(L"31"), L"treinta y uno");
    EXPECT_EQ(text(L"42"), L"cuarenta y dos");
    EXPECT_EQ(text(L"53"), L"cincuenta y tres");
    EXPECT_EQ(text(L"64"), L"sesenta y cuatro");
    EXPECT_EQ(text(L"75"), L"setenta y cinco");
    EXPECT_EQ(text(L"86"), L"ochenta y seis");
    EXPECT_EQ(text(L"97"), L"noventa y siete");
    EXPECT_EQ(text(L"100"), L"cien");
    EXPECT_EQ(text(L"101"), L"ciento uno");
    EXPECT_EQ(text(L"110"), L"ciento diez");
    EXPECT_EQ(text(L"200"), L"doscientos");
    EXPECT_EQ(text(L"316"), L"trescientos dieciséis");
    EXPECT_EQ(text(L"420"), L"cuatrocientos veinte");
    EXPECT_EQ(text(L"500"), L"quinientos");
    EXPECT_EQ(text(L"601"), L"seiscientos uno");
    EXPECT_EQ(text(L"700"), L"setecientos");
    EXPECT_EQ(text(L"888"), L"ochocientos ochenta y ocho");
    EXPECT_EQ(text(L"999"), L"novecientos noventa y nueve");
}

TEST_F(Words, ThousandsAndMillions) {
    EXPECT_EQ(text(L"1000"), L"mil");
    EXPECT_EQ(text(L"1001"), L"mil uno");
    EXPECT_EQ(text(L"2000"), L"dos mil");
    EXPECT_EQ(text(L"21000"), L"veintiun mil");
    EXPECT_EQ(text(L"100000"), L"cien mil");
    EXPECT_EQ(text(L"101000"), L"ciento un mil");
    EXPECT_EQ(text(L"1000000"), L"un millón");
    EXPECT_EQ(text(L"2000000"), L"dos millones");
    EXPECT_EQ(text(L"1000000000"), L"mil millones");
    EXPECT_EQ(text(L"1500000000"), L"mil quinientos millones");
    EXPECT_EQ(text(L"1001001"), L"un millón  mil uno");
    EXPECT_EQ(text(L"1001000000"), L"mil millones un millón");
    EXPECT_EQ(text(L"1002000000"), L"mil dos millones");
    EXPECT_EQ(text(L"2000000000"), L"dos mil millones");
    EXPECT_EQ(text(L"1000000000000"), L"un billón");
    EXPECT_EQ(text(L"1005000000000"), L"un billón cinco mil");
    EXPECT_EQ(text(L"2001001000"), L"dos mil millones un millón  mil");
}

TEST_F(Words, TheScaleToItsEnd) {
    EXPECT_EQ(text(digits(L"1", 24)), L"un cuatrillón");
    EXPECT_EQ(text(digits(L"5", 24)), L"cinco cuatrillones");
    EXPECT_EQ(text(digits(L"1", 48)), L"un octillón");
    EXPECT_EQ(text(digits(L"2", 48)), L"dos octillones");
    EXPECT_EQ(text(digits(L"2003", 45)), L"dos octillonestres mil");
    EXPECT_EQ(text(digits(L"3", 48) + L"0"), L"treinta octillones");
    EXPECT_EQ(text(digits(L"1", 51)), L"mil octillones");
    EXPECT_EQ(text(digits(L"2001", 48)), L"dos mil octillonesun octillón");
    EXPECT_EQ(text(digits(L"1", 120)), L"un vigintillón");
    EXPECT_EQ(text(digits(L"7", 120)), L"siete vigintillones");
    EXPECT_EQ(text(digits(L"1", 117)), L"mil novendecillones");

    const std::vector<std::wstring> names{
        L"millones",         L"billones",         L"trillones",       L"cuatrillones",
        L"quintillones",     L"sextillones",      L"septillones",     L"octillones",
        L"nonillones",       L"decillones",       L"undecillones",    L"duodecillones",
        L"tredecillones",    L"cuatordecillones", L"quindecillones",  L"sexdecillones",
        L"septendecillones", L"octodecillones",   L"novendecillones", L"vigintillones"};
    for (std::size_t power = 1; power <= names.size(); ++power) {
        const auto& plural = names[power - 1];
        const auto singular = plural.substr(0, plural.size() - 4) + L"ón";
        EXPECT_EQ(text(digits(L"3", power * 6)), L"tres " + plural);
        EXPECT_EQ(text(digits(L"1", power * 6)), L"un " + singular);
    }
}

TEST_F(Words, BeyondTheScaleTheNumberIsAQuestionMark) {
    EXPECT_NE(text(std::wstring(123, L'9')).find(L"vigintillones"), std::wstring::npos);
    EXPECT_EQ(text(std::wstring(124, L'9')), L"?");
    EXPECT_EQ(number(std::wstring(124, L'1'), {L"Euro", L"Euros"}), L"?");
    EXPECT_EQ(group(std::wstring(124, L'1')), L"?");
    EXPECT_EQ(text(L"son " + std::wstring(400, L'9') + L" 2"), L"son ? dos");
    EXPECT_EQ(text(L"-" + std::wstring(400, L'9')), L"menos ?");
    EXPECT_EQ(text(std::wstring(124, L'1') + L",5"), L"?");
    EXPECT_THAT(failures_, testing::IsEmpty());
    // A group that is no number is reported where the scale has a word for it, and for the first
    // one without.
    EXPECT_EQ(number(L"x1x1" + std::wstring(123, L'1')), L"?");
    EXPECT_THAT(failures_, testing::ElementsAre(13));
    failures_.clear();
    EXPECT_EQ(number(L"x1x1" + std::wstring(126, L'1')), L"?");
    EXPECT_THAT(failures_, testing::IsEmpty());
}

TEST_F(Words, ATextKeepsAllItsDigits) {
    EXPECT_EQ(text(L"1000000000000000001"), L"un trillón uno");
    EXPECT_EQ(text(L"9007199254740993"),
              L"nueve mil siete billones ciento noventa y nueve mil doscientos cincuenta y cuatro "
              L"millones setecientos cuarenta mil novecientos noventa y tres");
}

TEST_F(Words, UnoDependsOnTheUnitNames) {
    EXPECT_EQ(text(L"21"), L"veintiuno");
    EXPECT_EQ(text(L"21", {L"Euro", L"Euros"}), L"veintiun Euros");
    EXPECT_EQ(text(L"1", {L"Euro", L"Euros"}), L"un Euro");
    // With one group only the singular name counts.
    EXPECT_EQ(text(L"1", {L"", L"Euros"}), L"uno");
    EXPECT_EQ(text(L"21", {L"", L"Euros"}), L"veintiuno Euros");
    EXPECT_EQ(text(L"21", {L"Euro", L""}), L"veintiun");
    // With several groups either name counts.
    EXPECT_EQ(text(L"1021", {L"", L"Euros"}), L"mil veintiun Euros");
    EXPECT_EQ(text(L"1021", {L"Euro", L""}), L"mil veintiun");
    EXPECT_EQ(text(L"1021"), L"mil veintiuno");
    EXPECT_EQ(text(L"1021", {L"Euro", L"Euros"}), L"mil veintiun Euros");
}

TEST_F(Words, AZeroGroupLeavesTwoBlanksBeforeTheUnit) {
    EXPECT_EQ(text(L"2000", {L"Euro", L"Euros"}), L"dos mil  Euros");
    EXPECT_EQ(text(L"2000000", {L"Euro", L"Euros"}), L"dos millones  Euros");
    EXPECT_EQ(text(L"2100", {L"Euro", L"Euros"}), L"dos mil cien Euros");
}

TEST_F(Words, DecimalsAreReadAsTheDigitsWritten) {
    const UnitNames euro{L"Euro", L"Euros"};
    const UnitNames cent{L"Céntimo", L"Céntimos"};
    EXPECT_EQ(text(L"3,5", euro, cent), L"tres Euros con cinco Céntimos");
    EXPECT_EQ(text(L"3,50", euro, cent), L"tres Euros con cincuenta Céntimos");
    EXPECT_EQ(text(L"12,05", euro, cent), L"doce Euros con cinco Céntimos");
    EXPECT_EQ(text(L"1,01", euro, cent), L"un Euro con un Céntimo");
    EXPECT_EQ(text(L"1,001"), L"uno con uno");
    EXPECT_EQ(text(L"3,14159"), L"tres con catorce mil ciento cincuenta y nueve");
    EXPECT_EQ(text(L"12,00", euro, cent), L"doce Euros");
    EXPECT_EQ(text(L"12,", euro, cent), L"doce Euros");
}

TEST_F(Words, TheDecimalsBeginAfterTheWidthOfTheWholePart) {
    EXPECT_EQ(text(L"007,5"), L"siete con ocho");
    EXPECT_EQ(text(L",5"), L"cero con");
    EXPECT_EQ(text(L"+3,5"), L"tres con cinco");
}

TEST_F(Words, NegativeNumbersLoseTheirDecimals) {
    EXPECT_EQ(text(L"-12,5"), L"menos trece");
    EXPECT_EQ(text(L"-12,4", {L"Euro", L"Euros"}), L"menos doce Euros");
    EXPECT_EQ(text(L"-0,2"), L"menos cero");
    EXPECT_EQ(text(L"-0"), L"cero");
    EXPECT_EQ(text(L"-1", {L"Euro", L"Euros"}), L"menos un Euro");
    EXPECT_EQ(text(L"-1000"), L"menos mil");
}

TEST_F(Words, NumbersInsideAText) {
    EXPECT_EQ(text(L"el 12 de mayo"), L"el doce de mayo");
    EXPECT_EQ(text(L"el 1 de mayo de 2024"), L"el uno de mayo de dos mil veinticuatro");
    EXPECT_EQ(text(L"  son  3,5 kilos y 2.  "), L"son  tres con cinco kilos y dos");
    EXPECT_EQ(text(L"factura A12 12/05"), L"factura A12 12/05");
    EXPECT_EQ(text(L""), L"");
    EXPECT_EQ(text(L"   "), L"");
    EXPECT_EQ(text(L"ñandú"), L"ñandú");
    EXPECT_EQ(text(L"1\t2"), L"1\t2");
    EXPECT_EQ(text(L"-"), L"-");
}

TEST_F(Words, PointsBetweenGroupsEndTheWholePart) {
    EXPECT_EQ(text(L"12.5"), L"doce con cinco");
    EXPECT_EQ(text(L"1.000"), L"uno con cero");
    EXPECT_EQ(text(L"1.234.567,5"),
              L"uno con doscientos treinta y cuatro mil quinientos sesenta y ocho");
}

TEST_F(Words, Exponents) {
    EXPECT_EQ(text(L"1E+24"), L"un cuatrillón");
    EXPECT_EQ(text(L"1e3"), L"mil");
    EXPECT_EQ(text(L"2,003E+48"), L"dos con tres octillones");
    // The whole part of more than 15 digits is formatted with an exponent.
    EXPECT_EQ(text(L"1234567890123456,5").substr(0, 8), L"uno con ");
    EXPECT_EQ(text(L"-5e-1"), L"menos menos uno con uno");
    // The point divides groups where the whole number is read, and ends its whole part.
    EXPECT_EQ(text(L"1.5E+24", {L"Euro", L"Euros"}, {L"Céntimo", L"Céntimos"}),
              L"un Euro con cinco cuatrillones con Céntimos");
    EXPECT_THAT(failures_, testing::IsEmpty());
}

TEST_F(Words, GroupsAddNothing) {
    EXPECT_EQ(group(L"000"), L"");
    EXPECT_EQ(group(L"0"), L"");
    EXPECT_EQ(group(L"1"), L"un");
    EXPECT_EQ(group(L"021", {L"Euro", L"Euros"}), L"veintiun");
    EXPECT_EQ(group(L"-7"), L"siete");
    EXPECT_EQ(group(L"2000", {L"Euro", L"Euros"}), L"dos mil");
    EXPECT_EQ(group(L"1001"), L"mil uno");
    EXPECT_EQ(group(L"1001", {L"Euro", L"Euros"}), L"mil un");
    EXPECT_EQ(group(L""), L"");
}

TEST_F(Words, TheUnitNameAgreesWithTheWholePart) {
    EXPECT_EQ(number(L"1", {L"Céntimo", L"Céntimos"}), L"un Céntimo");
    EXPECT_EQ(number(L"01", {L"Céntimo", L"Céntimos"}), L"un Céntimo");
    EXPECT_EQ(number(L"0", {L"Céntimo", L"Céntimos"}), L"cero Céntimos");
    EXPECT_EQ(number(L"1,4", {L"Euro", L"Euros"}), L"un Euro");
    EXPECT_EQ(number(L" 999,5 ", {L"Euro", L"Euros"}), L"mil  Euros");
    EXPECT_EQ(number(L" x ", {L"Euro", L"Euros"}), L"Euros");
    EXPECT_EQ(number(L"", {L"Euro", L"Euros"}), L"Euros");
    EXPECT_EQ(number(L"€12"), L"doce");
    EXPECT_THAT(failures_, testing::IsEmpty());
}

TEST_F(Words, AFailedNumberLeavesAnEmptyPiece) {
    EXPECT_EQ(text(L"vale (5) hoy"), L"vale menos  hoy");
    EXPECT_THAT(failures_, testing::ElementsAre(13));
    failures_.clear();
    EXPECT_EQ(text(L"&H1F"), L"");
    EXPECT_THAT(failures_, testing::ElementsAre(13));
    failures_.clear();
    // Only the group that is not a number is missing.
    EXPECT_EQ(number(L"x"
                     L"1x3045",
                     {L"Euro", L"Euros"}),
              L"cuarenta y cinco Euros");
    EXPECT_THAT(failures_, testing::ElementsAre(13));
    failures_.clear();
    EXPECT_EQ(group(L"abc"), L"");
    EXPECT_THAT(failures_, testing::ElementsAre(13));
}

/// Settings whose reading finds no memory.
template <typename Exception>
class ExhaustedRegional final : public SpanishRegional {
 public:
    [[nodiscard]] std::optional<double> number(std::wstring_view /*text*/) const override {
        throw Exception("");
    }
};

struct NoMemory : std::bad_alloc {
    explicit NoMemory(const char* /*text*/) {}
};

TEST_F(Words, ExhaustedMemoryIsReportedAndLeavesAnEmptyPiece) {
    const ExhaustedRegional<NoMemory> exhausted;
    const ExhaustedRegional<std::length_error> too_long;
    for (const Regional* regional : std::initializer_list<const Regional*>{&exhausted, &too_long}) {
        failures_.clear();
        const WordsContext context{
            *regional, [this](const Failure& failure) { failures_.push_back(failure.number()); }};
        EXPECT_EQ(text_in_words(L"12 y x", {}, {}, context), L"");
        EXPECT_THAT(failures_, testing::ElementsAre(7));
    }
}

/// Settings that read numbers slightly too large.
class InexactRegional final : public testing_support::SpanishRegional {
 public:
    InexactRegional() : SpanishRegional(RegionalSettings{.decimal_separator = L'.'}) {}
    [[nodiscard]] std::optional<double> number(std::wstring_view text) const override {
        return leading_number(text) * (1 + 1e-15);
    }
};

TEST_F(Words, InexactReadingsTerminate) {
    const InexactRegional regional;
    const WordsContext context{regional, [](const Failure&) { FAIL(); }};
    EXPECT_EQ(text_in_words(L"1.5E+24", {}, {}, context), L"un cuatrillón quinientos mil");
    EXPECT_EQ(text_in_words(L"1E+15", {}, {}, context), L"mil billones");
    EXPECT_EQ(text_in_words(L"12.5", {}, {}, context), L"doce con cinco");
}

}  // namespace
}  // namespace kovrel
