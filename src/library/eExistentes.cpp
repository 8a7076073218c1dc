#include "library/eExistentes.h"

namespace kovrel {
namespace {

constexpr EnumInfo::Value policies[]{
    {L"exConserva", static_cast<std::int32_t>(eExistentes::exConserva), L"Se conserva."},
    {L"exReemplaza", static_cast<std::int32_t>(eExistentes::exReemplaza), L"Se reemplaza."},
    {L"exReemplazaAntiguo", static_cast<std::int32_t>(eExistentes::exReemplazaAntiguo),
     L"Se reemplaza si es más antiguo que el del archivo."},
    {L"exPregunta", static_cast<std::int32_t>(eExistentes::exPregunta), L"Se pregunta al usuario."},
};

}  // namespace

constinit const EnumInfo eExistentes_info{
    .name = L"eExistentes",
    .help = L"Qué se hace al extraer con un fichero que ya existe.",
    .id = {0xd1e966d9, 0xd0c4, 0x4c7d, {0x8d, 0x8f, 0x6a, 0x9c, 0x07, 0x72, 0xae, 0x63}},
    .values = policies,
};

}  // namespace kovrel
