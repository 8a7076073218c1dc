// clsFZip.GenerarZip: the checks and their boxes, and the content of the archives.
#include "tests/automation/zip_test.h"

namespace kovrel::test {

using testing::ElementsAre;

Variant list_of(const std::vector<std::wstring>& names, VARTYPE element, LONG first) {
    Variant list;
    list.vt = VT_ARRAY | element;
    list.parray = SafeArrayCreateVector(element, first, static_cast<ULONG>(names.size()));
    for (const std::wstring& name : names) {
        if (element == VT_BSTR) {
            SafeArrayPutElement(list.parray, &first, Bstr(name).get());
        } else {
            Variant value(name);
            SafeArrayPutElement(list.parray, &first, &value);
        }
        ++first;
    }
    return list;
}

std::wstring Archives::generate_early(const std::wstring& name, const std::wstring& folder,
                                      const std::vector<std::wstring>& names) {
    const auto generate = early<GenerateEarly>(zip_.get(), L"GenerarZip");
    const Bstr name_text(name);
    const Bstr folder_text(folder);
    const std::vector<Bstr> texts(names.begin(), names.end());
    NamesRecord record{};
    for (std::size_t i = 0; i < texts.size(); ++i) record.at(i) = texts[i].get();
    BSTR raw_name = name_text.get();
    BSTR raw_folder = folder_text.get();
    Bstr result;
    EXPECT_NE(generate, nullptr);
    EXPECT_EQ(generate(zip_.get(), &raw_name, &raw_folder, &record, result.put()), S_OK);
    // The arguments are not changed.
    EXPECT_EQ(raw_name, name_text.get());
    EXPECT_EQ(raw_folder, folder_text.get());
    return std::wstring(result.view());
}

void Archives::expect_refusal(const std::wstring& name, const std::wstring& folder,
                              const std::vector<std::wstring>& names, const wchar_t* text,
                              const wchar_t* title) {
    const std::size_t before = folder_.count();
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(generate(name, folder, names), L"");
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(narrow(boxes.seen()[0].text), narrow(text));
    EXPECT_EQ(narrow(boxes.seen()[0].title), narrow(title));
    EXPECT_EQ(boxes.seen()[0].style, 48);
    EXPECT_EQ(folder_.count(), before);
}

std::vector<std::string> Archives::entries(const std::string& archive) {
    std::vector<std::string> names;
    for (const auto& entry : zip::test::read_plain(folder_.read(archive))) {
        EXPECT_TRUE(entry.readable) << entry.name;
        names.push_back(entry.name);
    }
    return names;
}

std::string Archives::content(const std::string& archive, const std::string& entry) {
    for (const auto& found : zip::test::read_plain(folder_.read(archive))) {
        if (found.name == entry) return found.data;
    }
    ADD_FAILURE() << "no entry " << entry;
    return {};
}

namespace {

/// Holds a file open without sharing for the length of a scope.
class Lock {
 public:
    explicit Lock(const std::wstring& path, DWORD shared = 0)
        : handle_(
              CreateFileW(path.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
    }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() { CloseHandle(handle_); }

 private:
    HANDLE handle_;
};

/// Changes the current folder for the length of a scope.
class InFolder {
 public:
    explicit InFolder(const std::wstring& folder) : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;
    ~InFolder() { std::filesystem::current_path(before_); }

