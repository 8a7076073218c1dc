#include "library/clsFFechas.h"

#include "automation/declare.h"
#include "library/library.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsFFechas",
    {0xb502dffc, 0x3580, 0x43af, {0xad, 0xa3, 0xbd, 0x09, 0x97, 0x37, 0x4d, 0xf0}},
    {0x14d1652c, 0xbb05, 0x49ab, {0x87, 0x6c, 0x17, 0x07, 0x56, 0x52, 0x4f, 0x3f}},
};

constexpr auto declared =
    declare<clsFFechas>(identity,
                        L"Cálculos de calendario: años, meses, semanas de lunes a domingo, y "
                        L"petición de una fecha.",
                        Instancing::global)
        .property<&clsFFechas::get_AppOrigen, &clsFFechas::set_AppOrigen>(
            L"AppOrigen",
            L"Nombre de la aplicación anfitriona; titula los mensajes que lo indican.")
        .method<&clsFFechas::ConvierteAñoA2>(L"ConvierteAñoA2", {L"IntAño"}, L"Año con dos cifras.")
        .method<&clsFFechas::ConvierteAñoA4>(
            L"ConvierteAñoA4", {L"IntAño"},
            L"Año de dos cifras llevado a cuatro (20xx); cambia también la variable recibida.")
        .method<&clsFFechas::Dias_Anyo>(L"Dias_Anyo", {L"Anyo"},
                                        L"Número de días del año: 365 o 366.")
        .method<&clsFFechas::Dias_Mes>(L"Dias_Mes", {L"Mes", L"Anyo"}, L"Número de días del mes.")
        .method<&clsFFechas::EsBisiesto>(L"EsBisiesto", {L"IntAño"},
                                         L"Indica si el año es bisiesto.")
        .method<&clsFFechas::SemanasMes>(L"SemanasMes", {L"IntAño", L"IntMes"},
                                         L"Número de semanas, de lunes a domingo, que toca el mes.")
        .method<&clsFFechas::SemanaEnElMes>(L"SemanaEnElMes", {L"DtFecha"},
                                            L"Semana del mes a la que pertenece la fecha, desde 1.")
        .method<&clsFFechas::PrimerDiaSemana>(L"PrimerDiaSemana", {L"DtFecha"},
                                              L"Lunes de la semana de la fecha.")
        .method<&clsFFechas::UltimoDiaSemana>(L"UltimoDiaSemana", {L"DtFecha"},
                                              L"Domingo de la semana de la fecha.")
        .method<&clsFFechas::SemanaDel>(
            L"SemanaDel", {L"DtFecha"},
            L"Texto con el lunes y el domingo de la semana de la fecha.")
        .method<&clsFFechas::PrimerDiaMesActual>(
            L"PrimerDiaMesActual", {optional(L"Mes", 0), optional(L"Año", 0)},
            L"Primer día del mes; los valores 0 se sustituyen por el mes y el año de hoy, "
            L"también en las variables recibidas.")
        .method<&clsFFechas::UltimoDiaMesActual>(
            L"UltimoDiaMesActual", {optional(L"Mes", 0), optional(L"Año", 0)},
            L"Último día del mes; los valores 0 se sustituyen por el mes y el año de hoy, "
            L"también en las variables recibidas.")
        .method<&clsFFechas::primerdia_mesanterior>(L"primerdia_mesanterior", {L"Mes", L"Año"},
                                                    L"Primer día del mes anterior.")
        .method<&clsFFechas::ultimodia_mesanterior>(L"ultimodia_mesanterior", {L"Mes", L"Año"},
                                                    L"Último día del mes anterior.")
        .method<&clsFFechas::mes_letra>(L"mes_letra", {L"n_mes"}, L"Nombre del mes en mayúsculas.")
        .method<&clsFFechas::PideFecha>(
            L"PideFecha",
            {L"strMensaje", optional(L"strCaption", L"Fecha"),
             optional(L"DtFechaDefecto", Default::day(0))},
            L"Pide una fecha al usuario en una ventana; una fecha propuesta 0 se sustituye por "
            L"la de hoy, también en la variable recibida.");

}  // namespace

constinit const ClassInfo clsFFechas::class_info = class_tables<declared>;

}  // namespace kovrel
