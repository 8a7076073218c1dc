// Literals for SQL texts.
#pragma once

#include <cstdint>
#include <string>

#include "automation/class_info.h"
#include "frame/app_origin.h"

namespace kovrel {

class clsCSQL : public AppOrigen {
 public:
    static const ClassInfo& class_info();

    std::wstring Conv_Double(const Variant& Numero);
    std::wstring Conv_DoubleDeDouble(const double& Numero);
    std::wstring Conv_Double4(const Variant& Numero);
    std::wstring Conv_Date(const std::wstring& Fecha);
    std::wstring Conv_Date_Date(const Date& Fecha);
    std::int16_t Conv_Boolean(const bool& BooDato);
    std::wstring Conv_String(const std::wstring& StrCadena);
};

}  // namespace kovrel
