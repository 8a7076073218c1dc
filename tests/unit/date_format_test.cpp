#include "runtime/date_format.h"

#include <gtest/gtest.h>

#include "runtime/calendar.h"

namespace kovrel {
namespace {

constexpr std::int32_t leap_day = day_count({2024, 2, 29});

TEST(FixedDates, HaveTheirFormats) {
    RegionalSettings settings;
    EXPECT_EQ(two_digit_year_text(leap_day), L"24");
    EXPECT_EQ(two_digit_year_text(day_count({1905, 1, 1})), L"05");
    EXPECT_EQ(four_digit_year_text(leap_day), L"2024");
    EXPECT_EQ(four_digit_year_text(day_count({100, 1, 1})), L"0100");
    EXPECT_EQ(day_month_year_text(day_count({2024, 3, 5}), settings), L"05/03/2024");
    EXPECT_EQ(month_day_year_text(day_count({2024, 3, 5}), settings), L"03/05/2024");
    settings.date_separator = L"-";
    EXPECT_EQ(day_month_year_text(leap_day, settings), L"29-02-2024");
    EXPECT_EQ(month_day_year_text(leap_day, settings), L"02-29-2024");
}

}  // namespace
}  // namespace kovrel
