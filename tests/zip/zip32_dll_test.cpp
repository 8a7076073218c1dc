// zip32.dll through its three entry points, with the records that callers hand over.
#include <windows.h>

#include <array>
#include <cstring>
#include <gmock/gmock.h>

#include "made_archive.h"
#include "plain_reader.h"
#include "test_folder.h"
#include "wide_text.h"
#include "zip32.h"

namespace kovrel::zip {
namespace {

using test::PlainEntry;
using test::TestFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> printed;
std::vector<std::string> served;
int service_answer = 0;

int __stdcall print(char* text, unsigned long length) {
    EXPECT_EQ(text[4096], '\0');
    EXPECT_EQ(std::strlen(text), length);
    printed.emplace_back(text);
    return 0;
}

int __stdcall password(char*, int, const char*, const char*) {
    ADD_FAILURE() << "no password is ever asked for";
    return 0;
}

int __stdcall comment(char*) {
    ADD_FAILURE() << "no comment is ever asked for";
    return 0;
}

int __stdcall service(const char* name, unsigned long size) {
    served.push_back(std::string(name) + " " + std::to_string(size));
    return service_answer;
}

class Zip32Dll : public testing::Test {
 protected:
    void SetUp() override {
        printed.clear();
        served.clear();
        service_answer = 0;
        module = LoadLibraryW(ZIP32_DLL_PATH);
        ASSERT_NE(module, nullptr);
        init = find<decltype(&ZpInit)>("ZpInit");
        set_options = find<decltype(&ZpSetOptions)>("ZpSetOptions");
        archive = find<decltype(&ZpArchive)>("ZpArchive");
        options.no_folder_entries = options.verbose = options.quiet = options.junk_folders = 1;
        options.date = "";
    }

    void TearDown() override { FreeLibrary(module); }

    template <typename Function>
    Function find(const char* name) {
        const FARPROC address = GetProcAddress(module, name);
        EXPECT_NE(address, nullptr) << name;
        return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
    }

    // The names as a fixed record of 100 pointers, of which the first ones count.
    int pack(const std::vector<std::string>& names) {
        std::array<const char*, 100> record{};
        std::vector<std::string> ansi;
        for (const std::string& name : names) {
            ansi.push_back(ansi_from_utf8(name));
        }
        for (std::size_t i = 0; i < ansi.size(); ++i) {
            record[i] = ansi[i].c_str();
        }
        const ZpCallbacks callbacks{print, password, comment, service};
        EXPECT_EQ(init(&callbacks), 1);
        EXPECT_EQ(set_options(&options), 1);
        return archive(static_cast<int>(names.size()), ansi_from_utf8(folder / "á.zip").c_str(),
                       record.data());
    }

    std::vector<std::string> names() {
        std::vector<std::string> result;
        for (const PlainEntry& entry : test::read_plain(folder.read("á.zip"))) {
            EXPECT_TRUE(entry.readable);
            result.push_back(entry.name);
        }
        return result;
    }

    std::vector<std::string> contents() {
        std::vector<std::string> result;
        for (const PlainEntry& entry : test::read_plain(folder.read("á.zip"))) {
            result.push_back(entry.name + "=" + entry.data);
        }
        return result;
    }

