// clsFZip: archives of lists of files.
#include "frame/guarded.h"
#include "zip/FZip.h"
#include "zip/clsFZip.h"

namespace kovrel {

std::wstring clsFZip::GenerarZip(const std::wstring& strNombreFicheroZip,
                                 const std::wstring& strRutaSalida,
                                 const ZIPnames& NombresFicheros1) {
    return guarded<std::wstring>({L") en procedimiento GenerarZip del Módulo de clase clsFZip."},
                                 [&](std::wstring& result) {
                                     result = FZip::GenerarZipA(strNombreFicheroZip, strRutaSalida,
                                                                NombresFicheros1, app_origen());
                                 });
}

}  // namespace kovrel
