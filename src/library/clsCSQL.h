// Literals for SQL texts.
#pragma once

#include <cstdint>
#include <string>

#include "automation/class_info.h"
#include "automation/variant.h"
#include "library/app_origin.h"
#include "library/clsFGen.h"

namespace kovrel {

class clsCSQL : public AppOrigen {
 public:
    static const ClassInfo class_info;

    std::wstring Conv_Double(const Variant& Numero);
    std::wstring Conv_DoubleDeDouble(const double& Numero);
    std::wstring Conv_Double4(const Variant& Numero);
    std::wstring Conv_Date(const std::wstring& Fecha);
    std::wstring Conv_Date_Date(const Date& Fecha);
    std::int16_t Conv_Boolean(const bool& BooDato);
    std::wstring Conv_String(const std::wstring& StrCadena);

 private:
    /// What Conv_Double and Conv_DoubleDeDouble share.
    void convert_to_cents(const Variant& number, std::wstring& result);

    /// A catalogue of its own, with an empty AppOrigen.
    clsFGen general_;
};

}  // namespace kovrel
