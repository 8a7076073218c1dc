#include "runtime/conversion.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>

#include "runtime/failure.h"
#include "tests/support/failure_of.h"
#include "tests/support/spanish_regional.h"

namespace kovrel {
namespace {

// Reads every text as the same number.
class FixedRegional final : public testing_support::SpanishRegional {
 public:
    explicit FixedRegional(std::optional<double> number) : number_(number) {}

    [[nodiscard]] std::optional<double> number(std::wstring_view) const override { return number_; }

 private:
    std::optional<double> number_;
};

TEST(Conversion, RoundsHalvesToTheEvenNumber) {
    EXPECT_EQ(round_to_int32(0.5), 0);
    EXPECT_EQ(round_to_int32(1.5), 2);
    EXPECT_EQ(round_to_int32(2.5), 2);
    EXPECT_EQ(round_to_int32(-2.5), -2);
    EXPECT_EQ(round_to_int32(-3.5), -4);
    EXPECT_EQ(round_to_int32(2.5000001), 3);
}

TEST(Conversion, OverflowsOutsideTheType) {
    EXPECT_EQ(round_to_int32(2147483647.25), 2147483647);
    EXPECT_EQ(round_to_int32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(round_to_int16(32767.25), 32767);
    EXPECT_EQ(round_to_int16(-32768.5), -32768);
    EXPECT_EQ(round_to_uint8(255.25), 255);
    EXPECT_EQ(round_to_uint8(-0.5), 0);
    EXPECT_EQ(failure_of([] { static_cast<void>(round_to_int32(2147483647.5)); }), 6);
    EXPECT_EQ(failure_of([] { static_cast<void>(round_to_int16(32767.5)); }), 6);
    EXPECT_EQ(failure_of([] { static_cast<void>(round_to_int16(-32769)); }), 6);
    EXPECT_EQ(failure_of([] { static_cast<void>(round_to_uint8(255.5)); }), 6);
    EXPECT_EQ(failure_of([] { static_cast<void>(round_to_uint8(-1)); }), 6);
    EXPECT_EQ(failure_of([] { static_cast<void>(round_to_int32(1e300)); }), 6);
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(failure_of([] { static_cast<void>(round_to_int32(infinity)); }), 6);
    constexpr auto no_number = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(failure_of([] { static_cast<void>(round_to_int16(no_number)); }), 6);
}

TEST(Conversion, ADigitRunNeedsNoSettings) {
    const FixedRegional unused(std::nullopt);
    EXPECT_EQ(to_int32(L"000012345", unused), 12345);
    EXPECT_EQ(to_int32(L"999999999", unused), 999999999);
    EXPECT_EQ(to_int16(L"32767", unused), 32767);
    EXPECT_EQ(to_uint8(L"08", unused), 8);
    EXPECT_EQ(failure_of([&] { static_cast<void>(to_int16(L"32768", unused)); }), 6);
    EXPECT_EQ(failure_of([&] { static_cast<void>(to_uint8(L"256", unused)); }), 6);
}

TEST(Conversion, AnyOtherTextIsReadByTheSettings) {
    EXPECT_EQ(to_int32(L"12,5", FixedRegional(12.5)), 12);
    EXPECT_EQ(to_int32(L"1234567890", FixedRegional(1234567890)), 1234567890);
    EXPECT_EQ(to_int16(L"-7", FixedRegional(-7)), -7);
    const FixedRegional too_large(9999999999.0);
    EXPECT_EQ(failure_of([&] { static_cast<void>(to_int32(L"9999999999", too_large)); }), 6);
    const FixedRegional no_number(std::nullopt);
    for (const auto* text : {L"", L"A", L"1A", L" 1", L"\u0661"}) {
        EXPECT_EQ(failure_of([&] { static_cast<void>(to_int32(text, no_number)); }), 13);
    }
}

}  // namespace
}  // namespace kovrel
