#include "numbers/rounding.h"

#include <gtest/gtest.h>
#include <limits>

#include "runtime/failure.h"

namespace kovrel {
namespace {

TEST(Rounding, TwoDecimalsWithTheRegionalSeparator) {
    const RegionalSettings comma;
    const RegionalSettings point{.decimal_separator = L'.', .group_separator = L','};
    EXPECT_EQ(round_to_two(3, comma), L"3,00");
    EXPECT_EQ(round_to_two(3, point), L"3.00");
    EXPECT_EQ(round_to_two(1234567.891, comma), L"1234567,89");
    EXPECT_EQ(round_to_two(1.005, comma), L"1,01");
    EXPECT_EQ(round_to_two(-1.005, comma), L"-1,01");
    EXPECT_EQ(round_to_two(0, comma), L"0,00");
    EXPECT_EQ(round_to_two(-0.004, comma), L"0,00");
    EXPECT_EQ(round_to_two(true, comma), L"1,00");
}

TEST(Rounding, FourDecimals) {
    const RegionalSettings comma;
    EXPECT_EQ(round_to_four(1, comma), L"1,0000");
    EXPECT_EQ(round_to_four(0.00005, comma), L"0,0001");
    EXPECT_EQ(round_to_four(-12.34567, comma), L"-12,3457");
}

TEST(Rounding, NonFiniteNumbersOverflow) {
    EXPECT_THROW((void)round_to_two(std::numeric_limits<double>::infinity(), {}), Failure);
}

TEST(Rounding, TheNoticeHasTheDefaultTitle) {
    EXPECT_EQ(rounding_needs_a_number(),
              (Notice{L"Error en la función de redondeo: el dato no es numérico",
                      NoticeStyle::critical, std::nullopt}));
}

}  // namespace
}  // namespace kovrel
