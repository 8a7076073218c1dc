// clsFFechas: calendar calculations. Five are guarded; failures of the others reach the host.
#include "dates/calendar_rules.h"
#include "library/clsFFechas.h"
#include "runtime/calendar.h"
#include "services/clock.h"
#include "services/guarded.h"
#include "services/message_box.h"
#include "services/system_regional.h"

namespace kovrel {
namespace {

Date date_of(std::int32_t day) {
    return Date{static_cast<double>(day)};
}

}  // namespace

std::wstring clsFFechas::ConvierteAñoA2(const std::int16_t& IntAño) {
    return year_to_two_digits(IntAño, &two_digit_year_max);
}

std::wstring clsFFechas::ConvierteAñoA4(std::int16_t& IntAño) {
    return guarded<std::wstring>(
        {L") en procedimiento ConvierteAñoA4 del Módulo de clase clsFFechas."},
        [&](std::wstring& result) {
            if (const auto notice = two_digit_year_notice(IntAño)) {
                show(*notice);
            } else {
                result = year_to_four_digits(IntAño, &two_digit_year_max);
            }
        });
}

std::int16_t clsFFechas::Dias_Anyo(const std::int16_t& Anyo) {
    return EsBisiesto(Anyo) ? 366 : 365;
}

std::int16_t clsFFechas::Dias_Mes(const std::int16_t& Mes, const std::int16_t& Anyo) {
    return guarded<std::int16_t>(
        {L") en procedimiento Dias_Mes del Módulo de clase clsFFechas."},
        [&](std::int16_t& result) { result = days_in_month(Mes, Anyo, &two_digit_year_max); });
}

bool clsFFechas::EsBisiesto(std::int16_t IntAño) {
    return guarded<bool>({L") en procedimiento EsBisiesto del Módulo de clase clsFFechas."},
                         [&](bool& result) { result = Dias_Mes(2, IntAño) == 29; });
}

std::int16_t clsFFechas::SemanasMes(std::int16_t IntAño, std::int16_t IntMes) {
    return guarded<std::int16_t>(
        {L") en procedimiento SemanasMes del Módulo de clase clsFFechas."},
        [&](std::int16_t& result) {
            const std::int16_t days = Dias_Mes(IntMes, IntAño);
            const std::int32_t last = last_of_month({IntMes, IntAño}, days, &two_digit_year_max);
            result = SemanaEnElMes(date_of(last));
        });
}

std::int16_t clsFFechas::SemanaEnElMes(Date DtFecha) {
    return guarded<std::int16_t>(
        {L") en procedimiento SemanaEnElMes del Módulo de clase clsFFechas."},
        [&](std::int16_t& result) { result = week_of_month(DtFecha.days); });
}

Date clsFFechas::PrimerDiaSemana(const Date& DtFecha) {
    return Date{monday_of(DtFecha.days)};
}

Date clsFFechas::UltimoDiaSemana(const Date& DtFecha) {
    return Date{sunday_of(DtFecha.days)};
}

std::wstring clsFFechas::SemanaDel(const Date& DtFecha) {
    return week_caption(DtFecha.days, SystemRegional());
}

Date clsFFechas::PrimerDiaMesActual(std::int16_t& Mes, std::int16_t& Año) {
    default_to_current_month(Mes, Año, today());
    return date_of(first_of_month({Mes, Año}, &two_digit_year_max));
}

Date clsFFechas::UltimoDiaMesActual(std::int16_t& Mes, std::int16_t& Año) {
    default_to_current_month(Mes, Año, today());
    const std::int16_t days = Dias_Mes(Mes, Año);
    return date_of(last_of_month({Mes, Año}, days, &two_digit_year_max));
}

Date clsFFechas::primerdia_mesanterior(const std::uint8_t& Mes, const std::int16_t& Año) {
    return date_of(first_of_month(month_before(Mes, Año), &two_digit_year_max));
}

Date clsFFechas::ultimodia_mesanterior(const std::uint8_t& Mes, const std::int16_t& Año) {
    const MonthOfYear before = month_before(Mes, Año);
    // December has 31 days in any year, so the year before need not be valid.
    const std::int16_t days = Mes == 1 ? std::int16_t{31}
                                       : Dias_Mes(static_cast<std::int16_t>(before.month),
                                                  static_cast<std::int16_t>(before.year));
    return date_of(last_of_month(before, days, &two_digit_year_max));
}

std::wstring clsFFechas::mes_letra(const std::uint8_t& n_mes) {
    return std::wstring(month_name(n_mes));
}

}  // namespace kovrel