    TestFolder folder;
    HMODULE module = nullptr;
    decltype(&ZpInit) init = nullptr;
    decltype(&ZpSetOptions) set_options = nullptr;
    decltype(&ZpArchive) archive = nullptr;
    ZpOptions options{};
};

TEST_F(Zip32Dll, ExportsItsThreeEntryPointsAlone) {
    const auto* base = reinterpret_cast<const std::uint8_t*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& place = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* exports =
        reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + place.VirtualAddress);
    EXPECT_EQ(exports->NumberOfFunctions, 3U);
    EXPECT_EQ(exports->NumberOfNames, 3U);
}

TEST_F(Zip32Dll, PacksFilesWithAccentedNames) {
    const std::string text = test::compressible(300'000, 1);
    EXPECT_EQ(pack({folder.write("Año/señal.txt", text), folder.write("b.txt", "2")}), 0);
    EXPECT_THAT(names(), ElementsAre("señal.txt", "b.txt"));
    const PlainEntry first = test::read_plain(folder.read("á.zip"))[0];
    EXPECT_TRUE(first.data == text);
    // Readers look at both to know what the name is written in.
    EXPECT_EQ(first.made_by, 10 << 8 | 20);
    EXPECT_EQ(first.flags, 1 << 11);
    EXPECT_THAT(printed, IsEmpty());
    EXPECT_THAT(served, ElementsAre("se\xF1"
                                    "al.txt 300000",
                                    "b.txt 1"));
}

TEST_F(Zip32Dll, OneAndAHundredNames) {
    EXPECT_EQ(pack({folder.write("f", "1")}), 0);
    std::vector<std::string> files;
    for (int i = 0; i < 100; ++i) {
        files.push_back(folder.write("f" + std::to_string(i), std::to_string(i)));
    }
    EXPECT_EQ(pack(files), 0);
    EXPECT_EQ(names().size(), 101U);
}

TEST_F(Zip32Dll, ReturnCodes) {
    EXPECT_EQ(init(nullptr), 0);
    EXPECT_EQ(set_options(nullptr), 0);
    EXPECT_EQ(pack({}), 12);
    EXPECT_EQ(pack({folder / "no"}), 12);
    EXPECT_EQ(pack({folder.write("x/f", "1"), folder.write("y/f", "1")}), 16);
    EXPECT_EQ(archive(1, nullptr, nullptr), 16);
    EXPECT_EQ(archive(1, "a.zip", nullptr), 16);
    EXPECT_EQ(archive(-1, "a.zip", nullptr), 16);
    const char* const none = nullptr;
    EXPECT_EQ(archive(1, "a.zip", &none), 12);
    EXPECT_FALSE(folder.exists("á.zip"));
    folder.write("á.zip", "no es un zip");
    EXPECT_EQ(pack({folder / "x/f"}), 3);
    EXPECT_EQ(folder.read("á.zip"), "no es un zip");
}

TEST_F(Zip32Dll, MissingAndLockedFilesAreLeftOut) {
    const std::string locked = folder.write("cerrado.txt", "1");
    const HANDLE lock = CreateFileW(utf16_from_utf8(locked).c_str(), GENERIC_READ | GENERIC_WRITE,
                                    0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(lock, INVALID_HANDLE_VALUE);
    EXPECT_EQ(pack({folder / "no", locked, folder.write("f", "2")}), 18);
    EXPECT_THAT(names(), ElementsAre("f"));
    EXPECT_THAT(printed, ElementsAre(HasSubstr("warning: name not matched: "),
                                     HasSubstr("warning: could not open for reading: ")));
    CloseHandle(lock);
    EXPECT_EQ(pack({locked}), 0);
    EXPECT_THAT(names(), ElementsAre("f", "cerrado.txt"));
}

TEST_F(Zip32Dll, ALockedFileLeavesItsOldEntry) {
    const std::string file = folder.write("f", "viejo");
    ASSERT_EQ(pack({file}), 0);
    folder.write("f", "nuevo");
    const HANDLE lock = CreateFileW(utf16_from_utf8(file).c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(pack({file, folder.write("g", "2")}), 18);
    CloseHandle(lock);
    EXPECT_THAT(names(), ElementsAre("f", "g"));
    EXPECT_EQ(test::read_plain(folder.read("á.zip"))[0].data, "viejo");
}

TEST_F(Zip32Dll, ReadOnlyFilesArePackedAndAReadOnlyArchiveStays) {
    const std::wstring file = utf16_from_utf8(folder.write("f", "1"));
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE);
    EXPECT_EQ(pack({folder / "f"}), 0);
    EXPECT_EQ(test::read_plain(folder.read("á.zip"))[0].attributes & 0xFFU, 0x21U);
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    const std::wstring target = utf16_from_utf8(folder / "á.zip");
    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(pack({folder / "f"}), 15);
    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(Zip32Dll, AnArchiveThatAnotherProgramHoldsStaysAsItIs) {
    ASSERT_EQ(pack({folder.write("f", "1")}), 0);
    const std::string before = folder.read("á.zip");
    const HANDLE held = CreateFileW(utf16_from_utf8(folder / "á.zip").c_str(), GENERIC_READ,
                                    FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(pack({folder.write("g", "2")}), 15);
    CloseHandle(held);
    EXPECT_EQ(folder.read("á.zip"), before);
    EXPECT_EQ(folder.count(), 3U);
}

TEST_F(Zip32Dll, AnArchiveKeepsItsAttributes) {
    ASSERT_EQ(pack({folder.write("f", "1")}), 0);
    const std::wstring path = utf16_from_utf8(folder / "á.zip");
    constexpr DWORD attributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), attributes));
    ASSERT_EQ(GetFileAttributesW(path.c_str()) & attributes, attributes);
    EXPECT_EQ(pack({folder.write("g", "2")}), 0);
    EXPECT_THAT(contents(), ElementsAre("f=1", "g=2"));
    EXPECT_EQ(GetFileAttributesW(path.c_str()) & attributes, attributes);
    EXPECT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_EQ(pack({folder / "g"}), 0);
    EXPECT_EQ(GetFileAttributesW(path.c_str()) & attributes, 0U);
}

// Files of other names are not taken for them, whatever their letters resemble.
TEST_F(Zip32Dll, WhatTheCodePageLacksIsAQuestionMark) {
    folder.write("O.txt", "ajeno");
    folder.write("d/Ω.txt", "griego");
    EXPECT_EQ(ansi_from_utf8("aΩЖ一b"), "a???b");
    EXPECT_EQ(pack({folder / "Ω.txt"}), 12);
    EXPECT_THAT(printed, testing::Contains(testing::EndsWith("\\?.txt\n")));
    folder.write("O.zip", "ajeno");
    const std::string file = ansi_from_utf8(folder / "O.txt");
    const char* const name = file.c_str();
    EXPECT_EQ(archive(1, ansi_from_utf8(folder / "Ω.zip").c_str(), &name), 15);
    EXPECT_EQ(folder.read("O.zip"), "ajeno");
    EXPECT_EQ(folder.count(), 3U);
    // Those found in a folder have their own names, and are told as the code page can.
    options.recurse = 1;
    EXPECT_EQ(pack({folder / "d"}), 0);
    EXPECT_THAT(names(), ElementsAre("Ω.txt"));
    EXPECT_THAT(served, testing::Contains(testing::StartsWith("?.txt")));
}

TEST_F(Zip32Dll, NamesThatDifferInCapitalsAreOneFile) {
    EXPECT_EQ(pack({folder.write("Ñandú.txt", "1")}), 0);
    EXPECT_EQ(pack({folder.write("x/ñANDÚ.TXT", "2")}), 0);
    EXPECT_THAT(names(), ElementsAre("ñANDÚ.TXT"));
    EXPECT_EQ(pack({folder / "Ñandú.txt", folder / "x/ñANDÚ.TXT"}), 16);
}

TEST_F(Zip32Dll, EntriesThatDifferInCapitalsAreNotLost) {
    folder.write("á.zip", test::made_on_unix({{"README", "1"}, {"readme", "2"}, {"b", "3"}}));
    EXPECT_EQ(pack({folder.write("readme", "nuevo")}), 0);
    EXPECT_THAT(contents(), ElementsAre("README=1", "readme=nuevo", "b=3"));
    // Neither has exactly this name: the first one gives its place.
    EXPECT_EQ(pack({folder.write("x/Readme", "otro")}), 0);
    EXPECT_THAT(contents(), ElementsAre("Readme=otro", "readme=nuevo", "b=3"));
}

TEST_F(Zip32Dll, DuplicatesOfAReplacedEntryGo) {
    folder.write("á.zip", test::made_on_unix({{"F", "1"}, {"f", "2"}, {"F", "3"}, {"f", "4"}}));
    EXPECT_EQ(pack({folder.write("F", "nuevo")}), 0);
    EXPECT_THAT(contents(), ElementsAre("F=nuevo", "f=2", "f=4"));
}

TEST_F(Zip32Dll, DuplicatesOfALockedFilesEntryStay) {
    folder.write("á.zip", test::made_on_unix({{"f", "1"}, {"g", "2"}, {"f", "3"}, {"F", "4"}}));
    const std::string file = folder.write("f", "nuevo");
    const HANDLE lock = CreateFileW(utf16_from_utf8(file).c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(lock, INVALID_HANDLE_VALUE);
    EXPECT_EQ(pack({file, folder.write("h", "5")}), 18);
    EXPECT_THAT(contents(), ElementsAre("f=1", "g=2", "f=3", "F=4", "h=5"));
    CloseHandle(lock);
    EXPECT_EQ(pack({file}), 0);
    EXPECT_THAT(contents(), ElementsAre("f=nuevo", "g=2", "F=4", "h=5"));
}

TEST_F(Zip32Dll, TimesAreLocal) {
    const std::string file = folder.write("f", "1");
    const SYSTEMTIME local{2024, 7, 0, 15, 18, 30, 42, 0};
    SYSTEMTIME universal{};
    FILETIME moment{};
    ASSERT_TRUE(TzSpecificLocalTimeToSystemTime(nullptr, &local, &universal));
    ASSERT_TRUE(SystemTimeToFileTime(&universal, &moment));
    const HANDLE handle = CreateFileW(utf16_from_utf8(file).c_str(), FILE_WRITE_ATTRIBUTES, 0,
                                      nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_TRUE(SetFileTime(handle, nullptr, nullptr, &moment));
    CloseHandle(handle);
    EXPECT_EQ(pack({file}), 0);
    const auto found = test::read_plain(folder.read("á.zip"));
    EXPECT_EQ(found[0].date, 44 << 9 | 7 << 5 | 15);
    EXPECT_EQ(found[0].time, 18 << 11 | 30 << 5 | 21);
}

TEST_F(Zip32Dll, LevelsAndOptions) {
    const std::string file = folder.write("d/f", test::compressible(9000, 2));
    options.level = '0';
    EXPECT_EQ(pack({file}), 0);
    EXPECT_EQ(test::read_plain(folder.read("á.zip"))[0].method, 0);
    options.level = '9';
    EXPECT_EQ(pack({file}), 0);
    EXPECT_EQ(test::read_plain(folder.read("á.zip"))[0].method, 8);
    options.level = 9;
    EXPECT_EQ(pack({file}), 16);
    options.level = 0;
    for (std::int32_t ZpOptions::*refused :
         {&ZpOptions::encrypt, &ZpOptions::exclude_by_date, &ZpOptions::include_by_date,
          &ZpOptions::crlf_to_lf, &ZpOptions::lf_to_crlf, &ZpOptions::dos_names,
          &ZpOptions::delete_entries, &ZpOptions::repair}) {
        options.*refused = 1;
        EXPECT_EQ(pack({file}), 16);
        options.*refused = 0;
    }
    EXPECT_EQ(pack({file}), 0);
    options.update = 1;
    EXPECT_EQ(pack({file}), 12);
    options.update = 0;
    options.quiet = 0;
    options.move = 1;
    printed.clear();
    EXPECT_EQ(pack({file}), 0);
    EXPECT_THAT(printed, ElementsAre("updating: f (deflated)\n"));
    EXPECT_FALSE(folder.exists("d/f"));
}

TEST_F(Zip32Dll, FoldersFromARoot) {
    folder.write("d/e/f", "1");
    std::string root = ansi_from_utf8(test::utf8(folder.path()));
    options.root_folder = root.c_str();
    options.junk_folders = options.no_folder_entries = 0;
    options.recurse = 1;
    ASSERT_EQ(pack({"d"}), 0);
    EXPECT_THAT(names(), ElementsAre("d/", "d/e/", "d/e/f"));
    // The texts of the record are copied: the caller's may be gone by the time of the packing.
    ASSERT_EQ(set_options(&options), 1);
    root.assign(root.size(), 'x');
    const char* const name = "d\\e\\f";
    EXPECT_EQ(archive(1, ansi_from_utf8(folder / "b.zip").c_str(), &name), 0);
}

TEST_F(Zip32Dll, TheServiceCallbackStopsEverything) {
    service_answer = 1;
    EXPECT_EQ(pack({folder.write("f", "1")}), 9);
    EXPECT_FALSE(folder.exists("á.zip"));
    EXPECT_EQ(folder.count(), 1U);
}

TEST_F(Zip32Dll, WorksWithoutCallbacks) {
    const ZpCallbacks none{};
    EXPECT_EQ(init(&none), 1);
    EXPECT_EQ(set_options(&options), 1);
    const std::string file = folder.write("f", "1");
    const char* const names[] = {file.c_str(), "no existe"};
    EXPECT_EQ(archive(2, (folder / "c.zip").c_str(), names), 0);
}

TEST_F(Zip32Dll, PathsPastTheClassicLimit) {
    std::string name;
    for (int i = 0; i < 12; ++i) {
        name += "carpeta_de_treinta_letras_" + std::to_string(1000 + i) + "\\";
    }
    std::wstring path = L"\\\\?\\" + folder.path().wstring();
    for (std::size_t from = 0, to = 0; (to = name.find('\\', from)) != std::string::npos;
         from = to + 1) {
        path += L"\\" + utf16_from_utf8(name.substr(from, to - from));
        ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
    }
    const HANDLE file =
        CreateFileW((path + L"\\f").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    CloseHandle(file);
    EXPECT_EQ(pack({folder / (name + "f")}), 0);
    EXPECT_THAT(names(), ElementsAre("f"));
    // The archive there too, new and updated.
    const std::string in_it = ansi_from_utf8(folder / (name + "f"));
    const char* const long_name = in_it.c_str();
    EXPECT_EQ(archive(1, (in_it + ".zip").c_str(), &long_name), 0);
    EXPECT_EQ(archive(1, (in_it + ".zip").c_str(), &long_name), 0);
    EXPECT_TRUE(DeleteFileW((path + L"\\f.zip").c_str()));
    for (std::size_t end = path.size(); end > folder.path().wstring().size() + 4;
         end = path.rfind(L'\\')) {
        path.resize(end);
        DeleteFileW((path + L"\\f").c_str());
        RemoveDirectoryW(path.c_str());
    }
}

TEST_F(Zip32Dll, LoadedAndUnloadedThreeThousandTimes) {
    ASSERT_EQ(pack({folder / "no"}), 12);
    for (int i = 0; i < 3000; ++i) {
        const HMODULE again = LoadLibraryW(ZIP32_DLL_PATH);
        ASSERT_NE(again, nullptr);
        FreeLibrary(again);
    }
    EXPECT_EQ(pack({folder.write("f", "1")}), 0);
}

}  // namespace
}  // namespace kovrel::zip
