// Calendar arithmetic and the date prompt.
#pragma once

#include <cstdint>
#include <string>

#include "automation/class_info.h"
#include "automation/variant.h"
#include "library/app_origin.h"

namespace kovrel {

class clsFFechas : public AppOrigen {
 public:
    static const ClassInfo class_info;

    std::wstring ConvierteAñoA2(const std::int16_t& IntAño);
    std::wstring ConvierteAñoA4(std::int16_t& IntAño);
    std::int16_t Dias_Anyo(const std::int16_t& Anyo);
    std::int16_t Dias_Mes(const std::int16_t& Mes, const std::int16_t& Anyo);
    bool EsBisiesto(std::int16_t IntAño);
    std::int16_t SemanasMes(std::int16_t IntAño, std::int16_t IntMes);
    std::int16_t SemanaEnElMes(Date DtFecha);
    Date PrimerDiaSemana(const Date& DtFecha);
    Date UltimoDiaSemana(const Date& DtFecha);
    std::wstring SemanaDel(const Date& DtFecha);
    Date PrimerDiaMesActual(std::int16_t& Mes, std::int16_t& Año);
    Date UltimoDiaMesActual(std::int16_t& Mes, std::int16_t& Año);
    Date primerdia_mesanterior(const std::uint8_t& Mes, const std::int16_t& Año);
    Date ultimodia_mesanterior(const std::uint8_t& Mes, const std::int16_t& Año);
    std::wstring mes_letra(const std::uint8_t& n_mes);
    Date PideFecha(const std::wstring& strMensaje, const std::wstring& strCaption,
                   Date& DtFechaDefecto);
};

}  // namespace kovrel
