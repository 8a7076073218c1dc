// clsFFechas: weeks and their captions.
#include <array>
#include <cwchar>

#include "tests/automation/calendar.h"
#include "tests/support/import_patch.h"

namespace kovrel::test {
namespace {

/// Members whose result depends on the user's short date pattern.
class Calendar : public CalendarAnySettings {};

TEST_P(CalendarAnySettings, WeeksOfAMonth) {
    const auto week = [&](int year, int month, int day) {
        return shown_for(L"SemanaEnElMes", {date(year, month, day)});
    };
    EXPECT_EQ(week(2024, 1, 1), "entero16 1");
    EXPECT_EQ(week(2024, 1, 31), "entero16 5");
    EXPECT_EQ(week(2024, 4, 1), "entero16 1");  // a Monday
    EXPECT_EQ(week(2024, 9, 1), "entero16 1");  // a Sunday
    EXPECT_EQ(week(2024, 9, 2), "entero16 2");  // the Monday after it
    EXPECT_EQ(week(2024, 9, 30), "entero16 6");
    EXPECT_EQ(week(2024, 12, 31), "entero16 6");
    EXPECT_EQ(shown_for(L"SemanaEnElMes", {Variant(Date{45366.75})}), "entero16 3");
    // Outside the years 100 to 9999.
    for (const double days : {1e9, -1e9, 2958466.0, -657435.0}) {
        EXPECT_EQ(shown_for(L"SemanaEnElMes", {Variant(Date{days})},
                            {{L"Error 5\r (Llamada a procedimiento o argumento no válidos) en "
                              L"procedimiento SemanaEnElMes del Módulo de clase clsFFechas.",
                              16, L"kovrel"}}),
                  "entero16 0");
    }
    const auto weeks = [&](int year, int month) {
        return shown_for(L"SemanasMes", {whole(year), whole(month)});
    };
    EXPECT_EQ(weeks(2021, 2), "entero16 4");
    EXPECT_EQ(weeks(2024, 2), "entero16 5");
    EXPECT_EQ(weeks(2024, 9), "entero16 6");
    EXPECT_EQ(weeks(2024, 1), "entero16 5");
}

TEST_P(CalendarAnySettings, TheWeekAroundADate) {
    EXPECT_EQ(shown_for(L"PrimerDiaSemana", {date(2024, 3, 17)}), shown_date(2024, 3, 11));
    EXPECT_EQ(shown_for(L"PrimerDiaSemana", {date(2024, 3, 11)}), shown_date(2024, 3, 11));
    EXPECT_EQ(shown_for(L"UltimoDiaSemana", {date(2024, 3, 11)}), shown_date(2024, 3, 17));
    EXPECT_EQ(shown_for(L"UltimoDiaSemana", {date(2024, 3, 17)}), shown_date(2024, 3, 17));
    EXPECT_EQ(shown_for(L"PrimerDiaSemana", {Variant(Date{45366.75})}),
              shown(Variant(Date{45362.75})));
    expect_failure(L"PrimerDiaSemana", {date(100, 1, 1)}, 6, L"Desbordamiento");
    expect_failure(L"UltimoDiaSemana", {date(9999, 12, 31)}, 6, L"Desbordamiento");
}

TEST_P(Calendar, TheCaptionOfAWeek) {
    EXPECT_EQ(shown_for(L"SemanaDel", {date(2024, 3, 1)}),
              "texto Semana del 26/02/2024 al 03/03/2024");
    EXPECT_EQ(shown_for(L"SemanaDel", {Variant(Date{45366.75})}),
              "texto Semana del 11/03/2024 al 17/03/2024");
}

/// Makes the library see another short date pattern in the user's settings.
class ShortDatePattern {
 public:
    explicit ShortDatePattern(const wchar_t* pattern) { its_pattern = pattern; }
    [[nodiscard]] bool in_place() const { return patch_.in_place(); }

 private:
    static inline const wchar_t* its_pattern = nullptr;
    static int WINAPI tell(LCID locale, LCTYPE type, wchar_t* room, int size) {
        if (type != LOCALE_SSHORTDATE) return GetLocaleInfoW(locale, type, room, size);
        return swprintf(room, static_cast<std::size_t>(size), L"%ls", its_pattern) + 1;
    }

    const ImportPatch patch_{L"kovrel.dll", "GetLocaleInfoW", reinterpret_cast<void*>(&tell)};
};

/// The date as the system formats it for the user.
std::wstring date_text(int year, int month, int day, const wchar_t* pattern) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    std::array<wchar_t, 200> text{};
    EXPECT_NE(GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &time, pattern, text.data(),
                              static_cast<int>(text.size()), nullptr),
              0);
    return text.data();
}

TEST_P(CalendarAnySettings, TheCaptionOfAWeekInTheUsersLanguage) {
    std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> user{};
    GetUserDefaultLocaleName(user.data(), static_cast<int>(user.size()));
    for (const wchar_t* const pattern :
         {L"d-MMM-yyyy", L"ddd d MMM yy", L"dddd, d MMMM yyyy", L"d 'de' MMMM 'de' yyyy",
          L"d'd''d'M", L"yyyy.MM.dd", L"d'y'M"}) {
        const ShortDatePattern patterned(pattern);
        ASSERT_TRUE(patterned.in_place());
        const std::string caption = shown_for(L"SemanaDel", {date(2026, 9, 16)});
        EXPECT_EQ(caption, narrow(L"texto Semana del " + date_text(2026, 9, 14, pattern) + L" al " +
                                  date_text(2026, 9, 20, pattern)));
        if (std::wstring_view(pattern) != L"d-MMM-yyyy") continue;
        if (user.data() == std::wstring_view(L"es-ES")) {
            EXPECT_EQ(caption, "texto Semana del 14-sept-2026 al 20-sept-2026");
        } else if (user.data() == std::wstring_view(L"ca-ES")) {
            EXPECT_EQ(caption, "texto Semana del 14-de set.-2026 al 20-de set.-2026");
        }
    }
}

// The system's formatting begins with the year 1601.
TEST_P(CalendarAnySettings, TheCaptionOfAWeekOfAnyYear) {
    const auto caption = [&](const wchar_t* pattern, int year, int month, int day) {
        const ShortDatePattern patterned(pattern);
        return shown_for(L"SemanaDel", {date(year, month, day)});
    };
    EXPECT_EQ(caption(L"dd/MM/yyyy", 1600, 2, 29), "texto Semana del 28/02/1600 al 05/03/1600");
    EXPECT_EQ(caption(L"d/M/yy", 105, 1, 14), "texto Semana del 12/1/05 al 18/1/05");
    EXPECT_EQ(caption(L"d'y'/y", 1600, 12, 27), "texto Semana del 25y/00 al 31y/00");
    EXPECT_EQ(caption(L"dd/MM/yyyy", 9999, 12, 24), "texto Semana del 20/12/9999 al 26/12/9999");
    const wchar_t* const pattern = L"dddd d MMMM";
    EXPECT_EQ(caption(pattern, 1492, 10, 12),
              narrow(L"texto Semana del " + date_text(1892, 10, 10, pattern) + L" al " +
                     date_text(1892, 10, 16, pattern)));
}

INSTANTIATE_TEST_SUITE_P(All, Calendar, testing::ValuesIn(every_way));

}  // namespace
}  // namespace kovrel::test