 private:
    std::filesystem::path before_;
};

TEST_F(Archives, ANameIsNeededBeforeAnythingElse) {
    put(zip_.get(), L"AppOrigen", Variant(L"Copias"));
    const wchar_t* const text = L"Debe indicar un nombre de fichero correcto.";
    expect_refusal(L"", folder(), {file("a.txt", "1")}, text, L"kovrel");
    expect_refusal(L"", folder() + L"\\no está", {}, text, L"kovrel");
    expect_refusal(L"", L"", {}, text, L"kovrel");
}

TEST_F(Archives, TheFolderMustBeThere) {
    const std::wstring missing = folder() + L"\\no está";
    const auto text = [](const std::wstring& named) {
        return L"La carpeta de salida \"" + named +
               L"\" no existe. Debe indicar una carpeta válida donde guardar el fichero "
               L"comprimido.";
    };
    expect_refusal(L"a.zip", missing, {file("a.txt", "1")}, text(missing).c_str(), L"");
    put(zip_.get(), L"AppOrigen", Variant(L"Gestión Ñ"));
    // The path is shown as passed, and checked before the list.
    expect_refusal(L"a.zip", missing + L"\\", {}, text(missing + L"\\").c_str(), L"Gestión Ñ");
    expect_refusal(L"a.zip", L"no/hay", {}, text(L"no/hay").c_str(), L"Gestión Ñ");
}

TEST_F(Archives, AFolderOnADriveThatIsNotThere) {
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(generate(L"a.zip", L"Q:\\copias", {file("a.txt", "1")}), L"");
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_THAT(narrow(boxes.seen()[0].text), testing::StartsWith("Error 68\r ("));
    EXPECT_THAT(narrow(boxes.seen()[0].text),
                testing::EndsWith(narrow(L") en procedimiento GenerarZipA del Módulo fZip.")));
    EXPECT_EQ(boxes.seen()[0].style, 16);
    EXPECT_EQ(boxes.seen()[0].title, L"kovrel");
}

TEST_F(Archives, AFileIsNeeded) {
    put(zip_.get(), L"AppOrigen", Variant(L"Copias"));
    expect_refusal(L"a.zip", folder(), {}, nothing_to_pack, L"Copias");
    expect_refusal(L"a.zip", folder(), {L"", file("b.txt", "2")}, nothing_to_pack, L"Copias");
    expect_refusal(L"a.zip", L"", {L""}, nothing_to_pack, L"Copias");
}

TEST_F(Archives, AnExistingArchiveIsReportedBeforeAnEmptyList) {
    file("a.zip", "no es un zip");
    put(zip_.get(), L"AppOrigen", Variant(L"Copias"));
    BoxWatcher boxes({answer(IDOK), answer_key(VK_ESCAPE)});
    EXPECT_EQ(generate(L"a.zip", {}), L"");
    ASSERT_EQ(boxes.seen().size(), 2U);
    EXPECT_EQ(narrow(boxes.seen()[0].text), narrow(replaced_text));
    EXPECT_EQ(boxes.seen()[0].style, 48);
    EXPECT_EQ(boxes.seen()[0].title, L"Copias");
    EXPECT_EQ(narrow(boxes.seen()[1].text), narrow(nothing_to_pack));
    EXPECT_EQ(folder_.read("a.zip"), "no es un zip");
}

TEST_F(Archives, OneFile) {
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", {file("d/a.txt", "contenido")}), path("a.zip"));
    EXPECT_THAT(entries("a.zip"), ElementsAre("a.txt"));
    EXPECT_EQ(content("a.zip", "a.txt"), "contenido");
    EXPECT_EQ(folder_.count(), 2U);
}

// The code page lacks "\u03A9" (omega), whose best fit would be an O.
TEST_F(Archives, FilesWithSimilarNamesAreNotTouched) {
    file("O.txt", "ajeno");
    file("O.zip", "tampoco un zip");
    const std::wstring greek = file("\xCE\xA9.txt", "griego");
    BoxWatcher no_box;
    for (const bool with_record : {false, true}) {
        with_record_ = with_record;
        EXPECT_EQ(generate(L"a.zip", {greek}), L"");
        EXPECT_EQ(generate(L"\x03A9.zip", {file("b.txt", "2")}), L"");
        EXPECT_EQ(folder_.read("O.zip"), "tampoco un zip");
        EXPECT_EQ(folder_.count(), 4U);
        // The other files of the list are packed.
        EXPECT_EQ(generate(L"c.zip", {greek, path("b.txt")}), path("c.zip"));
        EXPECT_THAT(entries("c.zip"), ElementsAre("b.txt"));
        DeleteFileW(path("c.zip").c_str());
    }
}

TEST_F(Archives, AnEmptyDriveIsAFolder) {
    const test::OwnDrive drive(folder() + L"\\unidad");
    ASSERT_FALSE(drive.root().empty());
    const std::wstring input = file("a.txt", "1");
    for (const bool with_record : {false, true}) {
        with_record_ = with_record;
        BoxWatcher no_box;
        EXPECT_EQ(generate(L"a.zip", drive.root(), {input}), drive.root() + L"a.zip");
        EXPECT_THAT(entries("unidad/a.zip"), ElementsAre("a.txt"));
        ASSERT_TRUE(DeleteFileW((drive.root() + L"a.zip").c_str()));
    }
}

TEST_F(Archives, AFolderThatEndsInABackslash) {
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", folder() + L"\\", {file("a.txt", "1")}), path("a.zip"));
    EXPECT_THAT(entries("a.zip"), ElementsAre("a.txt"));
}

TEST_F(Archives, WithoutAFolderInTheCurrentOne) {
    const InFolder here(folder());
    file("d/b.txt", "2");
    file("a.txt", "1");
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", L"", {L"a.txt", L"d\\b.txt"}), L"a.zip");
    EXPECT_THAT(entries("a.zip"), ElementsAre("a.txt", "b.txt"));
}

TEST_F(Archives, AHundredFilesButNotAHundredAndOne) {
    std::vector<std::wstring> files;
    std::vector<std::string> names;
    for (int i = 0; i < 100; ++i) {
        names.push_back("archivo " + std::to_string(i) + ".txt");
        files.push_back(file("d/" + names.back(), std::to_string(i)));
    }
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", files), path("a.zip"));
    EXPECT_EQ(entries("a.zip"), names);
    EXPECT_EQ(content("a.zip", "archivo 99.txt"), "99");
    files.emplace_back();
    EXPECT_EQ(call(zip_.get(), L"GenerarZip", {L"b.zip", folder(), list_of(files)}).result,
              DISP_E_BADINDEX);
}

TEST_F(Archives, TheFirstEmptyNameEndsTheList) {
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", {file("a.txt", "1"), L"", file("b.txt", "2")}), path("a.zip"));
    EXPECT_THAT(entries("a.zip"), ElementsAre("a.txt"));
}

TEST_F(Archives, MissingEmptyReadOnlyAndLockedFiles) {
    const std::wstring read_only = file("lectura.txt", "fija");
    const std::wstring locked = file("cerrado.txt", "x");
    const std::wstring shared = file("compartido.txt", "y");
    SetFileAttributesW(read_only.c_str(), FILE_ATTRIBUTE_READONLY);
    {
        BoxWatcher no_box;
        const Lock lock(locked);
        const Lock reader(shared, FILE_SHARE_READ);
        EXPECT_EQ(generate(L"a.zip",
                           {path("no está.txt"), file("vacío.txt", ""), read_only, locked, shared}),
                  path("a.zip"));
        EXPECT_THAT(entries("a.zip"), ElementsAre("vacío.txt", "lectura.txt", "compartido.txt"));
        EXPECT_EQ(content("a.zip", "vacío.txt"), "");
        EXPECT_EQ(content("a.zip", "lectura.txt"), "fija");
        // Without a file that can be packed there is no archive and no box.
        EXPECT_EQ(generate(L"b.zip", {path("no está.txt")}), L"");
        EXPECT_EQ(generate(L"b.zip", {locked}), L"");
        EXPECT_FALSE(folder_.exists("b.zip"));
    }
    SetFileAttributesW(read_only.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(Archives, AFolderInTheListIsNotPacked) {
    file("d/a.txt", "1");
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", {path("d")}), L"");
    EXPECT_EQ(generate(L"a.zip", {path("d"), path("d/a.txt")}), path("a.zip"));
    EXPECT_THAT(entries("a.zip"), ElementsAre("a.txt"));
}

TEST_F(Archives, TwoFilesOfTheSameNameMakeNoArchive) {
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", {file("d/a.txt", "1"), file("e/A.TXT", "2")}), L"");
    EXPECT_FALSE(folder_.exists("a.zip"));
}

TEST_F(Archives, AnExistingOneIsUpdated) {
    EXPECT_EQ(generate(L"a.zip", {file("a.txt", "viejo"), file("b.txt", "queda")}), path("a.zip"));
    put(zip_.get(), L"AppOrigen", Variant(L"Copias"));
    BoxWatcher boxes({answer_key(VK_ESCAPE)});  // the box has an OK button only
    EXPECT_EQ(generate(L"a.zip", {file("a.txt", "nuevo"), file("c.txt", "3")}), path("a.zip"));
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(narrow(boxes.seen()[0].text), narrow(replaced_text));
    EXPECT_EQ(boxes.seen()[0].style, 48);
    EXPECT_EQ(boxes.seen()[0].title, L"Copias");
    EXPECT_THAT(entries("a.zip"), ElementsAre("a.txt", "b.txt", "c.txt"));
    EXPECT_EQ(content("a.zip", "a.txt"), "nuevo");
    EXPECT_EQ(content("a.zip", "b.txt"), "queda");
}

TEST_F(Archives, AnExistingFileIsTheResultEvenIfPackingFails) {
    file("a.zip", "no es un zip");
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(generate(L"a.zip", {file("a.txt", "1")}), path("a.zip"));
    EXPECT_EQ(folder_.read("a.zip"), "no es un zip");
}

TEST_F(Archives, AFolderWithTheArchivesNameMakesNoArchive) {
    file("a.zip/d.txt", "1");
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", {file("a.txt", "1")}), L"");
    EXPECT_EQ(folder_.count(), 2U);
}

TEST_F(Archives, AccentedNamesAndFolders) {
    const std::string text = zip::test::compressible(300'000, 7);
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"Camión nº 1 – 5 €.zip",
                       {file("Año/señal ñ.txt", text), file("ÁÉÍÓÚ ¿qué/Ü.txt", "ü")}),
              path("Camión nº 1 – 5 €.zip"));
    EXPECT_THAT(entries("Camión nº 1 – 5 €.zip"), ElementsAre("señal ñ.txt", "Ü.txt"));
    EXPECT_EQ(content("Camión nº 1 – 5 €.zip", "señal ñ.txt"), text);
    EXPECT_EQ(generate(L"á.zip", path("Año"), {path("Año/señal ñ.txt")}), path("Año") + L"\\á.zip");
}

TEST_F(Archives, NamesThatTheCodePageLacks) {
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", {file("文.txt", "1"), file("b.txt", "2")}), path("a.zip"));
    EXPECT_THAT(entries("a.zip"), ElementsAre("b.txt"));
    EXPECT_EQ(generate(L"文.zip", {path("b.txt")}), L"");
}

}  // namespace
}  // namespace kovrel::test
