#include "library/clsCSQL.h"

#include "automation/declare.h"
#include "library/library.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsCSQL",
    {0x5c64153b, 0x570a, 0x410c, {0x97, 0x82, 0xe2, 0x29, 0x03, 0x40, 0xe2, 0x81}},
    {0x3595bc35, 0x8bdf, 0x4492, {0xb4, 0x3a, 0x59, 0x53, 0x00, 0x8e, 0xe0, 0xcf}},
};

constexpr auto declared =
    declare<clsCSQL>(identity, L"Literales de SQL a partir de números, fechas, booleanos y textos.")
        .property<&clsCSQL::get_AppOrigen, &clsCSQL::set_AppOrigen>(
            L"AppOrigen",
            L"Nombre de la aplicación anfitriona; titula los mensajes que lo indican.")
        .method<&clsCSQL::Conv_Double>(L"Conv_Double", {L"Numero"},
                                       L"Número con dos decimales y punto decimal.")
        .method<&clsCSQL::Conv_DoubleDeDouble>(L"Conv_DoubleDeDouble", {L"Numero"},
                                               L"Número con dos decimales y punto decimal.")
        .method<&clsCSQL::Conv_Double4>(L"Conv_Double4", {L"Numero"},
                                        L"Número con cuatro decimales y punto decimal.")
        .method<&clsCSQL::Conv_Date>(L"Conv_Date", {L"Fecha"},
                                     L"Texto de fecha entre \"#\", en el orden mes, día y año.")
        .method<&clsCSQL::Conv_Date_Date>(L"Conv_Date_Date", {L"Fecha"},
                                          L"Fecha entre \"#\", en el orden mes, día y año.")
        .method<&clsCSQL::Conv_Boolean>(L"Conv_Boolean", {L"BooDato"},
                                        L"-1 para verdadero y 0 para falso.")
        .method<&clsCSQL::Conv_String>(L"Conv_String", {L"StrCadena"},
                                       L"Texto entre comillas simples, tal como se recibe.");

}  // namespace

constinit const ClassInfo clsCSQL::class_info = class_tables<declared>;

}  // namespace kovrel
