#include "dates/calendar_rules.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>

#include "runtime/failure.h"
#include "tests/support/failure_of.h"
#include "tests/support/spanish_regional.h"

namespace kovrel {
namespace {

constexpr TwoDigitYearMax up_to_2029 = [] { return 2029; };

std::int16_t days(int month, int year) {
    return days_in_month(static_cast<std::int16_t>(month), static_cast<std::int16_t>(year),
                         up_to_2029);
}

std::wstring two_digits(int year) {
    return year_to_two_digits(static_cast<std::int16_t>(year), up_to_2029);
}

std::int16_t weeks(int year, int month) {
    return week_of_month(last_of_month({month, year}, days(month, year), up_to_2029));
}

TEST(YearToTwoDigits, WritesTheLastTwo) {
    EXPECT_EQ(two_digits(2024), L"24");
    EXPECT_EQ(two_digits(1905), L"05");
    EXPECT_EQ(two_digits(100), L"00");
    EXPECT_EQ(two_digits(7), L"07");
    EXPECT_EQ(two_digits(99), L"99");
    EXPECT_EQ(two_digits(9999), L"99");
    for (const int year : {-1, -32768, 10000, 32767}) {
        EXPECT_EQ(failure_of([year] { return two_digits(year); }), 13);
    }
}

TEST(YearToFourDigits, EveryYearIsOfThisCentury) {
    const auto converted = [](int typed) {
        auto year = static_cast<std::int16_t>(typed);
        auto text = year_to_four_digits(year, up_to_2029);
        EXPECT_EQ(year, typed + 2000);
        return text;
    };
    EXPECT_EQ(converted(24), L"2024");
    EXPECT_EQ(converted(99), L"2099");
    EXPECT_EQ(converted(0), L"2000");
    EXPECT_EQ(converted(-5), L"1995");
    EXPECT_EQ(converted(-1900), L"0100");
    EXPECT_EQ(converted(-1995), L"2005");
}

TEST(YearToFourDigits, AFailureLeavesTheChangedYear) {
    std::int16_t year = -2001;
    EXPECT_EQ(failure_of([&] { return year_to_four_digits(year, up_to_2029); }), 13);
    EXPECT_EQ(year, -1);
    year = std::numeric_limits<std::int16_t>::min();
    EXPECT_EQ(failure_of([&] { return year_to_four_digits(year, up_to_2029); }), 13);
    EXPECT_EQ(year, -30768);
}

TEST(YearToFourDigits, AYearOfMoreDigitsShowsABox) {
    const Notice expected{L"Error al convertir el año a 4 dígitos", NoticeStyle::critical,
                          std::nullopt};
    EXPECT_EQ(two_digit_year_notice(100), expected);
    EXPECT_EQ(two_digit_year_notice(32767), expected);
    EXPECT_EQ(two_digit_year_notice(99), std::nullopt);
    EXPECT_EQ(two_digit_year_notice(-32768), std::nullopt);
}

TEST(DaysInMonth, KnowsEveryMonth) {
    constexpr std::array lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(days(month, 2023), lengths[static_cast<std::size_t>(month - 1)]);
    }
    EXPECT_EQ(days(2, 2024), 29);
    EXPECT_EQ(days(2, 1900), 28);
    EXPECT_EQ(days(2, 2000), 29);
    EXPECT_EQ(days(2, 0), 29);
    EXPECT_EQ(days(2, -4), 29);
    EXPECT_EQ(days(12, 9999), 31);
}

TEST(DaysInMonth, MonthsCountOnIntoOtherYears) {
    EXPECT_EQ(days(13, 2023), 31);
    EXPECT_EQ(days(14, 2023), 29);
    EXPECT_EQ(days(0, 2023), 31);
    EXPECT_EQ(days(-1, 2023), 30);
    EXPECT_EQ(days(-10, 2024), 28);
}

TEST(DaysInMonth, FailsOutsideTheCalendar) {
    EXPECT_EQ(failure_of([] { return days(32767, 2024); }), 6);
    EXPECT_EQ(failure_of([] { return days(1, 10000); }), 5);
    EXPECT_EQ(failure_of([] { return days(13, 9999); }), 5);
    EXPECT_EQ(failure_of([] { return days(0, 100); }), 5);
    EXPECT_EQ(failure_of([] { return days(-32768, 2024); }), 5);
    EXPECT_EQ(failure_of([] { return days(1, -32768); }), 5);
}

TEST(WeekOfMonth, BeginsOnMonday) {
    EXPECT_EQ(week_of_month(day_count({2024, 4, 1})), 1);  // a Monday, the first of its month
    EXPECT_EQ(week_of_month(day_count({2024, 4, 7})), 1);
    EXPECT_EQ(week_of_month(day_count({2024, 4, 8})), 2);
    EXPECT_EQ(week_of_month(day_count({2023, 10, 1})), 1);  // a Sunday, the first of its month
    EXPECT_EQ(week_of_month(day_count({2023, 10, 2})), 2);
    EXPECT_EQ(week_of_month(day_count({2024, 1, 31})), 5);
    EXPECT_EQ(week_of_month(day_count({2024, 4, 8}) + 0.75), 2);
}

TEST(WeekOfMonth, CountsTheMondaysOfEveryMonth) {
    int week = 1;
    for (std::int32_t day = day_count({1900, 1, 1}); day < day_count({2101, 1, 1}); ++day) {
        if (civil_date(day).day == 1) {
            week = 1;
        } else if (weekday(day) == 1) {
            ++week;
        }
        ASSERT_EQ(week_of_month(day), week) << day;
    }
}

TEST(WeekOfMonth, FailsForInvalidDates) {
    EXPECT_EQ(failure_of([] { return week_of_month(1e9); }), 5);
    EXPECT_EQ(week_of_month(first_day), 1);
    EXPECT_EQ(week_of_month(last_day), 5);
}

TEST(WeeksInMonth, AreFourToSix) {
    EXPECT_EQ(weeks(2021, 2), 4);  // 28 days from a Monday on
    EXPECT_EQ(weeks(2024, 2), 5);
    EXPECT_EQ(weeks(2023, 10), 6);
    EXPECT_EQ(weeks(2024, 12), 6);
    EXPECT_EQ(weeks(2024, 1), 5);
    EXPECT_EQ(failure_of([] { return weeks(2024, 13); }), 13);
    EXPECT_EQ(failure_of([] { return weeks(2024, 0); }), 13);
}

TEST(WeekAround, RunsFromMondayToSunday) {
    for (std::int32_t day = day_count({1900, 1, 1}); day < day_count({2101, 1, 1}); ++day) {
        const double monday = monday_of(day);
        const double sunday = sunday_of(day);
        ASSERT_EQ(weekday(day_of(monday)), 1);
        ASSERT_EQ(sunday - monday, 6);
        ASSERT_TRUE(monday <= day && day <= sunday);
    }
    EXPECT_EQ(monday_of(day_count({2024, 3, 10})), day_count({2024, 3, 4}));
    EXPECT_EQ(monday_of(day_count({2024, 3, 4})), day_count({2024, 3, 4}));
}

TEST(WeekAround, KeepsTheTimeOfDay) {
    const auto sunday = day_count({2024, 3, 10});
    EXPECT_EQ(monday_of(sunday + 0.25), sunday - 6 + 0.25);
    EXPECT_EQ(sunday_of(sunday - 3 + 0.5), sunday + 0.5);
    // 6:00 on Sunday 31 December 1899; its Monday is day -5, before day 0 the fraction is
    // subtracted.
    EXPECT_EQ(monday_of(1.25), -5.25);
    EXPECT_EQ(monday_of(0.75), -5.75);  // day 0 is a Saturday
    EXPECT_EQ(sunday_of(0.75), 1.75);
    EXPECT_EQ(sunday_of(-5.25), 1.25);
    EXPECT_EQ(monday_of(-0.5), -5.5);
}

TEST(WeekAround, FailsAtTheEndsOfTheCalendar) {
    EXPECT_EQ(failure_of([] { return monday_of(1e9); }), 5);
    EXPECT_EQ(failure_of([] { return sunday_of(-1e9); }), 5);
    EXPECT_EQ(failure_of([] { return monday_of(first_day); }), 6);
    EXPECT_EQ(failure_of([] { return sunday_of(last_day); }), 6);
}

TEST(WeekCaption, NamesMondayAndSunday) {
    const testing_support::SpanishRegional slashes;
    EXPECT_EQ(week_caption(day_count({2024, 2, 29}) + 0.5, slashes),
              L"Semana del 26/02/2024 al 03/03/2024");
    const testing_support::SpanishRegional dashes(RegionalSettings{.date_separator = L"-"});
    EXPECT_EQ(week_caption(day_count({2024, 2, 29}), dashes),
              L"Semana del 26-02-2024 al 03-03-2024");
}

TEST(CurrentMonth, StandsInForZero) {
    constexpr auto today = day_count({2024, 2, 29});
    const auto with_defaults = [](std::int16_t month, std::int16_t year) {
        default_to_current_month(month, year, today);
        return MonthOfYear{month, year};
    };
    EXPECT_EQ(with_defaults(0, 0), (MonthOfYear{2, 2024}));
    EXPECT_EQ(with_defaults(7, 0), (MonthOfYear{7, 2024}));
    EXPECT_EQ(with_defaults(0, 1999), (MonthOfYear{2, 1999}));
    EXPECT_EQ(with_defaults(-3, 12), (MonthOfYear{-3, 12}));
}

TEST(FirstAndLastOfMonth, AreReadInTheUsersDateOrder) {
    EXPECT_EQ(first_of_month({2, 2024}, up_to_2029), day_count({2024, 2, 1}));
    EXPECT_EQ(last_of_month({2, 2024}, 29, up_to_2029), day_count({2024, 2, 29}));
    EXPECT_EQ(first_of_month({13, 2024}, up_to_2029), day_count({2024, 1, 13}));
    EXPECT_EQ(failure_of([] { return first_of_month({32, 2024}, up_to_2029); }), 13);
    EXPECT_EQ(failure_of([] { return last_of_month({13, 2024}, 31, up_to_2029); }), 13);
    EXPECT_EQ(failure_of([] { return last_of_month({2, 2024}, 0, up_to_2029); }), 13);
}

TEST(MonthBefore, JanuaryFollowsDecember) {
    EXPECT_EQ(month_before(1, 2024), (MonthOfYear{12, 2023}));
    EXPECT_EQ(month_before(3, 2024), (MonthOfYear{2, 2024}));
    EXPECT_EQ(first_of_month(month_before(1, 2024), up_to_2029), day_count({2023, 12, 1}));
    EXPECT_EQ(failure_of([] { return month_before(1, -32768).month; }), 6);
}

TEST(MonthBefore, AMonthOfZeroIsNotJanuary) {
    EXPECT_EQ(month_before(0, 2024), (MonthOfYear{-1, 2024}));
    EXPECT_EQ(failure_of([] { return first_of_month(month_before(0, 2024), up_to_2029); }), 13);
    EXPECT_EQ(month_before(255, 2024), (MonthOfYear{254, 2024}));
}

TEST(MonthName, IsInCapitals) {
    constexpr std::array<const wchar_t*, 14> names{
        L"---",   L"ENERO",  L"FEBRERO",    L"MARZO",   L"ABRIL",     L"MAYO",      L"JUNIO",
        L"JULIO", L"AGOSTO", L"SEPTIEMBRE", L"OCTUBRE", L"NOVIEMBRE", L"DICIEMBRE", L"---"};
    for (std::size_t month = 0; month < names.size(); ++month) {
        EXPECT_EQ(month_name(static_cast<std::uint8_t>(month)), names[month]);
    }
    EXPECT_EQ(month_name(255), L"---");
}

}  // namespace
}  // namespace kovrel
