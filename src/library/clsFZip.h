// Zip archives.
#pragma once

#include <cstdint>
#include <string>

#include "automation/class_info.h"
#include "automation/native_type.h"
#include "library/ZIPnames.h"
#include "library/app_origin.h"

namespace kovrel {

class clsFZip : public AppOrigen {
 public:
    static const ClassInfo class_info;

    std::wstring GenerarZip(const std::wstring& strNombreFicheroZip,
                            const std::wstring& strRutaSalida, const ZIPnames& NombresFicheros1);
};

}  // namespace kovrel
