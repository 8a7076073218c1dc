#include "library/eIdentificador.h"

namespace kovrel {
namespace {

constexpr EnumInfo::Value identifier_kinds[]{
    {L"idDesconocido", static_cast<std::int32_t>(eIdentificador::idDesconocido),
     L"Ninguno conocido."},
    {L"idNIF", static_cast<std::int32_t>(eIdentificador::idNIF), L"NIF de cualquier titular."},
    {L"idDNI", static_cast<std::int32_t>(eIdentificador::idDNI), L"DNI: ocho cifras y letra."},
    {L"idNIE", static_cast<std::int32_t>(eIdentificador::idNIE),
     L"NIE: X, Y o Z, siete cifras y letra."},
    {L"idNIFPersonal", static_cast<std::int32_t>(eIdentificador::idNIFPersonal),
     L"NIF de persona física sin DNI ni NIE: K, L o M, siete cifras y letra."},
    {L"idNIFEntidad", static_cast<std::int32_t>(eIdentificador::idNIFEntidad),
     L"NIF de una entidad: letra, siete cifras y control."},
    {L"idCCC", static_cast<std::int32_t>(eIdentificador::idCCC),
     L"Código de cuenta cliente: veinte cifras."},
    {L"idIBAN", static_cast<std::int32_t>(eIdentificador::idIBAN),
     L"IBAN de cualquier país del registro."},
    {L"idBIC", static_cast<std::int32_t>(eIdentificador::idBIC), L"BIC de una entidad financiera."},
    {L"idAcreedorSEPA", static_cast<std::int32_t>(eIdentificador::idAcreedorSEPA),
     L"Identificador de acreedor de adeudos SEPA."},
    {L"idIVA", static_cast<std::int32_t>(eIdentificador::idIVA), L"NIF-IVA español: ES y el NIF."},
    {L"idSeguridadSocial", static_cast<std::int32_t>(eIdentificador::idSeguridadSocial),
     L"Número de la Seguridad Social: doce cifras."},
    {L"idCuentaCotizacion", static_cast<std::int32_t>(eIdentificador::idCuentaCotizacion),
     L"Código de cuenta de cotización: once cifras."},
    {L"idCodigoPostal", static_cast<std::int32_t>(eIdentificador::idCodigoPostal),
     L"Código postal español."},
    {L"idCUPS", static_cast<std::int32_t>(eIdentificador::idCUPS),
     L"CUPS de un punto de suministro de luz o gas."},
    {L"idReferenciaCatastral", static_cast<std::int32_t>(eIdentificador::idReferenciaCatastral),
     L"Referencia catastral: veinte caracteres."},
    {L"idTarjeta", static_cast<std::int32_t>(eIdentificador::idTarjeta),
     L"Número de tarjeta de pago."},
    {L"idEAN13", static_cast<std::int32_t>(eIdentificador::idEAN13), L"Código de artículo EAN-13."},
};

}  // namespace

constinit const EnumInfo eIdentificador_info{
    .name = L"eIdentificador",
    .help = L"Clase de identificador.",
    .id = {0x11aa0540, 0x005e, 0x4cbd, {0x9b, 0x69, 0xa3, 0x6f, 0x61, 0xad, 0xe2, 0x6b}},
    .values = identifier_kinds,
};

}  // namespace kovrel
