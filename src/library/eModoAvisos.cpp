#include "library/eModoAvisos.h"

namespace kovrel {
namespace {

constexpr EnumInfo::Value modes[]{
    {L"maMostrar", static_cast<std::int32_t>(eModoAvisos::maMostrar),
     L"Todo se muestra como siempre y queda anotado."},
    {L"maSilencio", static_cast<std::int32_t>(eModoAvisos::maSilencio),
     L"No se muestra nada; todo queda anotado."},
    {L"maEvento", static_cast<std::int32_t>(eModoAvisos::maEvento),
     L"Solo se produce el evento: no se anota nada, y se muestra solo lo que este diga."},
};

}  // namespace

constinit const EnumInfo eModoAvisos_info{
    .name = L"eModoAvisos",
    .help = L"Qué hace la biblioteca con lo que tiene que decir.",
    .id = {0x4a409288, 0x25b3, 0x47f0, {0x89, 0xb3, 0x41, 0xeb, 0xa9, 0x57, 0x41, 0x4d}},
    .values = modes,
};

}  // namespace kovrel
