#include "library/eMotivo.h"

namespace kovrel {
namespace {

constexpr EnumInfo::Value reasons[]{
    {L"moCorrecto", static_cast<std::int32_t>(eMotivo::moCorrecto), L"Es correcto."},
    {L"moVacio", static_cast<std::int32_t>(eMotivo::moVacio), L"Está vacío."},
    {L"moCaracteres", static_cast<std::int32_t>(eMotivo::moCaracteres),
     L"Tiene caracteres que no admite."},
    {L"moLongitud", static_cast<std::int32_t>(eMotivo::moLongitud),
     L"Le faltan o le sobran caracteres."},
    {L"moPrimeraLetra", static_cast<std::int32_t>(eMotivo::moPrimeraLetra),
     L"Empieza por una letra que no le corresponde."},
    {L"moControl", static_cast<std::int32_t>(eMotivo::moControl),
     L"El dígito o la letra de control no corresponde."},
    {L"moValor", static_cast<std::int32_t>(eMotivo::moValor), L"Contiene un valor imposible."},
    {L"moPais", static_cast<std::int32_t>(eMotivo::moPais), L"El país no figura en el registro."},
    {L"moCuenta", static_cast<std::int32_t>(eMotivo::moCuenta),
     L"La cuenta que contiene es incorrecta."},
};

}  // namespace

constinit const EnumInfo eMotivo_info{
    .name = L"eMotivo",
    .help = L"Motivo por el que un texto no es un identificador.",
    .id = {0xb5e887a1, 0x5f12, 0x4152, {0x86, 0xc9, 0x7e, 0x57, 0x89, 0x48, 0x77, 0x60}},
    .values = reasons,
};

}  // namespace kovrel
