#include "library/eModoArchivo.h"

namespace kovrel {
namespace {

constexpr EnumInfo::Value pack_modes[]{
    {L"arNuevo", static_cast<std::int32_t>(eModoArchivo::arNuevo),
     L"Se crea de nuevo; el anterior se reemplaza cuando el nuevo está completo."},
    {L"arAnade", static_cast<std::int32_t>(eModoArchivo::arAnade),
     L"Se añaden todos los ficheros y se reemplazan los del mismo nombre."},
    {L"arActualiza", static_cast<std::int32_t>(eModoArchivo::arActualiza),
     L"Se añaden los ficheros nuevos y los más recientes que los guardados."},
    {L"arRefresca", static_cast<std::int32_t>(eModoArchivo::arRefresca),
     L"Solo se reemplazan los guardados que son más antiguos."},
};

}  // namespace

constinit const EnumInfo eModoArchivo_info{
    .name = L"eModoArchivo",
    .help = L"Qué se hace con un archivo que ya existe al comprimir.",
    .id = {0xdb2bb768, 0xd570, 0x47e7, {0x8f, 0xa3, 0x38, 0xe0, 0x4a, 0x4a, 0xeb, 0x06}},
    .values = pack_modes,
};

}  // namespace kovrel
