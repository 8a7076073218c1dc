// clsProfile: folders, path texts and INI values.
#include "files/Prof.h"
#include "files/folder_notices.h"
#include "files/ini_file.h"
#include "files/path_text.h"
#include "library/clsProfile.h"
#include "services/file_system.h"
#include "services/guarded.h"
#include "services/message_box.h"
#include "services/text_encoding.h"

namespace kovrel {
namespace {

bool folder_exists(const std::wstring& path) {
    return !first_listed(path, Listing::files_and_folders).empty();
}

}  // namespace

std::wstring clsProfile::BrowseForFolder(std::int32_t hWndOwner, std::wstring_view sPrompt,
                                         const std::wstring& sInitDir) {
    return guarded<std::wstring>(
        {L") en procedimiento BrowseForFolder del Módulo de clase clsProfile."},
        [&](std::wstring& result) {
            result = Prof::browse_for_folder(hWndOwner, sPrompt, sInitDir);
        });
}

std::wstring clsProfile::LeerIni(std::wstring& lpFileName, std::wstring& lpAppName,
                                 std::wstring& lpKeyName, const Variant& vDefault) {
    return guarded<std::wstring>(
        {L") en procedimiento LeerIni del Módulo clsProfile."}, [&](std::wstring& result) {
            const std::wstring default_text =
                vDefault.is_missing() ? std::wstring() : vDefault.to_text();
            const std::string file = to_ansi(lpFileName);
            const std::string section = to_ansi(lpAppName);
            const std::string key = to_ansi(lpKeyName);
            result = read_ini_value(file, section, key, default_text);
            lpFileName = from_ansi(file);
            lpAppName = from_ansi(section);
            lpKeyName = from_ansi(key);
        });
}

void clsProfile::GuardarIni(std::wstring& lpFileName, std::wstring& lpAppName,
                            std::wstring& lpKeyName, std::wstring& lpString) {
    guarded({L") en procedimiento GuardarIni del Módulo de clase clsProfile."}, [&] {
        const std::string file = to_ansi(lpFileName);
        const std::string section = to_ansi(lpAppName);
        const std::string key = to_ansi(lpKeyName);
        const std::string value = to_ansi(lpString);
        write_ini(file, section, key.c_str(), value.c_str());
        lpFileName = from_ansi(file);
        lpAppName = from_ansi(section);
        lpKeyName = from_ansi(key);
        lpString = from_ansi(value);
    });
}

std::wstring clsProfile::AñadirBackSlash(std::wstring_view sPath) {
    return guarded<std::wstring>(
        {L") en procedimiento AñadirBackSlash del Módulo de clase clsProfile."},
        [&](std::wstring& result) { result = add_backslash(sPath); });
}

std::wstring clsProfile::QuitarBackSlash(std::wstring_view sPath) {
    return guarded<std::wstring>(
        {L") en procedimiento QuitarBackSlash del Módulo de clase clsProfile."},
        [&](std::wstring& result) { result = remove_backslash(sPath); });
}

std::wstring clsProfile::RutadeArchivo(const std::wstring& PathFile) {
    return guarded<std::wstring>(
        {L") en procedimiento RutadeArchivo del Módulo de clase clsProfile."},
        [&](std::wstring& result) {
            result = folder_of_listed(PathFile, first_listed(PathFile, Listing::files).size());
        });
}

bool clsProfile::ExisteCarpeta(const std::wstring& strPath, const bool& boCreaCarpeta,
                               const bool& boMensaje) {
    return guarded<bool>(
        {L") en procedimiento ExisteCarpeta del Formulario frmOptions."}, [&](bool& exists) {
            exists = folder_exists(strPath);
            if (exists || !boCreaCarpeta) return;
            if (boMensaje && show(ask_to_create_folder(app_origen(), strPath)) != IDOK) return;
            create_folder(strPath);
            exists = folder_exists(strPath);
            if (!boMensaje) return;
            show(exists ? folder_created(app_origen()) : folder_not_created(app_origen()));
        });
}

}  // namespace kovrel
