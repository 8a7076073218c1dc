// INI files, path texts and the open-file dialog.
#pragma once

#include <cstdint>
#include <string>

#include "automation/class_info.h"
#include "automation/native_type.h"
#include "library/eOFN.h"

namespace kovrel {

class cgsFileOpR {
 public:
    static const ClassInfo class_info;

    std::int32_t hWnd{};
    std::wstring DialogTitle{};
    bool CancelError{};
    eOFN Flags{};
    std::wstring DefaultExt{};
    std::wstring FileName{};
    std::wstring FileTitle{};
    std::int32_t FilterIndex{};
    std::wstring InitDir{};

    void DeleteSetting(std::wstring_view sIniFile, std::wstring_view sSection,
                       std::wstring_view sKey);
    void SplitPath(std::wstring_view sTodo, std::wstring& sPath, Variant& vNombre, Variant& vExt);
    std::wstring QuitarCaracterEx(std::wstring_view sValor, std::wstring_view sCaracter,
                                  Variant sPoner);
    bool ShowOpen(Variant vFileName, Variant vTitle, Variant vFilter, const Variant& vFlags,
                  Variant vhWnd);
    void set_Action(const std::int16_t& value);
    void set_Filter(std::wstring_view value);
    std::wstring LeerIni(std::wstring_view lpFileName, std::wstring_view lpAppName,
                         std::wstring_view lpKeyName, Variant vDefault);
    std::wstring GetSetting(std::wstring_view lpFileName, std::wstring_view lpAppName,
                            std::wstring_view lpKeyName, Variant vDefault);
    void GuardarIni(std::wstring_view lpFileName, std::wstring_view lpAppName,
                    std::wstring_view lpKeyName, std::wstring_view lpString);
    void SaveSetting(std::wstring_view lpFileName, std::wstring_view lpAppName,
                     std::wstring_view lpKeyName, std::wstring_view lpString);
    std::wstring AddBackSlash(std::wstring_view sPath);
    std::wstring QuitarBackSlash(std::wstring_view sPath);

 private:
    std::wstring system_filter_;  ///< in the dialog's NUL-separated form; empty: all files
};

}  // namespace kovrel
