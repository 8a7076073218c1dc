// Where zip32.dll is searched, and the box shown when it is missing or cannot be used.
#include "tests/automation/zip_installation.h"

namespace kovrel::test {

using testing::ElementsAre;

namespace {

namespace fs = std::filesystem;

/// The descriptions of failures that name a file.
std::wstring missing(const fs::path& dll) {
    return L"Error 53\r (No se encontró el archivo: " + dll.wstring() + L")";
}
std::wstring not_loaded(const fs::path& dll) {
    return L"Error 48\r (Error al cargar el archivo DLL: " + dll.wstring() + L")";
}
std::wstring no_entry(const fs::path& dll) {
    return L"Error 453\r (No se encontró la función DLL especificada: ZpInit, " + dll.wstring() +
           L")";
}

/// A system DLL that this process cannot load.
constexpr const wchar_t* other_bitness = sizeof(void*) == 8
                                             ? L"C:\\windows\\syswow64\\version.dll"
                                             : L"C:\\windows\\sysnative\\version.dll";

/// A file in the system folder, for the length of a scope.
class SystemFile {
 public:
    SystemFile(const fs::path& source, const wchar_t* name) {
        std::wstring folder(MAX_PATH, L'\0');
        folder.resize(GetSystemDirectoryW(folder.data(), MAX_PATH));
        path_ = fs::path(folder) / name;
        fs::copy_file(source, path_);
    }
    SystemFile(const SystemFile&) = delete;
    SystemFile& operator=(const SystemFile&) = delete;
    ~SystemFile() {
        std::error_code ignored;
        EXPECT_TRUE(fs::remove(path_, ignored));
    }
    [[nodiscard]] const fs::path& path() const { return path_; }

 private:
    fs::path path_;
};

class ZipDll : public Archives {
 protected:
    /// Calls and expects the standard error box and no archive.
    void expect_failure(const Installation& installation, const std::wstring& text) {
        zip_ = installation.create_zip();
        ASSERT_TRUE(zip_);
        put(zip_.get(), L"AppOrigen", Variant(L"Copias"));
        const std::wstring input = file("a.txt", "1");
        BoxWatcher boxes({answer(IDOK)});
        EXPECT_EQ(generate(L"a.zip", {input}), L"");
        ASSERT_EQ(boxes.seen().size(), 1U);
        EXPECT_EQ(narrow(boxes.seen()[0].text),
                  narrow(text + L" en procedimiento GenerarZipA del Módulo fZip."));
        EXPECT_EQ(boxes.seen()[0].style, 16);
        EXPECT_EQ(boxes.seen()[0].title, L"kovrel");
        EXPECT_FALSE(folder_.exists("a.zip"));
    }
};

TEST_F(ZipDll, Missing) {
    const Installation installation("missing");
    expect_failure(installation, missing(installation.zip32()));
}

TEST_F(ZipDll, IsNotTakenFromTheCurrentFolderNorTheSearchPath) {
    const Installation installation("elsewhere");
    const fs::path before = fs::current_path();
    const fs::path good = fs::path(KOVREL_LIBRARY).parent_path();
    ASSERT_TRUE(fs::exists(good / "zip32.dll"));
    std::wstring path(32767, L'\0');
    path.resize(GetEnvironmentVariableW(L"PATH", path.data(), static_cast<DWORD>(path.size())));
    SetEnvironmentVariableW(L"PATH", (good.wstring() + L";" + path).c_str());
    fs::current_path(good);
    expect_failure(installation, missing(installation.zip32()));
    fs::current_path(before);
    SetEnvironmentVariableW(L"PATH", path.c_str());
}

TEST_F(ZipDll, IsNotReportedBeforeTheChecks) {
    zip_ = Installation("checks").create_zip();
    ASSERT_TRUE(zip_);
    expect_refusal(L"", folder(), {L"a"}, L"Debe indicar un nombre de fichero correcto.",
                   L"kovrel");
    expect_refusal(L"a.zip", folder(), {}, L"No hay fichero para comprimir.", L"");
}

TEST_F(ZipDll, NotADll) {
    const Installation installation("text");
    std::ofstream(installation.zip32()) << "no es una DLL";
    expect_failure(installation, not_loaded(installation.zip32()));
}

TEST_F(ZipDll, AFolderOfThatName) {
    const Installation installation("folder");
    fs::create_directory(installation.zip32());
    expect_failure(installation, missing(installation.zip32()));
}

TEST_F(ZipDll, OfTheOtherBitness) {
    // A separate test, so that ctest lists it as skipped.
    if (!fs::exists(other_bitness)) GTEST_SKIP() << "this system has one bitness only";
    const Installation installation("bitness");
    fs::copy_file(other_bitness, installation.zip32());
    expect_failure(installation, not_loaded(installation.zip32()));
}

TEST_F(ZipDll, WithoutTheEntryPoints) {
    const Installation installation("entries");
    fs::copy_file(KOVREL_OTHER_DLL, installation.zip32());
    expect_failure(installation, no_entry(installation.zip32()));
    // It has been unloaded, so that it can be replaced.
    EXPECT_TRUE(fs::remove(installation.zip32()));
}

// The DLL in the system folder lacks the entry points; the failure shows that it was loaded.
TEST_F(ZipDll, IsSearchedInTheSystemFolderNext) {
    const SystemFile system(KOVREL_OTHER_DLL, L"zip32.dll");
    expect_failure(Installation("system"), no_entry(system.path()));
    const Installation unusable("system_after_text");
    std::ofstream(unusable.zip32()) << "no es una DLL";
    expect_failure(unusable, no_entry(system.path()));
}

TEST_F(ZipDll, BesideTheLibraryComesFirst) {
    const SystemFile system(KOVREL_OTHER_DLL, L"zip32.dll");
    const Installation complete("complete");
    fs::copy_file(KOVREL_ZIP_LIBRARY, complete.zip32());
    zip_ = complete.create_zip();
    ASSERT_TRUE(zip_);
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", {file("a.txt", "1")}), path("a.zip"));
    EXPECT_THAT(entries("a.zip"), ElementsAre("a.txt"));
}

TEST_F(ZipDll, CanBeAddedLater) {
    const Installation installation("later");
    expect_failure(installation, missing(installation.zip32()));
    fs::copy_file(KOVREL_ZIP_LIBRARY, installation.zip32());
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", {path("a.txt")}), path("a.zip"));
}

}  // namespace
}  // namespace kovrel::test
