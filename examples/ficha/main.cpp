// A customer form over the library, as an application has it:
//
//     ficha.exe [FOLDER]
//
// FOLDER is where exports go, the user's documents by default.
#include <windows.h>
#include <ole2.h>
#include <shlobj.h>

#include <array>
#include <filesystem>
#include <shellapi.h>

#include "customer_form.h"

namespace {

#ifdef _WIN64
constexpr const wchar_t* not_registered =
    L"Kovrel no está registrada en este equipo para programas de 64 bits.\r\r"
    L"Regístrela con «regsvr32 kovrel.dll» (la de 64 bits) y vuelva a abrir la ficha.";
#else
constexpr const wchar_t* not_registered =
    L"Kovrel no está registrada en este equipo para programas de 32 bits.\r\r"
    L"Regístrela con «regsvr32 kovrel.dll» (la de 32 bits) y vuelva a abrir la ficha.";
#endif
constexpr const wchar_t* no_database =
    L"Este equipo no tiene ADO (ADODB.Recordset), que la ficha necesita para sus datos.";

int tell(const wchar_t* problem) {
    MessageBoxW(nullptr, problem, L"Ficha de cliente", MB_ICONERROR | MB_SETFOREGROUND);
    return 1;
}

std::filesystem::path export_folder() {
    int count = 0;
    LPWSTR* const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::filesystem::path folder;
    if (count > 1) folder = words[1];
    LocalFree(words);
    if (folder.empty()) {
        std::array<wchar_t, MAX_PATH> documents{};
        SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, documents.data());
        folder = std::filesystem::path(documents.data()) / L"Ficha de cliente";
    }
    return folder;
}

int show_form() {
    try {
        const ficha::Library library;
        ficha::CustomerForm(library, export_folder()).run();
        return 0;
    } catch (const ficha::NotRegistered&) {
        return tell(not_registered);
    } catch (const ficha::NoDatabase&) {
        return tell(no_database);
    } catch (const ficha::Failure& failure) {
        return tell(failure.description.c_str());
    }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE /*module*/, HINSTANCE /*previous*/, wchar_t* /*line*/, int /*show*/) {
    OleInitialize(nullptr);
    const int result = show_form();
    OleUninitialize();
    return result;
}
