#include "frame/library.h"

#include "dates/clsFFechas.h"
#include "dbimages/clsADODBServices.h"
#include "files/cgsFileOpR.h"
#include "files/clsProfile.h"
#include "files/eOFN.h"
#include "frame/clsFGen.h"
#include "frame/version.h"
#include "messages/clsMensajes.h"
#include "numbers/clsCSQL.h"
#include "zip/ZIPnames.h"
#include "zip/clsFZip.h"

namespace kovrel {
namespace {

constexpr GUID library_id{
    0x5f3d33d3, 0x6df8, 0x47bb, {0x97, 0x28, 0x0a, 0xa1, 0x84, 0x48, 0xb6, 0x4f}};

constexpr const ClassInfo* classes[]{&clsFFechas::class_info, &clsADODBServices::class_info,
                                     &cgsFileOpR::class_info, &clsProfile::class_info,
                                     &clsCSQL::class_info,    &clsFZip::class_info,
                                     &clsFGen::class_info,    &clsMensajes::class_info};
constexpr const EnumInfo* enumerations[]{&enumeration_info(eOFN{})};
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
