// cgsFileOpR: INI files and path texts.
#include "files/ini_file.h"
#include "files/path_text.h"
#include "library/cgsFileOpR.h"
#include "services/guarded.h"
#include "services/text_encoding.h"

namespace kovrel {

std::wstring cgsFileOpR::GetSetting(std::wstring_view lpFileName, std::wstring_view lpAppName,
                                    std::wstring_view lpKeyName, Variant vDefault) {
    return guarded<std::wstring>(
        {L") en procedimiento GetSetting del Módulo de clase cgsFileOpR."},
        [&](std::wstring& result) {
            const std::wstring otherwise = vDefault.is_missing() ? L"" : vDefault.to_text();
            result = read_ini_value(to_ansi(lpFileName), to_ansi(lpAppName), to_ansi(lpKeyName),
                                    otherwise);
        });
}

std::wstring cgsFileOpR::LeerIni(std::wstring_view lpFileName, std::wstring_view lpAppName,
                                 std::wstring_view lpKeyName, Variant vDefault) {
    return GetSetting(lpFileName, lpAppName, lpKeyName, std::move(vDefault));
}

void cgsFileOpR::SaveSetting(std::wstring_view lpFileName, std::wstring_view lpAppName,
                             std::wstring_view lpKeyName, std::wstring_view lpString) {
    write_ini(to_ansi(lpFileName), to_ansi(lpAppName), to_ansi(lpKeyName).c_str(),
              to_ansi(lpString).c_str());
}

void cgsFileOpR::GuardarIni(std::wstring_view lpFileName, std::wstring_view lpAppName,
                            std::wstring_view lpKeyName, std::wstring_view lpString) {
    SaveSetting(lpFileName, lpAppName, lpKeyName, lpString);
}

void cgsFileOpR::DeleteSetting(std::wstring_view sIniFile, std::wstring_view sSection,
                               std::wstring_view sKey) {
    const std::string key = to_ansi(sKey);
    write_ini(to_ansi(sIniFile), to_ansi(sSection), sKey.empty() ? nullptr : key.c_str(), nullptr);
}

void cgsFileOpR::SplitPath(std::wstring_view sTodo, std::wstring& sPath, Variant& vNombre,
                           Variant& vExt) {
    PathParts parts = split_path(sTodo);
    if (!vNombre.is_missing()) vNombre = Variant(parts.name);
    if (!vExt.is_missing()) vExt = Variant(parts.extension);
    sPath = std::move(parts.folder);
}

std::wstring cgsFileOpR::QuitarCaracterEx(std::wstring_view sValor, std::wstring_view sCaracter,
                                          Variant sPoner) {
    return guarded<std::wstring>(
        {L") en procedimiento QuitarCaracterEx del Módulo de clase cgsFileOpR."},
        [&](std::wstring& result) {
            if (sPoner.is_missing() || sCaracter.empty()) {
                result = replace_text(sValor, sCaracter, std::nullopt);
            } else {
                const std::wstring replacement = sPoner.to_text();
                result = replace_text(sValor, sCaracter, replacement);
            }
        });
}

std::wstring cgsFileOpR::AddBackSlash(std::wstring_view sPath) {
    return guarded<std::wstring>(
        {L") en procedimiento AddBackSlash del Módulo de clase cgsFileOpR."},
        [&](std::wstring& result) { result = add_backslash(sPath); });
}

std::wstring cgsFileOpR::QuitarBackSlash(std::wstring_view sPath) {
    return guarded<std::wstring>(
        {L") en procedimiento QuitarBackSlash del Módulo de clase cgsFileOpR."},
        [&](std::wstring& result) { result = remove_backslash(sPath); });
}

}  // namespace kovrel
