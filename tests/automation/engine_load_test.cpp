// What the library loads and when, and that memory and handles do not grow when it is loaded and
// its instances are made thousands of times.
#include <windows.h>
#include <psapi.h>

#include <filesystem>
#include <gmock/gmock.h>

#include "services/dynamic_library.h"
#include "tests/support/late.h"
#include "tests/support/library_module.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {
namespace {

constexpr const wchar_t* library_path = KOVREL_LIBRARY;
constexpr int load_rounds = 3'000;

DWORD handles() {
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count;
}

SIZE_T private_bytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage;
}

// The first test: a library that has been used pins itself.
TEST(ALoadedLibrary, CanBeLoadedAndUnloadedOverAndOver) {
    for (int round = 0; round < load_rounds; ++round) {
        const HMODULE module = LoadLibraryW(library_path);
        ASSERT_NE(module, nullptr) << "round " << round;
        ASSERT_EQ(can_unload(module), S_OK);
        ASSERT_NE(FreeLibrary(module), FALSE);
    }
    // The 32-bit library pins itself when it is loaded.
    constexpr bool is_64_bit = sizeof(void*) == 8;
    EXPECT_EQ(GetModuleHandleW(L"kovrel.dll") == nullptr, is_64_bit);
}

std::vector<std::wstring> loaded_of(std::initializer_list<const wchar_t*> dlls) {
    std::vector<std::wstring> loaded;
    for (const wchar_t* dll : dlls) {
        if (GetModuleHandleW(dll) != nullptr) loaded.emplace_back(dll);
    }
    return loaded;
}

TEST(AUsedLibrary, LoadsNoDllsOfWindowsAndDialogsForAnAnswer) {
    const auto slow = {L"comctl32.dll", L"comdlg32.dll", L"shell32.dll"};
    ASSERT_THAT(loaded_of(slow), testing::IsEmpty()) << "of the test program itself";
    const auto dates = create(L"Kovrel.clsFFechas");
    EXPECT_TRUE(call(dates.get(), L"EsBisiesto", {2024}).value.to_bool());
    EXPECT_THAT(loaded_of(slow), testing::IsEmpty());
    const auto files = create(L"Kovrel.cgsFileOpR");
    EXPECT_EQ(text_of_result(call(files.get(), L"AddBackSlash", {L"C:\\Datos"})), L"C:\\Datos\\");
    EXPECT_THAT(loaded_of(slow), testing::IsEmpty());
}

FailureNumber refusal(const wchar_t* dll, const char* function) {
    try {
        (void)system_entry_point(dll, function);
    } catch (const Failure& failure) {
        EXPECT_NE(failure.description().find(dll), std::wstring_view::npos);
        return static_cast<FailureNumber>(failure.number());
    }
    return {};
}

TEST(ASystemFunction, ComesFromTheFolderOfTheSystemOnly) {
    const TestFolder folder;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::copy_file(std::filesystem::path(library_path).replace_filename(L"zip32.dll"),
                               folder / L"planted.dll");
    std::filesystem::current_path(folder.path());
    EXPECT_EQ(refusal(L"planted.dll", "ZpInit"), FailureNumber::dll_load);
    // Where a DLL is looked for by default.
    HMODULE const planted = LoadLibraryW(L"planted.dll");
    EXPECT_NE(planted, nullptr);
    FreeLibrary(planted);
    std::filesystem::current_path(before);
    EXPECT_NE(system_entry_point(L"version.dll", "GetFileVersionInfoW"), nullptr);
    EXPECT_EQ(refusal(L"version.dll", "NoExiste"), FailureNumber::dll_function_not_found);
}

TEST(AUsedLibrary, SurvivesUnloadingAfterExceptions) {
    CLSID class_id{};
    ASSERT_EQ(CLSIDFromProgID(L"Kovrel.clsFFechas", &class_id), S_OK);
    const DWORD handles_before = handles();
    for (int round = 0; round < load_rounds; ++round) {
        const HMODULE module = LoadLibraryW(library_path);
        ASSERT_NE(module, nullptr) << "round " << round;
        {
            const ComPtr<IDispatch> dates = create_from(module, class_id);
            ASSERT_TRUE(dates);
            // Month -1 throws inside the library.
            ASSERT_EQ(call(dates.get(), L"primerdia_mesanterior", {0, 2024}).error,
                      static_cast<HRESULT>(0x800A000D));
        }
        ASSERT_EQ(can_unload(module), S_OK);
        FreeLibrary(module);
    }
    EXPECT_LE(handles(), handles_before + 20);
}

TEST(AUsedLibrary, LeaksNothingInAHundredThousandCalls) {
    const auto round = [] {
        const auto general = create(L"Kovrel.clsFGen");
        Variant variable(L"12.345.678-Z");
        call(general.get(), L"QuitaCaracteresyEspacios", {LateArgument::variable(variable)});
        EXPECT_EQ(text_of_result(call(general.get(), L"Verifica_NIF", {variable, false})),
                  L"12345678Z");
        put(general.get(), L"AppOrigen", Variant(L"Un nombre largo de aplicación"));
    };
    constexpr int warm_up = 1'000;
    constexpr int rounds = 25'000;  // four calls each
    for (int index = 0; index < warm_up; ++index) round();
    const DWORD handles_before = handles();
    const SIZE_T bytes_before = private_bytes();
    for (int index = 0; index < rounds; ++index) round();
    EXPECT_LE(handles(), handles_before);
    constexpr SIZE_T slack =
        SIZE_T{512} * 1024;  // a leak of one text a round would be ten times that
    EXPECT_LE(private_bytes(), bytes_before + slack);
}

}  // namespace
}  // namespace kovrel::test
