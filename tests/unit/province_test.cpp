#include "validation/province.h"

#include <gtest/gtest.h>

#include "runtime/failure.h"
#include "tests/support/failure_of.h"
#include "tests/support/spanish_regional.h"

namespace kovrel {
namespace {

int province(std::wstring_view postal_code) {
    return province_of(postal_code, testing_support::SpanishRegional());
}

TEST(Province, IsTheFirstTwoDigits) {
    EXPECT_EQ(province(L"28080"), 28);
    EXPECT_EQ(province(L"08001"), 8);
    EXPECT_EQ(province(L"00000"), 0);
    EXPECT_EQ(province(L"99999"), 99);
    EXPECT_EQ(province(L"52ABC"), 52);
}

TEST(Province, FillsAShortCodeWithZeros) {
    EXPECT_EQ(province(L"8001"), 8);
    EXPECT_EQ(province(L"800"), 0);
    EXPECT_EQ(province(L"7"), 0);
    EXPECT_EQ(province(L"1E4"), 10);
    EXPECT_EQ(province(L"-12"), 0);
}

TEST(Province, FailsForOtherTexts) {
    for (const auto* code : {L"", L" ", L"AB", L"8A01", L"A8001", L"ÑÑÑÑÑ", L"+-001"}) {
        EXPECT_EQ(failure_of([&] { return province(code); }), 13) << code;
    }
}

TEST(Province, FailsForNumbersOutOfRange) {
    EXPECT_EQ(failure_of([&] { return province(L"9E4"); }), 6);
    EXPECT_EQ(failure_of([&] { return province(L"-1001"); }), 6);
}

TEST(Province, AnOverlongCodeShowsABoxAndFails) {
    EXPECT_EQ(postal_code_notice(L"280801"),
              (Notice{L"Error en el Código Postal", NoticeStyle::critical, std::nullopt}));
    EXPECT_EQ(failure_of([&] { return province(L"280801"); }), 6);
    EXPECT_EQ(failure_of([&] { return province(std::wstring(100'000, L'1')); }), 6);
    EXPECT_EQ(postal_code_notice(L"28080"), std::nullopt);
    EXPECT_EQ(postal_code_notice(L""), std::nullopt);
}

}  // namespace
}  // namespace kovrel
