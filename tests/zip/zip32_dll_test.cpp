// zip32.dll's entry points: their parameters, options, callbacks and return codes.
#include "tests/zip/zip32_dll_fixture.h"

namespace kovrel::zip {
namespace {

using test::PlainEntry;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(Zip32Dll, ExportsItsEntryPointsAlone) {
    const auto* base = reinterpret_cast<const std::uint8_t*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& place = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* exports =
        reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + place.VirtualAddress);
    EXPECT_EQ(exports->NumberOfFunctions, 7U);
    ASSERT_EQ(exports->NumberOfNames, 7U);
    const auto* places = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);
    std::vector<std::string> exported;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) {
        exported.emplace_back(reinterpret_cast<const char*>(base + places[i]));
    }
    EXPECT_THAT(exported, ElementsAre("KvList", "KvPack", "KvTake", "KvTest", "ZpArchive", "ZpInit",
                                      "ZpSetOptions"));
}

TEST_F(Zip32Dll, PacksFilesWithAccentedNames) {
    const std::string text = test::compressible(300'000, 1);
    EXPECT_EQ(pack({folder.write("Año/señal.txt", text), folder.write("b.txt", "2")}), 0);
    EXPECT_THAT(names(), ElementsAre("señal.txt", "b.txt"));
    const PlainEntry first = test::read_plain(folder.read("á.zip"))[0];
    EXPECT_TRUE(first.data == text);
    // Readers go by both to decode the name.
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
    files.reserve(100);
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
    std::string root = ansi(test::utf8(folder.path()));
    options.root_folder = root.c_str();
    options.junk_folders = options.no_folder_entries = 0;
    options.recurse = 1;
    ASSERT_EQ(pack({"d"}), 0);
    EXPECT_THAT(names(), ElementsAre("d/", "d/e/", "d/e/f"));
    // The record's texts are copied: the caller may free them before packing.
    ASSERT_EQ(set_options(&options), 1);
    root.assign(root.size(), 'x');
    const char* const name = "d\\e\\f";
    EXPECT_EQ(archive(1, ansi(folder / "b.zip").c_str(), &name), 0);
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
