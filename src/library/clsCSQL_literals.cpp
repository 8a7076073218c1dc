// clsCSQL: the literals. Numbers are guarded; failures of the others reach the host.
#include "library/clsCSQL.h"
#include "numbers/sql_literal.h"
#include "runtime/calendar.h"
#include "services/guarded.h"
#include "services/message_box.h"
#include "services/system_regional.h"

namespace kovrel {
namespace {

std::wstring literal_of_day(double date) {
    const CivilDate civil = civil_date(day_of(date));
    return sql_date(civil.year, civil.month, civil.day);
}

}  // namespace

std::wstring clsCSQL::Conv_Double(const Variant& Numero) {
    return guarded<std::wstring>({L") en procedimiento Conv_Double del Módulo de clase clsCSQL."},
                                 [&](std::wstring& result) { convert_to_cents(Numero, result); });
}

std::wstring clsCSQL::Conv_DoubleDeDouble(const double& Numero) {
    return guarded<std::wstring>(
        {L") en procedimiento Conv_DoubleDeDouble del Módulo de clase clsCSQL."},
        [&](std::wstring& result) { convert_to_cents(Variant(Numero), result); });
}

void clsCSQL::convert_to_cents(const Variant& number, std::wstring& result) {
    if (number.is_numeric()) {
        result = sql_number(general_.redondeoa2(Variant(number.to_double())), 2);
    } else {
        show(sql_needs_a_number(app_origen()));
    }
}

std::wstring clsCSQL::Conv_Double4(const Variant& Numero) {
    return guarded<std::wstring>({L") en procedimiento Conv_Double4 del Módulo de clase clsCSQL."},
                                 [&](std::wstring& result) {
                                     if (Numero.is_numeric()) {
                                         result = sql_number(
                                             general_.redondeoa4(Variant(Numero.to_double())), 4);
                                     } else {
                                         show(sql_needs_a_number(std::nullopt));
                                     }
                                 });
}

std::wstring clsCSQL::Conv_Date(const std::wstring& Fecha) {
    const auto date = SystemRegional().date(Fecha);
    return date ? literal_of_day(*date) : sql_date(Fecha);
}

std::wstring clsCSQL::Conv_Date_Date(const Date& Fecha) {
    return literal_of_day(Fecha.days);
}

std::int16_t clsCSQL::Conv_Boolean(const bool& BooDato) {
    return sql_boolean(BooDato);
}

std::wstring clsCSQL::Conv_String(const std::wstring& StrCadena) {
    return sql_string(StrCadena);
}

}  // namespace kovrel
