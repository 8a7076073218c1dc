#include "runtime/number_format.h"

#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "runtime/failure.h"
#include "tests/support/failure_of.h"
#include "tests/support/spanish_regional.h"

namespace kovrel {
namespace {

using testing_support::SpanishRegional;

TEST(FormatNumber, WholePatternRoundsHalfAwayFromZero) {
    EXPECT_EQ(format_number(0.5, patterns::whole, L','), L"1");
    EXPECT_EQ(format_number(-0.5, patterns::whole, L','), L"-1");
    EXPECT_EQ(format_number(1.5, patterns::whole, L','), L"2");
    EXPECT_EQ(format_number(2.5, patterns::whole, L','), L"3");
    EXPECT_EQ(format_number(0.49, patterns::whole, L','), L"0");
    EXPECT_EQ(format_number(0.05, patterns::whole, L','), L"0");
    EXPECT_EQ(format_number(99.5, patterns::whole, L','), L"100");
    EXPECT_EQ(format_number(0, patterns::whole, L','), L"0");
    EXPECT_EQ(format_number(1e15, patterns::whole, L','), L"1000000000000000");
}

TEST(FormatNumber, DecimalsTakeTheGivenSeparator) {
    EXPECT_EQ(format_number(12.5, patterns::two_decimals, L','), L"12,50");
    EXPECT_EQ(format_number(12.5, patterns::two_decimals, L'.'), L"12.50");
    EXPECT_EQ(format_number(12.3, {1, 1}, L','), L"12,3");
    EXPECT_EQ(format_number(1.2346, {1, 3}, L','), L"1,235");
    EXPECT_EQ(format_number(3, patterns::two_decimals, L','), L"3,00");
    EXPECT_EQ(format_number(0.05, patterns::two_decimals, L','), L"0,05");
    EXPECT_EQ(format_number(0.005, patterns::two_decimals, L','), L"0,01");
    EXPECT_EQ(format_number(1, patterns::four_decimals, L','), L"1,0000");
    EXPECT_EQ(format_number(0.00005, patterns::four_decimals, L','), L"0,0001");
    EXPECT_EQ(format_number(1e20, patterns::two_decimals, L','), L"100000000000000000000,00");
    EXPECT_EQ(format_number(1e-300, patterns::two_decimals, L','), L"0,00");
}

TEST(FormatNumber, RoundsTheFifteenDigitsAndNotTheBinaryValue) {
    EXPECT_EQ(format_number(1.005, patterns::two_decimals, L','), L"1,01");
    EXPECT_EQ(format_number(-0.456, patterns::two_decimals, L','), L"-0,46");
    EXPECT_EQ(format_number(2.675, patterns::two_decimals, L','), L"2,68");
    EXPECT_EQ(format_number(1.45, {1, 1}, L','), L"1,5");
    EXPECT_EQ(format_number(999.995, patterns::two_decimals, L','), L"1000,00");
    EXPECT_EQ(format_number(0.1 + 0.2, {1, 17}, L','), L"0,30000000000000000");
    EXPECT_EQ(format_number(9e-18, {1, 17}, L','), L"0,00000000000000001");
    EXPECT_EQ(format_number(9e-19, {1, 17}, L','), L"0,00000000000000000");
}

TEST(FormatNumber, AHalfAtTheFifteenthDigitGoesAwayFromZero) {
    EXPECT_EQ(format_number(100000000000000.5, patterns::whole, L','), L"100000000000001");
    EXPECT_EQ(format_number(-100000000000002.5, patterns::whole, L','), L"-100000000000003");
    EXPECT_EQ(format_number(9007199254740985.0, patterns::whole, L','), L"9007199254740990");
    EXPECT_EQ(format_number(9007199254740984.0, patterns::whole, L','), L"9007199254740980");
    EXPECT_EQ(format_number(999999999999999.5, patterns::whole, L','), L"1000000000000000");
}

TEST(FormatNumber, TheQuickRoundingDeclinesUncertainCases) {
    EXPECT_EQ(quickly_rounded(12.34, 2), 1234U);
    EXPECT_EQ(quickly_rounded(-12.346, 2), 1235U);
    EXPECT_EQ(quickly_rounded(0, 0), 0U);
    EXPECT_EQ(quickly_rounded(1.005, 2), std::nullopt);
    EXPECT_EQ(quickly_rounded(0.5, 0), std::nullopt);
    EXPECT_EQ(quickly_rounded(1e12, 0), std::nullopt);
    EXPECT_EQ(quickly_rounded(1, 5), std::nullopt);
    EXPECT_EQ(quickly_rounded(std::nan(""), 2), std::nullopt);
    EXPECT_EQ(quickly_rounded(std::numeric_limits<double>::infinity(), 2), std::nullopt);
    std::mt19937_64 random(20240315);  // fixed: the same amounts in every run
    std::uniform_real_distribution<double> exponents(-3, 12);
    for (int turn = 0; turn < 20000; ++turn) {
        const double value = std::pow(10, exponents(random));
        const auto quick = quickly_rounded(value, 2);
        if (!quick) continue;
        auto text = format_number(value, {9, 2}, L',');  // a pattern without the quick path
        text.erase(text.size() - 3, 1);
        ASSERT_EQ(std::stoull(text), *quick);
    }
}

TEST(FormatNumber, ZeroHasNoSign) {
    EXPECT_EQ(format_number(-0.001, patterns::two_decimals, L','), L"0,00");
    EXPECT_EQ(format_number(-0.0, patterns::whole, L','), L"0");
    EXPECT_EQ(format_number(-0.005, patterns::two_decimals, L','), L"-0,01");
    EXPECT_EQ(format_number(L"-0,0001", patterns::two_decimals, testing_support::SpanishRegional()),
              L"0,00");
    EXPECT_EQ(format_number(-1e-9, {1, 6}, L','), L"0,000000");
}

TEST(FormatNumber, EightDigitsAndNoZero) {
    EXPECT_EQ(format_number(0, patterns::eight_digits, L','), L"00000000");
    EXPECT_EQ(format_number(123456.5, patterns::eight_digits, L','), L"00123457");
    EXPECT_EQ(format_number(123456789, patterns::eight_digits, L','), L"123456789");
    EXPECT_EQ(format_number(0, patterns::no_zero, L','), L"");
    EXPECT_EQ(format_number(0.4, patterns::no_zero, L','), L"");
    EXPECT_EQ(format_number(0.5, patterns::no_zero, L','), L"1");
    EXPECT_EQ(format_number(50, patterns::no_zero, L','), L"50");
    EXPECT_EQ(format_number(100, patterns::no_zero, L','), L"100");
}

TEST(FormatNumber, TheLargestDoubleHas309Digits) {
    const auto text = format_number(std::numeric_limits<double>::max(), patterns::whole, L',');
    EXPECT_EQ(text.size(), 309U);
    EXPECT_EQ(text.substr(0, 17), L"17976931348623200");
}

TEST(FormatNumber, NonFiniteNumbersOverflow) {
    for (const double value : {std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_THROW((void)format_number(value, patterns::whole, L','), Failure);
        EXPECT_THROW((void)number_to_text(value, L','), Failure);
    }
}

TEST(FormatNumber, ATextKeepsAllItsDigits) {
    const SpanishRegional regional;
    EXPECT_EQ(format_number(L"12345678901234567890,5", patterns::whole, regional),
              L"12345678901234567891");
    EXPECT_EQ(format_number(L"-98765432109876543210", patterns::two_decimals, regional),
              L"-98765432109876543210,00");
    EXPECT_EQ(format_number(L"1.234.567.890.123.456.789", patterns::whole, regional),
              L"1234567890123456789");
    EXPECT_EQ(format_number(std::wstring(400, L'9'), patterns::whole, regional),
              std::wstring(400, L'9'));
    EXPECT_EQ(format_number(L"007,5", patterns::whole, regional), L"8");
    EXPECT_EQ(format_number(L"+5", patterns::whole, regional), L"5");
    EXPECT_EQ(format_number(L",4", patterns::whole, regional), L"0");
    EXPECT_EQ(format_number(L"-0,4", patterns::whole, regional), L"0");
}

TEST(FormatNumber, OtherTextsThatAreNumbersGoThroughTheirValue) {
    const SpanishRegional regional;
    EXPECT_EQ(format_number(L"1E+24", patterns::whole, regional), L"1" + std::wstring(24, L'0'));
    EXPECT_EQ(format_number(L"(5)", patterns::two_decimals, regional), L"-5,00");
    EXPECT_EQ(format_number(L"3-", patterns::whole, regional), L"-3");
}

TEST(FormatNumber, ATextThatIsNotANumberIsReturnedUnchanged) {
    const SpanishRegional regional;
    for (const std::wstring_view text : {L"", L" ", L"abc", L"5)", L"1,2,3", L"-", L",", L"H1F"}) {
        EXPECT_EQ(format_number(text, patterns::two_decimals, regional), text);
    }
}

TEST(NumberToText, WritesUpToFifteenDigits) {
    EXPECT_EQ(number_to_text(0, L','), L"0");
    EXPECT_EQ(number_to_text(-0.0, L','), L"0");
    EXPECT_EQ(number_to_text(12.5, L','), L"12,5");
    EXPECT_EQ(number_to_text(-12.05, L'.'), L"-12.05");
    EXPECT_EQ(number_to_text(100, L','), L"100");
    EXPECT_EQ(number_to_text(0.1 + 0.2, L','), L"0,3");
    EXPECT_EQ(number_to_text(1.0 / 3, L','), L"0,333333333333333");
    EXPECT_EQ(number_to_text(999999999999999, L','), L"999999999999999");
    EXPECT_EQ(number_to_text(0.00001, L','), L"0,00001");
    EXPECT_EQ(number_to_text(1e-15, L','), L"0,000000000000001");
}

TEST(NumberToText, UsesAnExponentBeyond) {
    EXPECT_EQ(number_to_text(1e15, L','), L"1E+15");
    EXPECT_EQ(number_to_text(1e24, L','), L"1E+24");
    EXPECT_EQ(number_to_text(1234567890123456.0, L','), L"1,23456789012346E+15");
    EXPECT_EQ(number_to_text(999999999999999.5, L','), L"1E+15");
    EXPECT_EQ(number_to_text(-1e100, L','), L"-1E+100");
    EXPECT_EQ(number_to_text(1e-16, L','), L"1E-16");
    EXPECT_EQ(number_to_text(1.0 / 30, L','), L"3,33333333333333E-02");
    EXPECT_EQ(number_to_text(5e-324, L'.'), L"4.94065645841247E-324");
}

TEST(NumberToText, FifteenDigitsReadBackAsTheyWereWritten) {
    std::mt19937_64 random(20240315);  // fixed: the same texts in every run
    std::uniform_real_distribution<double> mantissa(-10, 10);
    std::uniform_int_distribution<int> exponent(-30, 30);
    for (int turn = 0; turn < 20000; ++turn) {
        const double value = mantissa(random) * std::pow(10, exponent(random));
        const auto text = number_to_text(value, L'.');
        const double back = leading_number(text);
        ASSERT_NEAR(back / value, 1, 6e-15);
        ASSERT_EQ(number_to_text(back, L'.'), text);
    }
}

TEST(PlainNumber, ReadsDigitsAndOneSeparator) {
    EXPECT_EQ(plain_number(L"12,5", L','), 12.5);
    EXPECT_EQ(plain_number(L"-007,50", L','), -7.5);
    EXPECT_EQ(plain_number(L"+3", L','), 3.0);
    EXPECT_EQ(plain_number(L",5", L','), 0.5);
    EXPECT_EQ(plain_number(L"5,", L','), 5.0);
    EXPECT_EQ(plain_number(L"0", L','), 0.0);
    EXPECT_EQ(plain_number(L"000", L','), 0.0);
    EXPECT_EQ(plain_number(L"0,0" + std::wstring(400, L'0') + L"1", L','), 0.0);
    EXPECT_EQ(plain_number(L"1" + std::wstring(400, L'0'), L','),
              std::numeric_limits<double>::infinity());
    EXPECT_EQ(plain_number(L"-1" + std::wstring(400, L'0'), L','),
              -std::numeric_limits<double>::infinity());
    for (const std::wstring_view text :
         {L"", L"-", L",", L"1.5", L"1,2,3", L"1e5", L" 1", L"5-", L"--5", L"x"}) {
        EXPECT_FALSE(plain_number(text, L',')) << std::string(text.begin(), text.end());
    }
}

TEST(LeadingNumber, TakesOnlyAPointAndStopsAtOtherCharacters) {
    EXPECT_EQ(leading_number(L"12,50"), 12);
    EXPECT_EQ(leading_number(L"12.50"), 12.5);
    EXPECT_EQ(leading_number(L"-12,5"), -12);
    EXPECT_EQ(leading_number(L"+7 x"), 7);
    EXPECT_EQ(leading_number(L"1.5.3"), 1.5);
    EXPECT_EQ(leading_number(L"007"), 7);
    EXPECT_EQ(leading_number(std::wstring(400, L'0') + L"7.5"), 7.5);
    EXPECT_EQ(leading_number(L".e3"), 0);
    EXPECT_EQ(leading_number(L".5"), 0.5);
    EXPECT_EQ(leading_number(L"5."), 5);
    for (const std::wstring_view text : {L"", L"abc", L"-", L".", L"--5", L"e5", L"(5)", L",5"}) {
        EXPECT_EQ(leading_number(text), 0);
    }
}

#ifndef _WIN32

TEST(LeadingNumber, ReadsThePointWhateverTheCLibrarysSettings) {
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    ASSERT_NE(std::setlocale(LC_NUMERIC, "es_ES.UTF-8"), nullptr) << "set-up installs it";
    EXPECT_EQ(leading_number(L"12.5"), 12.5);
    EXPECT_EQ(plain_number(L"12,5", L','), 12.5);
    std::setlocale(LC_NUMERIC, before.c_str());
}

#endif

TEST(LeadingNumber, SkipsBlanks) {
    EXPECT_EQ(leading_number(L"  1 615 198th"), 1615198);
    EXPECT_EQ(leading_number(L"\t-\n1\r2"), -12);
}

TEST(LeadingNumber, ReadsExponents) {
    EXPECT_EQ(leading_number(L"1E+15"), 1e15);
    EXPECT_EQ(leading_number(L"1d3"), 1000);
    EXPECT_EQ(leading_number(L"2.5e-1x"), 0.25);
    EXPECT_EQ(leading_number(L"7e"), 7);
    EXPECT_EQ(leading_number(L"7e+"), 7);
    EXPECT_EQ(leading_number(L"1e-400"), 0);
    EXPECT_EQ(leading_number(L"0e99999999999999999999"), 0);
    EXPECT_EQ(leading_number(L"1e-99999999999999999999"), 0);
    EXPECT_EQ(leading_number(L"1.5e-99999999999999999999"), 0);
    EXPECT_EQ(failure_of([] { return leading_number(L"1e400"); }), 6);
    EXPECT_EQ(failure_of([] { return leading_number(L"1e99999999999999999999"); }), 6);
    EXPECT_EQ(failure_of([] { return leading_number(L"1" + std::wstring(400, L'0') + L"e-10"); }),
              6);
    EXPECT_EQ(failure_of([] { return leading_number(std::wstring(400, L'9')); }), 6);
}

TEST(LeadingNumber, ReadsPrefixes) {
    EXPECT_EQ(leading_number(L"&H1F"), 31);
    EXPECT_EQ(leading_number(L"&hff,"), 255);
    EXPECT_EQ(leading_number(L"&HFFFF"), -1);
    EXPECT_EQ(leading_number(L"&HFFFF&"), 65535);
    EXPECT_EQ(leading_number(L"&HFFFFx"), -1);
    EXPECT_EQ(leading_number(L"&H10000"), 65536);
    EXPECT_EQ(leading_number(L"&HFFFFFFFF"), -1);
    EXPECT_EQ(leading_number(L"&O17"), 15);
    EXPECT_EQ(leading_number(L"&o189"), 1);
    EXPECT_EQ(leading_number(L"&HaBcDeF"), 0xABCDEF);
    EXPECT_EQ(leading_number(L"&h1g"), 1);
    EXPECT_EQ(leading_number(L"&h1@"), 1);
    EXPECT_EQ(leading_number(L"&h1/"), 1);
    EXPECT_EQ(leading_number(L"&h1:"), 1);
    EXPECT_EQ(leading_number(L"&H"), 0);
    EXPECT_EQ(leading_number(L"&"), 0);
    EXPECT_EQ(leading_number(L"&X1"), 0);
    EXPECT_EQ(failure_of([] { return leading_number(L"&H1FFFFFFFF"); }), 6);
    EXPECT_EQ(failure_of([] { return leading_number(L"&H100000000"); }), 6);
}

TEST(SpanishReadings, FollowTheSettings) {
    const SpanishRegional regional;
    EXPECT_EQ(regional.number(L"1.234,5"), 1234.5);
    EXPECT_EQ(regional.number(L"12.5"), 125);
    EXPECT_EQ(regional.number(L"3-"), -3);
    EXPECT_EQ(regional.number(L"(5)"), -5);
    EXPECT_EQ(regional.number(L"&H1F"), 31);
    EXPECT_EQ(regional.number(L"1,5e3"), 1500);
    EXPECT_EQ(regional.number(L"-3-"), std::nullopt);
    EXPECT_EQ(regional.number(L"1e400"), std::nullopt);
    EXPECT_EQ(regional.number(L"ñ"), std::nullopt);
    EXPECT_EQ(regional.date(L"30/12/1899"), 0);
    EXPECT_EQ(regional.date(L"1/1/1900"), 2);
    EXPECT_EQ(regional.date(L"15/03/2024"), 45366);
    EXPECT_EQ(regional.date(L"1/1/99"), regional.date(L"01/01/1999"));
    EXPECT_EQ(regional.date(L"3/15/2024"), 45366);
    EXPECT_EQ(regional.date(L"29/02/2023"), std::nullopt);
    EXPECT_EQ(regional.date(L"31/4/2024"), std::nullopt);
    EXPECT_EQ(regional.date(L"__/__/____"), std::nullopt);
}

}  // namespace
}  // namespace kovrel
