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

    void DeleteSetting(std::wstring sIniFile, std::wstring sSection, std::wstring sKey);
    void SplitPath(std::wstring sTodo, std::wstring& sPath, Variant& vNombre, Variant& vExt);
    std::wstring QuitarCaracterEx(std::wstring sValor, std::wstring sCaracter, Variant sPoner);
    bool ShowOpen(Variant vFileName, Variant vTitle, Variant vFilter, const Variant& vFlags,
                  Variant vhWnd);
    void set_Action(const std::int16_t& value);
    void set_Filter(std::wstring value);
    std::wstring LeerIni(std::wstring lpFileName, std::wstring lpAppName, std::wstring lpKeyName,
                         Variant vDefault);
    std::wstring GetSetting(std::wstring lpFileName, std::wstring lpAppName, std::wstring lpKeyName,
                            Variant vDefault);
    void GuardarIni(std::wstring lpFileName, std::wstring lpAppName, std::wstring lpKeyName,
                    std::wstring lpString);
    void SaveSetting(std::wstring lpFileName, std::wstring lpAppName, std::wstring lpKeyName,
                     std::wstring lpString);
    std::wstring AddBackSlash(std::wstring sPath);
    std::wstring QuitarBackSlash(std::wstring sPath);

 private:
    std::wstring system_filter_;  ///< in the dialog's NUL-separated form; empty: all files
};

}  // namespace kovrel
