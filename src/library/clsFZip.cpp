#include "library/clsFZip.h"

#include "automation/declare.h"
#include "library/library.h"
#include "services/guarded.h"
#include "zip/FZip.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsFZip",
    {0x4fea3aac, 0x49bb, 0x4527, {0x87, 0x8a, 0xaf, 0x26, 0x28, 0x36, 0x4a, 0x4d}},
    {0x45411d2b, 0x08df, 0x4228, {0x86, 0x72, 0x0c, 0x96, 0x7e, 0xd8, 0x04, 0x3a}},
};

constexpr auto declared =
    declare<clsFZip>(identity, L"Archivos comprimidos zip.")
        .property<&clsFZip::get_AppOrigen, &clsFZip::set_AppOrigen>(
            L"AppOrigen",
            L"Nombre de la aplicación anfitriona; titula los mensajes que lo indican.")
        .method<&clsFZip::GenerarZip>(
            L"GenerarZip", {L"strNombreFicheroZip", L"strRutaSalida", L"NombresFicheros1"},
            L"Comprime una lista de archivos en un zip; ruta del zip, o vacío si no se hizo.");

}  // namespace

constinit const ClassInfo clsFZip::class_info = class_tables<declared>;

std::wstring clsFZip::GenerarZip(const std::wstring& strNombreFicheroZip,
                                 const std::wstring& strRutaSalida,
                                 const ZIPnames& NombresFicheros1) {
    return guarded<std::wstring>(
        {L") en procedimiento GenerarZip del Módulo de clase clsFZip."}, [&](std::wstring& result) {
            result = FZip::GenerarZipA(strNombreFicheroZip, strRutaSalida, NombresFicheros1.texts,
                                       app_origen());
        });
}

}  // namespace kovrel
