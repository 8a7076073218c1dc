#include "runtime/calendar.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>

#include "runtime/failure.h"
#include "tests/support/failure_of.h"

#ifdef _WIN32
#include <windows.h>
#include <oleauto.h>

#include <optional>
#include <string>
#endif

namespace kovrel {
namespace {

constexpr TwoDigitYearMax until_2029 = [] { return 2029; };
constexpr TwoDigitYearMax until_2049 = [] { return 2049; };
constexpr TwoDigitYearMax never_asked = []() -> int { throw Failure(0, L"asked for the setting"); };

std::int32_t read(int day, int month, int year) {
    return read_day_month_year(day, month, year, until_2029);
}

CivilDate composed(int year, int month, int day) {
    return civil_date(compose_date(year, month, day, until_2029));
}

TEST(Calendar, CountsFromTheThirtiethOfDecember1899) {
    EXPECT_EQ(day_count({1899, 12, 30}), 0);
    EXPECT_EQ(day_count({1900, 1, 1}), 2);
    EXPECT_EQ(day_count({1899, 12, 29}), -1);
    EXPECT_EQ(day_count({2024, 2, 29}), 45351);
    EXPECT_EQ(first_day, -657434);
    EXPECT_EQ(last_day, 2958465);
}

int length_of_month(int year, int month) {
    constexpr std::array<int, 12> lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return month == 2 && leap ? 29 : lengths.at(static_cast<std::size_t>(month - 1));
}

TEST(Calendar, CountsEveryDayInItsOrder) {
    constexpr int friday = 5;
    int day_of_week = friday;
    std::int32_t day = first_day;
    for (int year = 100; year <= 9999; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int number = 1; number <= length_of_month(year, month); ++number) {
                const CivilDate date{year, month, number};
                ASSERT_TRUE(civil_date(day) == date) << day;
                ASSERT_EQ(day_count(date), day);
                ASSERT_EQ(weekday(day), day_of_week) << day;
                day_of_week = day_of_week % 7 + 1;
                ++day;
            }
        }
    }
    EXPECT_EQ(day, last_day + 1);
}

TEST(Calendar, TheWeekOfNewYearIsTheFirst) {
    EXPECT_EQ(week_of_year(day_count({2024, 1, 1})), 1);  // a Monday
    EXPECT_EQ(week_of_year(day_count({2024, 1, 7})), 1);
    EXPECT_EQ(week_of_year(day_count({2024, 1, 8})), 2);
    EXPECT_EQ(week_of_year(day_count({2023, 1, 1})), 1);  // a Sunday
    EXPECT_EQ(week_of_year(day_count({2023, 1, 2})), 2);
    EXPECT_EQ(week_of_year(day_count({2024, 12, 31})), 53);
    EXPECT_EQ(week_of_year(day_count({2000, 12, 31})), 53);
    EXPECT_EQ(week_of_year(day_count({2012, 12, 31})), 54);  // leap, begins on a Sunday
    for (std::int32_t day = day_count({1900, 1, 1}); day < day_count({2101, 1, 1}); ++day) {
        const bool new_year = civil_date(day + 1).month == 1 && civil_date(day + 1).day == 1;
        const int next = new_year ? 1 : week_of_year(day) + (weekday(day) == 7 ? 1 : 0);
        ASSERT_EQ(week_of_year(day + 1), next) << day;
    }
}

