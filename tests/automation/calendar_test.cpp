// clsFFechas: years, months and their days.
#include "tests/automation/calendar.h"

namespace kovrel::test {
namespace {

int last_of_month(int year, int month) {
    const auto first_of_next =
        month == 12 ? day_count({year + 1, 1, 1}) : day_count({year, month + 1, 1});
    return civil_date(first_of_next - 1).day;
}

TEST_P(CalendarAnySettings, YearsOfTwoDigits) {
    EXPECT_EQ(shown_for(L"ConvierteAñoA2", {whole(2024)}), "texto 24");
    EXPECT_EQ(shown_for(L"ConvierteAñoA2", {whole(1905)}), "texto 05");
    EXPECT_EQ(shown_for(L"ConvierteAñoA2", {whole(5)}), "texto 05");
    EXPECT_EQ(shown_for(L"ConvierteAñoA2", {whole(9999)}), "texto 99");
    expect_failure(L"ConvierteAñoA2", {whole(-1)}, 13, mismatch);
    expect_failure(L"ConvierteAñoA2", {whole(10000)}, 13, mismatch);
}

TEST_P(CalendarAnySettings, YearsOfFourDigits) {
    const auto year = [&](int given, const char* text, int left) {
        const Answer answer = call_for(L"ConvierteAñoA4", {whole(given)});
        EXPECT_EQ(shown(answer.value), text);
        EXPECT_EQ(shown(answer.arguments[0]), shown(whole(writes_back() ? left : given)));
    };
    year(24, "texto 2024", 2024);
    year(0, "texto 2000", 2000);
    year(99, "texto 2099", 2099);
    year(-5, "texto 1995", 1995);
}

TEST_P(CalendarAnySettings, AYearThatHasFourDigitsAlready) {
    put(calendar_.get(), L"AppOrigen", Variant(L"Facturas"));
    for (const int given : {100, 2024, 32767}) {
        const Answer answer = call_for(L"ConvierteAñoA4", {whole(given)},
                                       {{L"Error al convertir el año a 4 dígitos", 16, L"kovrel"}});
        EXPECT_EQ(shown(answer.value), "texto ");
        EXPECT_EQ(shown(answer.arguments[0]), shown(whole(given)));
    }
}

TEST_P(CalendarAnySettings, AYearOutOfRangeShowsTheErrorBox) {
    const Answer answer = call_for(L"ConvierteAñoA4", {whole(-2001)},
                                   {{L"Error 13\r (No coinciden los tipos) en procedimiento "
                                     L"ConvierteAñoA4 del Módulo de clase clsFFechas.",
                                     16, L"kovrel"}});
    EXPECT_EQ(answer.result, S_OK);
    EXPECT_EQ(shown(answer.value), "texto ");
    // The parameter is assigned before the failure.
    EXPECT_EQ(shown(answer.arguments[0]), shown(whole(writes_back() ? -1 : -2001)));
}

TEST_P(CalendarAnySettings, DaysOfMonthsAndYears) {
    const auto days = [&](int month, int year) {
        return shown_for(L"Dias_Mes", {whole(month), whole(year)});
    };
    EXPECT_EQ(days(2, 2023), "entero16 28");
    EXPECT_EQ(days(2, 2024), "entero16 29");
    EXPECT_EQ(days(2, 1900), "entero16 28");
    EXPECT_EQ(days(12, 2023), "entero16 31");
    EXPECT_EQ(days(13, 2023), "entero16 31");
    EXPECT_EQ(days(14, 2023), "entero16 29");
    EXPECT_EQ(days(0, 2024), "entero16 31");
    EXPECT_EQ(days(-9, 2024), "entero16 31");
    EXPECT_EQ(shown_for(L"EsBisiesto", {whole(1900)}), no_);
    EXPECT_EQ(shown_for(L"EsBisiesto", {whole(2000)}), yes_);
    EXPECT_EQ(shown_for(L"EsBisiesto", {whole(2024)}), yes_);
    EXPECT_EQ(shown_for(L"Dias_Anyo", {whole(1900)}), "entero16 365");
    EXPECT_EQ(shown_for(L"Dias_Anyo", {whole(2024)}), "entero16 366");
}

TEST_P(CalendarAnySettings, FailuresShowTheErrorBox) {
    const ExpectedBox days_overflow{
        L"Error 6\r (Desbordamiento) en procedimiento Dias_Mes del Módulo de clase clsFFechas.", 16,
        L"kovrel"};
    const ExpectedBox days_argument{
        L"Error 5\r (Llamada a procedimiento o argumento no válidos) en procedimiento Dias_Mes del "
        L"Módulo de clase clsFFechas.",
        16, L"kovrel"};
    EXPECT_EQ(shown_for(L"Dias_Mes", {whole(32767), whole(2024)}, {days_overflow}), "entero16 0");
    EXPECT_EQ(shown_for(L"Dias_Mes", {whole(1), whole(32767)}, {days_argument}), "entero16 0");
    // Dias_Mes shows the box and returns 0, which is not 29.
    EXPECT_EQ(shown_for(L"EsBisiesto", {whole(32767)}, {days_argument}), no_);
    EXPECT_EQ(shown_for(L"Dias_Anyo", {whole(32767)}, {days_argument}), "entero16 365");
    const ExpectedBox weeks{
        L"Error 13\r (No coinciden los tipos) en procedimiento SemanasMes del "
        L"Módulo de clase clsFFechas.",
        16, L"kovrel"};
    EXPECT_EQ(shown_for(L"SemanasMes", {whole(2024), whole(13)}, {weeks}), "entero16 0");
    EXPECT_EQ(shown_for(L"SemanasMes", {whole(2024), whole(0)}, {weeks}), "entero16 0");
    EXPECT_EQ(shown_for(L"SemanasMes", {whole(32767), whole(1)}, {days_argument, weeks}),
              "entero16 0");
}

TEST_P(CalendarAnySettings, FirstAndLastDaysOfAMonth) {
    EXPECT_EQ(shown_for(L"PrimerDiaMesActual", {whole(2), whole(2024)}), shown_date(2024, 2, 1));
    EXPECT_EQ(shown_for(L"UltimoDiaMesActual", {whole(2), whole(2024)}), shown_date(2024, 2, 29));
    expect_failure(L"PrimerDiaMesActual", {whole(-1), whole(2024)}, 13, mismatch);
    expect_failure(L"UltimoDiaMesActual", {whole(-1), whole(2024)}, 13, mismatch);
    expect_failure(L"PrimerDiaMesActual", {whole(32), whole(2024)}, 13, mismatch);
}

const ExpectedBox no_days_of_month{
    L"Error 5\r (Llamada a procedimiento o argumento no válidos) en procedimiento Dias_Mes del "
    L"Módulo de clase clsFFechas.",
    16, L"kovrel"};

TEST_P(CalendarAnySettings, AYearOutOfRangeFailsToTheHost) {
    // Dias_Mes shows the box and returns 0; the date made with it then fails.
    expect_failure(L"UltimoDiaMesActual", {whole(1), whole(32767)}, 13, mismatch,
                   {no_days_of_month});
    expect_failure(L"ultimodia_mesanterior", {month_number(3), whole(32767)}, 13, mismatch,
                   {no_days_of_month});
    // The first day needs no Dias_Mes, so no box.
    expect_failure(L"PrimerDiaMesActual", {whole(1), whole(32767)}, 13, mismatch);
    expect_failure(L"primerdia_mesanterior", {month_number(3), whole(32767)}, 13, mismatch);
    expect_failure(L"ultimodia_mesanterior", {month_number(1), whole(32767)}, 13, mismatch);
}

TEST_P(CalendarAnySettings, ZeroStandsForTodaysMonthAndYear) {
    SYSTEMTIME now{};
    Answer first;
    Answer last;
    do {  // repeated when the month changes in between
        GetLocalTime(&now);
        first = call_for(L"PrimerDiaMesActual", {whole(0), whole(0)});
        last = call_for(L"UltimoDiaMesActual", {whole(0), whole(0)});
        SYSTEMTIME after{};
        GetLocalTime(&after);
        if (after.wMonth == now.wMonth) break;
    } while (true);
    EXPECT_EQ(shown(first.value), shown_date(now.wYear, now.wMonth, 1));
    EXPECT_EQ(shown(last.value),
              shown_date(now.wYear, now.wMonth, last_of_month(now.wYear, now.wMonth)));
    for (const Answer& answer : {first, last}) {
        EXPECT_EQ(shown(answer.arguments[0]), shown(whole(writes_back() ? now.wMonth : 0)));
        EXPECT_EQ(shown(answer.arguments[1]), shown(whole(writes_back() ? now.wYear : 0)));
    }
    // Omitted arguments count as 0.
    EXPECT_EQ(shown_for(L"PrimerDiaMesActual", {}), shown(first.value));
    EXPECT_EQ(shown_for(L"UltimoDiaMesActual", {}), shown(last.value));
    // One of the two alone; a value replaced before a failure stays replaced.
    EXPECT_EQ(shown_for(L"PrimerDiaMesActual", {whole(3), whole(0)}), shown_date(now.wYear, 3, 1));
    const Answer month_only = call_for(L"UltimoDiaMesActual", {whole(3), whole(0)});
    EXPECT_EQ(shown(month_only.value), shown_date(now.wYear, 3, 31));
    EXPECT_EQ(shown(month_only.arguments[0]), "entero16 3");
    EXPECT_EQ(shown(month_only.arguments[1]), shown(whole(writes_back() ? now.wYear : 0)));
    const Answer year_only = call_for(L"UltimoDiaMesActual", {whole(0), whole(2023)});
    EXPECT_EQ(shown(year_only.value),
              shown_date(2023, now.wMonth, last_of_month(2023, now.wMonth)));
    EXPECT_EQ(shown(year_only.arguments[0]), shown(whole(writes_back() ? now.wMonth : 0)));
    EXPECT_EQ(shown(year_only.arguments[1]), "entero16 2023");
    const Answer failed = call_for(L"PrimerDiaMesActual", {whole(0), whole(-5)});
    EXPECT_EQ(failed.result, failure(13));
    EXPECT_EQ(shown(failed.arguments[0]), shown(whole(writes_back() ? now.wMonth : 0)));
}

TEST_P(CalendarAnySettings, TheMonthBefore) {
    const auto first = [&](int month, int year) {
        return shown_for(L"primerdia_mesanterior", {month_number(month), whole(year)});
    };
    const auto last = [&](int month, int year) {
        return shown_for(L"ultimodia_mesanterior", {month_number(month), whole(year)});
    };
    EXPECT_EQ(first(1, 2024), shown_date(2023, 12, 1));
    EXPECT_EQ(first(3, 2024), shown_date(2024, 2, 1));
    EXPECT_EQ(last(1, 2024), shown_date(2023, 12, 31));
    EXPECT_EQ(last(3, 2024), shown_date(2024, 2, 29));
    EXPECT_EQ(last(3, 2023), shown_date(2023, 2, 28));
    // Month 0 is not taken for January, and month -1 fails.
    expect_failure(L"primerdia_mesanterior", {month_number(0), whole(2024)}, 13, mismatch);
    expect_failure(L"ultimodia_mesanterior", {month_number(0), whole(2024)}, 13, mismatch);
    expect_failure(L"primerdia_mesanterior", {month_number(1), whole(-32768)}, 6,
                   L"Desbordamiento");
    expect_failure(L"ultimodia_mesanterior", {month_number(1), whole(-32768)}, 6,
                   L"Desbordamiento");
}

TEST_P(CalendarAnySettings, NamesOfMonths) {
    constexpr std::array names{"ENERO",      "FEBRERO", "MARZO",     "ABRIL",
                               "MAYO",       "JUNIO",   "JULIO",     "AGOSTO",
                               "SEPTIEMBRE", "OCTUBRE", "NOVIEMBRE", "DICIEMBRE"};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(shown_for(L"mes_letra", {month_number(month)}),
                  std::string("texto ") + names[static_cast<std::size_t>(month - 1)]);
    }
    for (const int none : {0, 13, 255}) {
        EXPECT_EQ(shown_for(L"mes_letra", {month_number(none)}), "texto ---");
    }
}

INSTANTIATE_TEST_SUITE_P(All, CalendarAnySettings, testing::ValuesIn(every_way));

TEST(CalendarOfScripts, ArgumentsAreConvertedToTheParameterTypes) {
    const auto calendar = create(L"Kovrel.clsFFechas");
    EXPECT_EQ(shown(call(calendar.get(), L"PrimerDiaSemana", {L"17/03/2024"}).value),
              shown_date(2024, 3, 11));
    EXPECT_EQ(shown(call(calendar.get(), L"mes_letra", {5}).value), "texto MAYO");
    EXPECT_EQ(call(calendar.get(), L"mes_letra", {256}).result, DISP_E_OVERFLOW);
    EXPECT_EQ(call(calendar.get(), L"EsBisiesto", {40000}).result, DISP_E_OVERFLOW);
    EXPECT_EQ(call(calendar.get(), L"PrimerDiaSemana", {L"mañana"}).result, DISP_E_TYPEMISMATCH);
    // The script's variable changes its type when the result is written back.
    Variant year(24);
    EXPECT_EQ(
        text_of_result(call(calendar.get(), L"ConvierteAñoA4", {LateArgument::variable(year)})),
        L"2024");
    EXPECT_EQ(year.to_int32(), 2024);
    EXPECT_EQ(call(calendar.get(), L"EsBisiesto", {}).result, DISP_E_BADPARAMCOUNT);
}

TEST(CalendarOfScripts, UseTheUsersShortDate) {
    const auto calendar = create(L"Kovrel.clsFFechas");
    const Variant monday(Date{45362});
    const Variant sunday(Date{45368});
    EXPECT_EQ(text_of_result(call(calendar.get(), L"SemanaDel", {monday})),
              L"Semana del " + monday.to_text() + L" al " + sunday.to_text());
}

}  // namespace
}  // namespace kovrel::test
