#include "library/clsFSQL.h"

#include "automation/declare.h"
#include "library/library.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsFSQL",
    {0x2bd6b4f7, 0x4088, 0x4b2c, {0xbb, 0x19, 0x63, 0x00, 0xdf, 0xd3, 0xbe, 0xc1}},
    {0xab27cbab, 0x86c7, 0x4328, {0xad, 0x9e, 0x6d, 0xbd, 0xa6, 0x56, 0x48, 0xe1}},
};

constexpr auto declared =
    declare<clsFSQL>(identity,
                     L"Literales, nombres y patrones de SQL para Access, SQL Server, PostgreSQL, "
                     L"MySQL, MariaDB, SQLite y Oracle.")
        .property<&clsFSQL::get_AppOrigen, &clsFSQL::set_AppOrigen>(
            L"AppOrigen", L"Nombre de la aplicación anfitriona.")
        .property<&clsFSQL::get_Dialecto, &clsFSQL::set_Dialecto>(
            L"Dialecto", L"Base de datos para la que se escribe; Access al principio.")
        .method<&clsFSQL::Valor>(L"Valor", {L"Valor"}, L"Literal de un valor, según su tipo.")
        .method<&clsFSQL::Texto>(L"Texto", {L"Texto"}, L"Literal de un texto.")
        .method<&clsFSQL::Numero>(L"Numero", {L"Numero"},
                                  L"Literal de un número, con todas sus cifras.")
        .method<&clsFSQL::Fecha>(L"Fecha", {L"Fecha"}, L"Literal de una fecha, sin su hora.")
        .method<&clsFSQL::FechaHora>(L"FechaHora", {L"Fecha"}, L"Literal de una fecha con su hora.")
        .method<&clsFSQL::Booleano>(L"Booleano", {L"Booleano"}, L"Literal de un booleano.")
        .method<&clsFSQL::Bytes>(L"Bytes", {L"Bytes"}, L"Literal de una matriz de bytes.")
        .method<&clsFSQL::Lista>(L"Lista", {L"Lista"},
                                 L"Literales de una matriz entre paréntesis, para IN.")
        .method<&clsFSQL::Nombre>(L"Nombre", {L"Nombre"},
                                  L"Nombre de tabla o de campo, entre sus delimitadores.")
        .method<&clsFSQL::Patron>(
            L"Patron", {L"Texto"},
            L"El texto, para ponerlo en un patrón de Como sin que nada en él sea un comodín.")
        .method<&clsFSQL::Como>(L"Como", {L"Patron"},
                                L"Operador LIKE con un patrón cuyos comodines son % y _.");

}  // namespace

constinit const ClassInfo clsFSQL::class_info = class_tables<declared>;

}  // namespace kovrel
