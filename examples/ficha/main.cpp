// A customer form over the library, as an application has it:
//
//     ficha.exe [FOLDER [CONNECTION]]
//
// FOLDER is where exports go, the user's documents by default. CONNECTION is an ODBC connection
// text of the database that keeps the customers: by default clientes.db in FOLDER, where the driver
// "SQLite3 ODBC Driver" is installed. Without a driver the form holds one customer in memory.
#include <windows.h>
#include <ole2.h>
#include <shlobj.h>

#include <array>
#include <filesystem>
#include <optional>
#include <shellapi.h>
#include <string>

#include "customer_form.h"
#include "customer_store.h"

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

/// What the program is started with.
struct Places {
    std::filesystem::path folder;
    std::wstring connection;
};

Places given_places() {
    int count = 0;
    LPWSTR* const words = CommandLineToArgvW(GetCommandLineW(), &count);
    Places places;
    if (count > 1) places.folder = words[1];
    if (count > 2) places.connection = words[2];
    LocalFree(words);
    if (places.folder.empty()) {
        std::array<wchar_t, MAX_PATH> documents{};
        SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, documents.data());
        places.folder = std::filesystem::path(documents.data()) / L"Ficha de cliente";
    }
    std::error_code ignored;  // a folder that is missing is told when it is written to
    std::filesystem::create_directories(places.folder, ignored);
    if (places.connection.empty()) {
        places.connection = L"DRIVER={SQLite3 ODBC Driver};Timeout=2000;Database=" +
                            (places.folder / L"clientes.db").wstring();
    }
    return places;
}

/// None where there is no driver of that name. What else is wrong with the database is a failure:
/// the user must not take an empty form for the customers.
std::optional<ficha::CustomerStore> open_customers(const std::wstring& connection) {
    try {
        return std::optional<ficha::CustomerStore>(std::in_place, connection);
    } catch (const ficha::DatabaseFailure& failure) {
        const bool no_driver =
            failure.state == L"IM002" || failure.state == L"IM003" || failure.state == L"01000";
        if (!no_driver) throw;
        return std::nullopt;
    }
}

/// Where the customers are.
std::wstring form_title(const std::optional<ficha::CustomerStore>& customers,
                        const std::wstring& connection) {
    if (!customers) return L"Ficha de cliente (solo en memoria)";
    const std::wstring name = L"Database=";
    const std::size_t place = connection.find(name);
    const std::wstring file =
        place == std::wstring::npos ? connection : connection.substr(place + name.size());
    return L"Ficha de cliente (" + file.substr(0, file.find(L';')) + L")";
}

int show_form() {
    try {
        const ficha::Library library;
        const Places places = given_places();
        const std::optional<ficha::CustomerStore> customers = open_customers(places.connection);
        ficha::CustomerForm(library, places.folder, customers ? &*customers : nullptr,
                            form_title(customers, places.connection))
            .run();
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
