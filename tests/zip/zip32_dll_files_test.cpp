// zip32.dll and the files of Windows: locks, attributes, times, names and long paths.
#include "tests/zip/zip32_dll_fixture.h"

namespace kovrel::zip {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST_F(Zip32Dll, MissingAndLockedFilesAreLeftOut) {
    const std::string locked = folder.write("cerrado.txt", "1");
    const HANDLE lock = CreateFileW(from_utf8(locked).c_str(), GENERIC_READ | GENERIC_WRITE, 0,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
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
    const HANDLE lock =
        CreateFileW(from_utf8(file).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(pack({file, folder.write("g", "2")}), 18);
    CloseHandle(lock);
    EXPECT_THAT(names(), ElementsAre("f", "g"));
    EXPECT_EQ(test::read_plain(folder.read("á.zip"))[0].data, "viejo");
}

TEST_F(Zip32Dll, ReadOnlyFilesArePackedAndAReadOnlyArchiveStays) {
    const std::wstring file = from_utf8(folder.write("f", "1"));
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE);
    EXPECT_EQ(pack({folder / "f"}), 0);
    EXPECT_EQ(test::read_plain(folder.read("á.zip"))[0].attributes & 0xFFU, 0x21U);
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    const std::wstring target = from_utf8(folder / "á.zip");
    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(pack({folder / "f"}), 15);
    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(Zip32Dll, AnArchiveThatAnotherProgramHoldsStaysAsItIs) {
    ASSERT_EQ(pack({folder.write("f", "1")}), 0);
    const std::string before = folder.read("á.zip");
    const HANDLE held = CreateFileW(from_utf8(folder / "á.zip").c_str(), GENERIC_READ,
                                    FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(pack({folder.write("g", "2")}), 15);
    CloseHandle(held);
    EXPECT_EQ(folder.read("á.zip"), before);
    EXPECT_EQ(folder.count(), 3U);
}

TEST_F(Zip32Dll, AnArchiveKeepsItsAttributes) {
    ASSERT_EQ(pack({folder.write("f", "1")}), 0);
    const std::wstring path = from_utf8(folder / "á.zip");
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

// Never a letter that resembles it, which could name another file.
TEST_F(Zip32Dll, CharactersOutsideTheCodePageBecomeQuestionMarks) {
    folder.write("O.txt", "ajeno");
    folder.write("d/Ω.txt", "griego");
    EXPECT_EQ(ansi("aΩЖ一b"), "a???b");
    EXPECT_EQ(pack({folder / "Ω.txt"}), 12);
    EXPECT_THAT(printed, testing::Contains(testing::EndsWith("\\?.txt\n")));
    folder.write("O.zip", "ajeno");
    const std::string file = ansi(folder / "O.txt");
    const char* const name = file.c_str();
    EXPECT_EQ(archive(1, ansi(folder / "Ω.zip").c_str(), &name), 15);
    EXPECT_EQ(folder.read("O.zip"), "ajeno");
    EXPECT_EQ(folder.count(), 3U);
    // Files found by recursion keep their names; only the report is in the code page.
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
    // Neither has exactly this name: the first one is replaced.
    EXPECT_EQ(pack({folder.write("x/Readme", "otro")}), 0);
    EXPECT_THAT(contents(), ElementsAre("Readme=otro", "readme=nuevo", "b=3"));
}

TEST_F(Zip32Dll, DuplicatesOfAReplacedEntryAreRemoved) {
    folder.write("á.zip", test::made_on_unix({{"F", "1"}, {"f", "2"}, {"F", "3"}, {"f", "4"}}));
    EXPECT_EQ(pack({folder.write("F", "nuevo")}), 0);
    EXPECT_THAT(contents(), ElementsAre("F=nuevo", "f=2", "f=4"));
}

TEST_F(Zip32Dll, DuplicatesOfALockedFilesEntryStay) {
    folder.write("á.zip", test::made_on_unix({{"f", "1"}, {"g", "2"}, {"f", "3"}, {"F", "4"}}));
    const std::string file = folder.write("f", "nuevo");
    const HANDLE lock =
        CreateFileW(from_utf8(file).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
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
    const HANDLE handle = CreateFileW(from_utf8(file).c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    ASSERT_TRUE(SetFileTime(handle, nullptr, nullptr, &moment));
    CloseHandle(handle);
    EXPECT_EQ(pack({file}), 0);
    const auto found = test::read_plain(folder.read("á.zip"));
    EXPECT_EQ(found[0].date, 44 << 9 | 7 << 5 | 15);
    EXPECT_EQ(found[0].time, 18 << 11 | 30 << 5 | 21);
}

TEST_F(Zip32Dll, PathsPastTheClassicLimit) {
    std::string name;
    for (int i = 0; i < 12; ++i) {
        name += "carpeta_de_treinta_letras_" + std::to_string(1000 + i) + "\\";
    }
    std::wstring path = L"\\\\?\\" + folder.path().wstring();
    for (std::size_t from = 0, to = 0; (to = name.find('\\', from)) != std::string::npos;
         from = to + 1) {
        path += L"\\" + from_utf8(name.substr(from, to - from));
        ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
    }
    const HANDLE file =
        CreateFileW((path + L"\\f").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    CloseHandle(file);
    EXPECT_EQ(pack({folder / (name + "f")}), 0);
    EXPECT_THAT(names(), ElementsAre("f"));
    // The archive in such a folder, new and updated.
    const std::string in_it = ansi(folder / (name + "f"));
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

}  // namespace
}  // namespace kovrel::zip
