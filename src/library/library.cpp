#include "library/library.h"

#include "library/ZIPnames.h"
#include "library/cgsFileOpR.h"
#include "library/clsADODBServices.h"
#include "library/clsAviso.h"
#include "library/clsAvisos.h"
#include "library/clsCSQL.h"
#include "library/clsEntrada.h"
#include "library/clsEntradas.h"
#include "library/clsFArchivo.h"
#include "library/clsFFechas.h"
#include "library/clsFGen.h"
#include "library/clsFIdent.h"
#include "library/clsFSQL.h"
#include "library/clsFZip.h"
#include "library/clsMensajes.h"
#include "library/clsProfile.h"
#include "library/eClaseAviso.h"
#include "library/eDialecto.h"
#include "library/eEstadoEntrada.h"
#include "library/eExistentes.h"
#include "library/eIdentificador.h"
#include "library/eModoArchivo.h"
#include "library/eModoAvisos.h"
#include "library/eMotivo.h"
#include "library/eOFN.h"

namespace kovrel {
namespace {

constexpr GUID library_id{
    0x5f3d33d3, 0x6df8, 0x47bb, {0x97, 0x28, 0x0a, 0xa1, 0x84, 0x48, 0xb6, 0x4f}};

constexpr const ClassInfo* classes[]{
    &clsFFechas::class_info,  &clsADODBServices::class_info, &cgsFileOpR::class_info,
    &clsProfile::class_info,  &clsCSQL::class_info,          &clsFZip::class_info,
    &clsFGen::class_info,     &clsMensajes::class_info,      &clsAviso::class_info,
    &clsAvisos::class_info,   &clsFIdent::class_info,        &clsEntrada::class_info,
    &clsEntradas::class_info, &clsFArchivo::class_info,      &clsFSQL::class_info};
constexpr const EnumInfo* enumerations[]{
    &eOFN_info,           &eModoAvisos_info,    &eClaseAviso_info,
    &eIdentificador_info, &eMotivo_info,        &eModoArchivo_info,
    &eExistentes_info,    &eEstadoEntrada_info, &eDialecto_info};
constexpr const RecordInfo* records[]{&ZIPnames::info};

}  // namespace

constinit const LibraryInfo library{
    .name = library_name,
    .help = L"Kovrel: utilidades para aplicaciones de base de datos en español",
    .id = library_id,
    .major = KOVREL_VERSION_MAJOR,
    .minor = KOVREL_VERSION_MINOR,
    .classes = classes,
    .enumerations = enumerations,
    .records = records,
};

}  // namespace kovrel
