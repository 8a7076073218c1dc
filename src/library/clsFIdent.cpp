#include "library/clsFIdent.h"

#include "automation/declare.h"
#include "library/library.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsFIdent",
    {0x328a1318, 0xf220, 0x4088, {0x8d, 0xef, 0xa3, 0x95, 0xb7, 0x57, 0x0b, 0x3e}},
    {0xef319d18, 0xf5a7, 0x4248, {0xa4, 0xb1, 0x87, 0xe4, 0x3c, 0x48, 0x04, 0xf8}},
};

constexpr auto declared =
    declare<clsFIdent>(identity,
                       L"Identificadores fiscales, bancarios y administrativos: los comprueba, "
                       L"corrige y da formato sin mostrar mensajes.")
        .method<&clsFIdent::Comprueba>(
            L"Comprueba", {L"Tipo", L"Texto", optional(L"Motivo")},
            L"Si el texto es un identificador correcto de ese tipo; Motivo dice por qué no.")
        .method<&clsFIdent::MotivoDe>(L"MotivoDe", {L"Tipo", L"Texto"},
                                      L"Motivo por el que el texto no es correcto; 0 si lo es.")
        .method<&clsFIdent::TextoMotivo>(L"TextoMotivo", {L"Motivo"}, L"El motivo, en palabras.")
        .method<&clsFIdent::TipoDe>(L"TipoDe", {L"Texto"},
                                    L"Qué identificador es el texto; 0 si no es ninguno.")
        .method<&clsFIdent::TextoTipo>(L"TextoTipo", {L"Tipo"},
                                       L"Nombre de un tipo de identificador.")
        .method<&clsFIdent::Normaliza>(L"Normaliza", {L"Tipo", L"Texto"},
                                       L"El texto como se guarda: en mayúsculas y sin separadores.")
        .method<&clsFIdent::Formatea>(L"Formatea", {L"Tipo", L"Texto"},
                                      L"El texto como se lee: en grupos.")
        .method<&clsFIdent::Corrige>(
            L"Corrige", {L"Tipo", L"Texto"},
            L"El texto con su control completado o corregido; vacío si no puede saberse.")
        .method<&clsFIdent::Titular>(L"Titular", {L"Nif"},
                                     L"Clase de titular de un NIF; vacío si no es correcto.")
        .method<&clsFIdent::CCCaIBAN>(L"CCCaIBAN", {L"CCC"},
                                      L"IBAN de una cuenta española; vacío si es incorrecta.")
        .method<&clsFIdent::IBANaCCC>(L"IBANaCCC", {L"IBAN"},
                                      L"Cuenta de un IBAN español; vacío si no es correcto.")
        .method<&clsFIdent::CompruebaLista>(
            L"CompruebaLista", {L"Tipo", L"Lista", optional(L"Columna", 0), optional(L"Progreso")},
            L"Motivos de cada texto de una matriz, o de una columna de las filas de GetRows.")
        .method<&clsFIdent::CompruebaRecordset>(
            L"CompruebaRecordset",
            {L"Tipo", L"rsRecordset", L"Campo", optional(L"Posiciones"), optional(L"Progreso")},
            L"Número de registros cuyo campo es incorrecto; Posiciones dice cuáles son.");

}  // namespace

constinit const ClassInfo clsFIdent::class_info = class_tables<declared>;

}  // namespace kovrel