TEST(Calendar, TheTimeOfDayIsTheFractionWhateverTheSign) {
    EXPECT_EQ(day_of(45351.75), 45351);
    EXPECT_EQ(day_of(-5.25), -5);
    EXPECT_EQ(day_of(-0.5), 0);
    EXPECT_EQ(day_of(first_day - 0.999), first_day);
    EXPECT_EQ(day_of(last_day + 0.999), last_day);
    for (const double date : {first_day - 1.0, last_day + 1.0, 1e300, -1e300,
                              std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(failure_of([date] { return day_of(date); }), 5);
    }
}

TEST(ReadDayMonthYear, TakesTheDayFirst) {
    EXPECT_EQ(read(2, 1, 2024), day_count({2024, 1, 2}));
    EXPECT_EQ(read(31, 12, 9999), last_day);
    EXPECT_EQ(read(1, 1, 100), first_day);
    EXPECT_EQ(read(29, 2, 2000), day_count({2000, 2, 29}));
}

TEST(ReadDayMonthYear, FallsBackToMonthAndDay) {
    EXPECT_EQ(read(1, 13, 2024), day_count({2024, 1, 13}));
    EXPECT_EQ(read(2, 29, 2024), day_count({2024, 2, 29}));
    EXPECT_EQ(read(12, 31, 5), day_count({2005, 12, 31}));
}

TEST(ReadDayMonthYear, FallsBackToYearMonthAndDay) {
    EXPECT_EQ(read(31, 4, 1), day_count({1931, 4, 1}));
    EXPECT_EQ(read(29, 2, 1), day_count({2029, 2, 1}));
    EXPECT_EQ(read(0, 1, 5), day_count({2000, 1, 5}));
    EXPECT_EQ(read(2024, 2, 29), day_count({2024, 2, 29}));
}

TEST(ReadDayMonthYear, FailsForInvalidDates) {
    for (const CivilDate& date :
         {CivilDate{2023, 2, 29}, CivilDate{2024, 4, 31}, CivilDate{2024, -1, 1},
          CivilDate{2024, 1, -1}, CivilDate{2024, 0, 1}, CivilDate{2024, 1, 0},
          CivilDate{2024, 32, 1}, CivilDate{2024, 13, 13}, CivilDate{10000, 1, 1},
          CivilDate{-1, 1, 1}, CivilDate{32767, 1, 1}, CivilDate{-32768, 1, 1}}) {
        EXPECT_EQ(failure_of([&] { return read(date.day, date.month, date.year); }), 13);
    }
}

TEST(ReadDayMonthYear, TwoDigitYearsFollowTheUsersSetting) {
    EXPECT_EQ(read(1, 1, 0), day_count({2000, 1, 1}));
    EXPECT_EQ(read(1, 1, 29), day_count({2029, 1, 1}));
    EXPECT_EQ(read(1, 1, 30), day_count({1930, 1, 1}));
    EXPECT_EQ(read(1, 1, 99), day_count({1999, 1, 1}));
    EXPECT_EQ(read_day_month_year(1, 1, 30, until_2049), day_count({2030, 1, 1}));
    EXPECT_EQ(read_day_month_year(1, 1, 50, until_2049), day_count({1950, 1, 1}));
    constexpr TwoDigitYearMax until_2099 = [] { return 2099; };
    EXPECT_EQ(read_day_month_year(1, 1, 99, until_2099), day_count({2099, 1, 1}));
    EXPECT_EQ(read_day_month_year(1, 1, 100, never_asked), first_day);
}

TEST(ComposeDate, CarriesMonthsAndDaysOver) {
    EXPECT_EQ(composed(2024, 3, 0), (CivilDate{2024, 2, 29}));
    EXPECT_EQ(composed(2023, 13, 0), (CivilDate{2023, 12, 31}));
    EXPECT_EQ(composed(2023, 0, 0), (CivilDate{2022, 11, 30}));
    EXPECT_EQ(composed(2023, -11, 0), (CivilDate{2021, 12, 31}));
    EXPECT_EQ(composed(2023, 26, 31), (CivilDate{2025, 3, 3}));
    EXPECT_EQ(composed(9999, 13, 0), (CivilDate{9999, 12, 31}));
    EXPECT_EQ(composed(10000 - 1, 1, 366 - 1), (CivilDate{9999, 12, 31}));
    EXPECT_EQ(composed(100, 1, 1), (CivilDate{100, 1, 1}));
    EXPECT_EQ(composed(2000, 32767, 0), (CivilDate{4730, 6, 30}));
}

TEST(ComposeDate, AcceptsTwoDigitAndNegativeYears) {
    EXPECT_EQ(composed(24, 3, 0), (CivilDate{2024, 2, 29}));
    EXPECT_EQ(composed(30, 3, 0), (CivilDate{1930, 2, 28}));
    EXPECT_EQ(composed(-5, 1, 1), (CivilDate{1995, 1, 1}));
    EXPECT_EQ(composed(-1900, 1, 1), (CivilDate{100, 1, 1}));
    EXPECT_EQ(compose_date(49, 1, 1, until_2049), day_count({2049, 1, 1}));
    EXPECT_EQ(compose_date(-5, 1, 1, never_asked), day_count({1995, 1, 1}));
    constexpr TwoDigitYearMax until_1999 = [] { return 1999; };
    EXPECT_EQ(compose_date(0, 1, 1, until_1999), day_count({1900, 1, 1}));
    // From January of the year 0, whose hundred years have 25 leap years.
    EXPECT_EQ(composed(-2000, 1, 36526), (CivilDate{100, 1, 1}));
}

TEST(ComposeDate, FailsOutsideTheCalendar) {
    constexpr auto most = std::numeric_limits<int>::max();
    constexpr auto least = std::numeric_limits<int>::min();
    for (const CivilDate& date :
         {CivilDate{100, 1, 0}, CivilDate{9999, 12, 32}, CivilDate{9999, 14, 0},
          CivilDate{9999, 25, -400}, CivilDate{10000, -20, 1}, CivilDate{32767, 1, 1},
          CivilDate{-1901, 1, 1}, CivilDate{-32768, 1, 1}, CivilDate{2000, -32768, 0},
          CivilDate{9000, 32767, 0}, CivilDate{most, most, most}, CivilDate{2024, least, least},
          CivilDate{2024, 1, most}}) {
        EXPECT_EQ(failure_of([&] { return composed(date.year, date.month, date.day); }), 5);
    }
}

#ifdef _WIN32

int users_two_digit_year_max() {
    DWORD year = 0;
    GetCalendarInfoW(LOCALE_USER_DEFAULT, CAL_GREGORIAN, CAL_ITWODIGITYEARMAX | CAL_RETURN_NUMBER,
                     nullptr, 0, &year);
    return static_cast<int>(year);
}

std::optional<std::int32_t> platform_reading(int day, int month, int year) {
    auto text = std::to_wstring(day) + L"/" + std::to_wstring(month) + L"/" + std::to_wstring(year);
    double date = 0;
    if (FAILED(VarDateFromStr(text.data(), LOCALE_USER_DEFAULT, 0, &date))) return std::nullopt;
    return static_cast<std::int32_t>(date);
}

TEST(ReadDayMonthYear, ReadsAsThePlatformDoes) {
    std::array<wchar_t, 4> order{};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IDATE, order.data(), static_cast<int>(order.size()));
    if (order[0] != L'1') GTEST_SKIP() << "the user does not write the day first";
    for (const int year :
         {-32768, -1000, -1,  0,   1,   5,    12,   13,   24,   29,   30,   31,   32,    49,
          50,     99,    100, 101, 999, 1582, 1899, 1900, 2000, 2023, 2024, 9999, 10000, 32767}) {
        for (int month = -1; month <= 32; ++month) {
            for (int day = 0; day <= 40; ++day) {
                std::optional<std::int32_t> ours;
                try {
                    ours = read_day_month_year(day, month, year, users_two_digit_year_max);
                } catch (const Failure&) {
                }
                ASSERT_EQ(ours, platform_reading(day, month, year))
                    << day << "/" << month << "/" << year;
            }
        }
    }
}

#endif

}  // namespace
}  // namespace kovrel
