#include "runtime/exact_number.h"

#include <bit>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "runtime/failure.h"
#include "tests/support/spanish_regional.h"

namespace kovrel {
namespace {

TEST(ExactNumber, DoublesHaveTheFewestDigitsThatAreReadBack) {
    EXPECT_EQ(exact_number(0.0), L"0");
    EXPECT_EQ(exact_number(-0.0), L"0");
    EXPECT_EQ(exact_number(12.5), L"12.5");
    EXPECT_EQ(exact_number(-1234.0), L"-1234");
    EXPECT_EQ(exact_number(0.1), L"0.1");
    EXPECT_EQ(exact_number(-0.1), L"-0.1");
    EXPECT_EQ(exact_number(0.1 + 0.2), L"0.30000000000000004");
    EXPECT_EQ(exact_number(1.0 / 3), L"0.3333333333333333");
    EXPECT_EQ(exact_number(9007199254740993.0), L"9007199254740992");
    EXPECT_EQ(exact_number(1e17 - 16), L"99999999999999980");
    EXPECT_EQ(exact_number(1e17), L"1E+17");
    EXPECT_EQ(exact_number(1e-17), L"0.00000000000000001");
    EXPECT_EQ(exact_number(1e-18), L"1E-18");
    EXPECT_EQ(exact_number(1e300), L"1E+300");
    EXPECT_EQ(exact_number(std::numeric_limits<double>::max()), L"1.7976931348623157E+308");
    EXPECT_EQ(exact_number(std::numeric_limits<double>::denorm_min()), L"4.94065645841247E-324");
    EXPECT_EQ(exact_number(-2.2250738585072014e-308), L"-2.2250738585072014E-308");
}

TEST(ExactNumber, FloatsAreNotWrittenAsTheDoublesThatTheyAre) {
    EXPECT_EQ(exact_number(0.1F), L"0.1");
    EXPECT_EQ(exact_number(16777216.0F), L"16777216");
    EXPECT_EQ(exact_number(1.0F / 3), L"0.33333334");
    EXPECT_EQ(exact_number(std::numeric_limits<float>::max()), L"3.4028235E+38");
}

TEST(ExactNumber, WhatIsNoNumberIsAnOverflow) {
    for (const double value :
         {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()}) {
        try {
            (void)exact_number(value);
            FAIL();
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.number(), 6);
        }
    }
}

TEST(ExactNumber, EveryDoubleAndFloatIsReadBack) {
    std::mt19937_64 random(11);
    for (int i = 0; i < 20000; ++i) {
        const auto bits = random();
        const auto number = std::bit_cast<double>(bits);
        if (std::isfinite(number)) {
            const std::wstring text = exact_number(number);
            ASSERT_EQ(std::atof(std::string(text.begin(), text.end()).c_str()), number);
        }
        const auto small = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
        if (std::isfinite(small)) {
            const std::wstring text = exact_number(small);
            ASSERT_EQ(static_cast<float>(std::atof(std::string(text.begin(), text.end()).c_str())),
                      small);
        }
    }
}

TEST(ExactNumber, ScaledIntegers) {
    constexpr auto all = std::numeric_limits<std::uint64_t>::max();
    EXPECT_EQ(exact_number(ScaledInteger{}), L"0");
    EXPECT_EQ(exact_number(ScaledInteger{.low = 0, .scale = 4, .negative = true}), L"0");
    EXPECT_EQ(exact_number(ScaledInteger{.low = 125000, .scale = 4}), L"12.5");
    EXPECT_EQ(exact_number(ScaledInteger{.low = 1, .scale = 4, .negative = true}), L"-0.0001");
    EXPECT_EQ(exact_number(ScaledInteger{.low = 1000}), L"1000");
    EXPECT_EQ(exact_number(ScaledInteger{.low = all}), L"18446744073709551615");
    EXPECT_EQ(exact_number(ScaledInteger{.high = 1}), L"18446744073709551616");
    EXPECT_EQ(exact_number(ScaledInteger{.high = 0xFFFFFFFF, .low = all}),
              L"79228162514264337593543950335");
    EXPECT_EQ(exact_number(ScaledInteger{.high = 0xFFFFFFFF, .low = all, .scale = 28}),
              L"7.9228162514264337593543950335");
    EXPECT_EQ(exact_number(ScaledInteger{.low = 1, .scale = 28}),
              L"0.0000000000000000000000000001");
    EXPECT_EQ(exact_number(ScaledInteger{.low = std::uint64_t{1} << 63U, .negative = true}),
              L"-9223372036854775808");
}

TEST(ExactNumber, TextsKeepTheirDigits) {
    const testing_support::SpanishRegional regional;
    const auto read = [&](std::wstring_view text) { return exact_number(text, regional); };
    EXPECT_EQ(read(L"12,50"), L"12.5");
    EXPECT_EQ(read(L"-0012"), L"-12");
    EXPECT_EQ(read(L"1.234,5"), L"1234.5");
    EXPECT_EQ(read(L",5"), L"0.5");
    EXPECT_EQ(read(L"12345678901234567890123456,789"), L"12345678901234567890123456.789");
    EXPECT_EQ(read(L"1" + std::wstring(37, L'0')), L"1" + std::wstring(37, L'0'));
    EXPECT_EQ(read(L"1" + std::wstring(38, L'0')), L"1E+38");
    EXPECT_EQ(read(L"(5)"), L"-5");
    EXPECT_EQ(read(L"1E3"), L"1000");
    EXPECT_EQ(read(L"&H1F"), L"31");
    EXPECT_EQ(read(L"-0"), L"0");
    for (const auto* const text : {L"", L"doce", L"1,2,3", L"12;", L"1--", L"1' OR 1=1"}) {
        EXPECT_EQ(read(text), std::nullopt);
    }
}

}  // namespace
}  // namespace kovrel
