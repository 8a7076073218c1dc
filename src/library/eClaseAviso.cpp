#include "library/eClaseAviso.h"

namespace kovrel {
namespace {

constexpr EnumInfo::Value kinds[]{
    {L"caMensaje", static_cast<std::int32_t>(eClaseAviso::caMensaje), L"Un mensaje."},
    {L"caError", static_cast<std::int32_t>(eClaseAviso::caError),
     L"El mensaje de un error, con su número."},
    {L"caPregunta", static_cast<std::int32_t>(eClaseAviso::caPregunta),
     L"Una pregunta con dos botones."},
    {L"caProgreso", static_cast<std::int32_t>(eClaseAviso::caProgreso),
     L"El progreso de un proceso."},
    {L"caVentana", static_cast<std::int32_t>(eClaseAviso::caVentana),
     L"Una ventana o un diálogo que pide algo."},
};

}  // namespace

constinit const EnumInfo eClaseAviso_info{
    .name = L"eClaseAviso",
    .help = L"Clase de un aviso.",
    .id = {0xb9b26a1e, 0xc299, 0x44a4, {0xa2, 0xbe, 0x8a, 0x1e, 0x5c, 0x6b, 0x14, 0xe0}},
    .values = kinds,
};

}  // namespace kovrel
