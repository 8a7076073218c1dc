// Folders and INI files of a settings screen.
#pragma once

#include <cstdint>
#include <string>

#include "automation/class_info.h"
#include "automation/variant.h"
#include "library/app_origin.h"

namespace kovrel {

class clsProfile : public AppOrigen {
 public:
    static const ClassInfo class_info;

    std::wstring BrowseForFolder(std::int32_t hWndOwner, std::wstring_view sPrompt,
                                 const std::wstring& sInitDir);
    std::wstring LeerIni(std::wstring& lpFileName, std::wstring& lpAppName, std::wstring& lpKeyName,
                         const Variant& vDefault);
    void GuardarIni(std::wstring& lpFileName, std::wstring& lpAppName, std::wstring& lpKeyName,
                    std::wstring& lpString);
    std::wstring AñadirBackSlash(std::wstring_view sPath);
    std::wstring QuitarBackSlash(std::wstring_view sPath);
    std::wstring RutadeArchivo(const std::wstring& PathFile);
    bool ExisteCarpeta(const std::wstring& strPath, const bool& boCreaCarpeta,
                       const bool& boMensaje);
};

}  // namespace kovrel
