#include "runtime/date_format.h"

#include <gtest/gtest.h>

#include "runtime/calendar.h"

namespace kovrel {
namespace {

constexpr std::int32_t leap_day = day_count({2024, 2, 29});

std::wstring written(std::wstring_view pattern, std::int32_t day = leap_day) {
    RegionalSettings settings;
    settings.short_date = pattern;
    return short_date_text(day, settings);
}

TEST(ShortDate, FollowsTheUsersPattern) {
    EXPECT_EQ(written(L"dd/MM/yyyy"), L"29/02/2024");
    EXPECT_EQ(written(L"d/M/yyyy"), L"29/2/2024");
    EXPECT_EQ(written(L"d/M/yy", day_count({2005, 1, 3})), L"3/1/05");
    EXPECT_EQ(written(L"d-M-y", day_count({2005, 1, 3})), L"3-1-5");
    EXPECT_EQ(written(L"yyyy.MM.dd", day_count({100, 1, 1})), L"0100.01.01");
    EXPECT_EQ(written(L"M/d/yyyy"), L"2/29/2024");
    EXPECT_EQ(written(L""), L"");
}

TEST(ShortDate, WritesNamesInSpanish) {
    EXPECT_EQ(written(L"dddd, d MMMM yyyy"), L"jueves, 29 febrero 2024");
    EXPECT_EQ(written(L"ddd d MMM yyyy", day_count({2023, 9, 2})), L"sáb 2 sep 2023");
    EXPECT_EQ(written(L"dddd MMMM", day_count({2024, 12, 25})), L"miércoles diciembre");
    EXPECT_EQ(written(L"ddddd MMMMM yyyyyy"), L"jueves febrero 2024");
}

TEST(ShortDate, KeepsLiterals) {
    EXPECT_EQ(written(L"d 'de' MMMM 'de' yyyy"), L"29 de febrero de 2024");
    EXPECT_EQ(written(L"d'd''d'M"), L"29d'd2");
    EXPECT_EQ(written(L"d''M"), L"292");
    EXPECT_EQ(written(L"d 'dMy"), L"29 dMy");
    EXPECT_EQ(written(L"d'"), L"29");
    EXPECT_EQ(written(L"--dñ"), L"--29ñ");
}

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
