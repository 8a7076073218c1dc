#include "library/clsADODBServices.h"

#include "automation/declare.h"
#include "library/library.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsADODBServices",
    {0x26f03347, 0x4c52, 0x4c18, {0xa8, 0x55, 0x22, 0x14, 0xe9, 0x16, 0x67, 0x2a}},
    {0x96a96848, 0x4a30, 0x4387, {0xb1, 0x01, 0xf9, 0x5a, 0x0c, 0xe7, 0xf2, 0x7a}},
};

constexpr auto declared =
    declare<clsADODBServices>(identity,
                              L"Imágenes y archivos en campos binarios de un Recordset de ADO.",
                              Instancing::global)
        .property<&clsADODBServices::get_AppOrigen, &clsADODBServices::set_AppOrigen>(
            L"AppOrigen",
            L"Nombre de la aplicación anfitriona; titula los mensajes que lo indican.")
        .method<&clsADODBServices::PutImageInField>(L"PutImageInField", {L"f", L"File"},
                                                    L"Guarda un archivo entero en el campo.")
        .method<&clsADODBServices::GetImageFromField>(L"GetImageFromField", {L"f"},
                                                      L"Imagen guardada en el campo.")
        .method<&clsADODBServices::PutLargeImageInField>(
            L"PutLargeImageInField", {L"f", L"File"}, L"Guarda un archivo en el campo por trozos.")
        .method<&clsADODBServices::GetLargeImageFromField>(
            L"GetLargeImageFromField", {L"f"}, L"Imagen guardada en el campo, leída por trozos.")
        .method<&clsADODBServices::RecordLocation>(
            L"RecordLocation", {L"adoRs", optional(L"Title", L"")},
            L"Texto con la posición del registro y el número de registros.")
        .method<&clsADODBServices::PutPictureInField>(L"PutPictureInField", {L"f", L"pic"},
                                                      L"Guarda una imagen en el campo.");

}  // namespace

constinit const ClassInfo clsADODBServices::class_info = class_tables<declared>;

}  // namespace kovrel
