// clsProfile's ExisteCarpeta and RutadeArchivo, with real folders and files.
#include "tests/automation/profile.h"
#include "tests/support/import_patch.h"
#include "tests/support/own_drive.h"

namespace kovrel::test {
namespace {

TEST_F(ProfileAnySettings, AnExistingFolderIsFoundWhateverTheFlags) {
    BoxWatcher no_box;
    for (const bool create : {false, true}) {
        for (const bool tell : {false, true}) EXPECT_TRUE(exists(folder_.path(), create, tell));
    }
    EXPECT_TRUE(exists(folder_.path()));
    EXPECT_TRUE(exists(folder_.path() + L"\\"));
}

TEST_F(ProfileAnySettings, AMissingFolderWithoutFlagsIsNotCreated) {
    BoxWatcher no_box;
    EXPECT_FALSE(exists(folder_ / L"nueva"));
    EXPECT_FALSE(exists(folder_ / L"nueva", false, true));
    EXPECT_FALSE(exists(folder_ / L"nueva\\"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / L"nueva"));
}

TEST_F(ProfileAnySettings, AMissingFolderIsCreatedAfterTheQuestion) {
    const std::wstring path = folder_ / L"Año ñ";
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    EXPECT_TRUE(exists(path, true, true));
    EXPECT_EQ(lines_of(boxes),
              (Lines{question(path, 1), narrow(L"64|Gestión|Carpeta creada con éxito.|1")}));
    EXPECT_TRUE(std::filesystem::is_directory(path));
}

TEST_F(ProfileAnySettings, AnyOtherAnswerLeavesItMissing) {
    const std::wstring path = folder_ / L"nueva";
    {
        BoxWatcher boxes({answer(IDCANCEL)});
        EXPECT_FALSE(exists(path, true, true));
        EXPECT_EQ(lines_of(boxes), (Lines{question(path, 2)}));
    }
    BoxWatcher boxes({answer_key(VK_ESCAPE)});
    EXPECT_FALSE(exists(path, true, true));
    EXPECT_EQ(boxes.seen().size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(ProfileAnySettings, ASilentCreationShowsNothing) {
    BoxWatcher no_box;
    EXPECT_TRUE(exists(folder_ / L"callada", true, false));
    EXPECT_TRUE(std::filesystem::is_directory(folder_ / L"callada"));
}

TEST_F(ProfileAnySettings, AMissingParentEndsInTheErrorBox) {
    const std::wstring path = folder_ / L"falta\\nueva";
    const std::string box = narrow(
        L"16|kovrel|Error 76\\r (No se encontró la ruta de acceso) en procedimiento ExisteCarpeta "
        L"del Formulario frmOptions.|1");
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK)});
    EXPECT_FALSE(exists(path, true, true));
    EXPECT_FALSE(exists(path, true, false));
    EXPECT_EQ(lines_of(boxes), (Lines{question(path, 1), box, box}));
}

int folders_created = 0;

/// Succeeds without creating the folder.
BOOL WINAPI pretend_to_create(const wchar_t* /*path*/, SECURITY_ATTRIBUTES* /*security*/) {
    ++folders_created;
    return TRUE;
}

TEST_F(ProfileAnySettings, ACreationThatMakesNoFolderIsReported) {
    const ImportPatch patch(L"kovrel.dll", "CreateDirectoryW",
                            reinterpret_cast<void*>(&pretend_to_create));
    ASSERT_TRUE(patch.in_place());
    folders_created = 0;
    const std::wstring path = folder_ / L"nueva";
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    EXPECT_FALSE(exists(path, true, true));
    EXPECT_FALSE(exists(path, true, false));
    EXPECT_EQ(folders_created, 2);
    EXPECT_EQ(
        lines_of(boxes),
        (Lines{question(path, 1), narrow(L"16|Gestión|No ha sido posible crear la carpeta.|1")}));
}

TEST_F(ProfileAnySettings, ADriveThatDoesNotExistIsAFailure) {
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_FALSE(exists(L"Q:\\carpeta", true, true));
    EXPECT_EQ(lines_of(boxes),
              (Lines{narrow(L"16|kovrel|Error 68\\r (Dispositivo no disponible) en "
                            L"procedimiento ExisteCarpeta del Formulario "
                            L"frmOptions.|1")}));
}

TEST_F(ProfileAnySettings, AHiddenSystemFolderIsNotFoundAndCannotBeCreated) {
    const std::wstring path = folder_ / L"oculta";
    std::filesystem::create_directory(path);
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM));
    ASSERT_NE(GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U)
        << "the file system keeps no hidden attribute";
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_FALSE(exists(path));
    EXPECT_FALSE(exists(path, true, false));
    EXPECT_EQ(lines_of(boxes),
              (Lines{narrow(L"16|kovrel|Error 75\\r (Error de acceso a la ruta o al archivo) en "
                            L"procedimiento ExisteCarpeta del Formulario frmOptions.|1")}));
}

TEST_F(ProfileAnySettings, FilesAndPatternsThatMatchCountAsExisting) {
    BoxWatcher no_box;
    folder_.write(L"datos.txt", "x");
    EXPECT_TRUE(exists(folder_ / L"datos.txt"));
    EXPECT_TRUE(exists(folder_ / L"dat?s.*"));
    EXPECT_FALSE(exists(folder_ / L"otr?s.*"));
}

TEST_F(ProfileAnySettings, TheRootOfAnEmptyDriveIsAFolder) {
    const OwnDrive drive(folder_ / L"unidad");
    ASSERT_FALSE(drive.root().empty());
    const std::wstring letter = drive.root().substr(0, 2);
    const std::wstring hidden = drive.root() + L"oculto";
    for (const Way way : every_way) {
        for (const bool has_hidden_entry : {false, true}) {
            if (has_hidden_entry) {
                std::filesystem::create_directory(hidden);
                ASSERT_TRUE(SetFileAttributesW(hidden.c_str(),
                                               FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM));
            }
            for (const std::wstring& root : {drive.root(), letter, letter + L"/"}) {
                const Answer answer = call_in(way, profile_.get(), L"ExisteCarpeta",
                                              {Variant(root), Variant(true), Variant(true)}, {});
                EXPECT_EQ(shown(answer.value), shown(Variant(true))) << narrow(root);
            }
            EXPECT_FALSE(exists(drive.root() + L"falta"));
            EXPECT_FALSE(exists(drive.root() + L"falta\\"));
            EXPECT_EQ(folder_of(drive.root()), drive.root());
        }
        std::filesystem::remove(hidden);
    }
}

TEST_F(ProfileAnySettings, LongAndNonLatinFolderNames) {
    BoxWatcher no_box;
    std::wstring path = folder_ / L"\u03b1\u03b2\u03b3 \u4e2d\u6587";
    EXPECT_TRUE(exists(path, true, false));
    while (path.size() < 400) {
        path += L"\\carpeta de nombre bastante largo";
        EXPECT_TRUE(exists(path, true, false)) << path.size();
        EXPECT_TRUE(exists(path, false, false));
    }
    EXPECT_FALSE(exists(path + L"\\falta", false, false));
    EXPECT_EQ(folder_of(path + L"\\*"), path + L"\\*\\");
}

TEST_F(ProfileAnySettings, TheFolderOfAFile) {
    BoxWatcher no_box;
    const std::wstring file = folder_.write(L"Factura nº 1.txt", "x");
    EXPECT_EQ(folder_of(file), folder_.path() + L"\\");
    EXPECT_EQ(folder_of(folder_ / L"falta.txt"), folder_ / L"falta.txt\\");
    // Folders are not listed: the path of one is returned unchanged.
    EXPECT_EQ(folder_of(folder_.path()), folder_.path() + L"\\");
}

TEST_F(ProfileAnySettings, OnlyOrdinaryFilesAreListed) {
    BoxWatcher no_box;
    const std::wstring file = folder_.write(L"datos.txt", "x");
    const auto folder_with = [&](DWORD attributes) {
        EXPECT_TRUE(SetFileAttributesW(file.c_str(), attributes));
        EXPECT_EQ(GetFileAttributesW(file.c_str()) & attributes, attributes);
        return narrow(folder_of(file));
    };
    EXPECT_EQ(folder_with(FILE_ATTRIBUTE_HIDDEN), narrow(file + L"\\"));
    EXPECT_EQ(folder_with(FILE_ATTRIBUTE_SYSTEM), narrow(file + L"\\"));
    EXPECT_EQ(folder_with(FILE_ATTRIBUTE_READONLY), narrow(folder_.path() + L"\\"));
    EXPECT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL));
}

TEST_F(ProfileAnySettings, APathThatEndsInABackslashIsThatOfAFolder) {
    BoxWatcher no_box;
    const std::wstring path = folder_.path() + L"\\";
    // The path of a folder without files is returned unchanged.
    EXPECT_EQ(folder_of(path), path);
    // Otherwise the path is shortened by the length of the first name found, as any path is.
    folder_.write(L"abc.txt");
    EXPECT_EQ(folder_of(path), path.substr(0, path.size() - 7) + L"\\");
}

TEST_F(ProfileAnySettings, APatternIsShortenedByTheLengthOfTheNameFound) {
    BoxWatcher boxes({answer(IDOK)});
    folder_.write(L"abc.txt");
    EXPECT_EQ(folder_of(folder_ / L"*.txt"),
              (folder_ / L"*.txt").substr(0, (folder_ / L"*.txt").size() - 7) + L"\\");
    folder_.write(std::wstring(200, L'z') + L".dat");
    SetCurrentDirectoryW(folder_.path().c_str());
    EXPECT_EQ(folder_of(L"z*"), L"");
    SetCurrentDirectoryW(L"C:\\");
    EXPECT_EQ(lines_of(boxes), (Lines{narrow(L"16|kovrel|Error 5\\r (Llamada a procedimiento o "
                                             L"argumento no válidos) en procedimiento "
                                             L"RutadeArchivo del Módulo de clase clsProfile.|1")}));
}

TEST_F(ProfileAnySettings, AFileOfADriveThatDoesNotExistIsAFailure) {
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(folder_of(L"Q:\\datos.txt"), L"");
    EXPECT_EQ(lines_of(boxes),
              (Lines{narrow(L"16|kovrel|Error 68\\r (Dispositivo no disponible) en procedimiento "
                            L"RutadeArchivo del Módulo de clase clsProfile.|1")}));
}

TEST_F(ProfileAnySettings, APathThatIsLongerThanSystemsTakeIsAFailure) {
    for (const std::size_t length :
         {std::size_t{32'748}, std::size_t{32'768}, std::size_t{65'536}}) {
        for (const wchar_t* const begin : {L"", L"C:\\", L"\\\\?\\C:\\"}) {
            const std::wstring path = begin + std::wstring(length, L'x') + L"\\*";
            BoxWatcher boxes({answer(IDOK), answer(IDOK)});
            EXPECT_EQ(folder_of(path), L"");
            EXPECT_FALSE(exists(path, true, false));
            const std::wstring failure =
                L"16|kovrel|Error 52\\r (Nombre o número de archivo incorrecto) en procedimiento ";
            EXPECT_EQ(lines_of(boxes),
                      (Lines{narrow(failure + L"RutadeArchivo del Módulo de clase clsProfile.|1"),
                             narrow(failure + L"ExisteCarpeta del Formulario frmOptions.|1")}));
        }
    }
}

TEST_F(ProfileAnySettings, FoldersInEveryWayOfCalling) {
    const std::wstring missing = folder_ / L"nueva";
    const std::wstring orphan = folder_ / L"falta\\nueva";
    const auto question_of = [](const std::wstring& path) {
        return L"La carpeta \"" + path + L"\" no existe.\r\r¿Desea crearla?";
    };
    const std::wstring about_missing = question_of(missing);
    const std::wstring about_orphan = question_of(orphan);
    const ExpectedBox refused{about_missing.c_str(), 33, L"Gestión", IDCANCEL};
    const ExpectedBox accepted{about_missing.c_str(), 33, L"Gestión"};
    const ExpectedBox created{L"Carpeta creada con éxito.", 64, L"Gestión"};
    const ExpectedBox failed{
        L"Error 76\r (No se encontró la ruta de acceso) en procedimiento ExisteCarpeta del "
        L"Formulario frmOptions.",
        16, L"kovrel"};
    for (const Way way : every_way) {
        const auto ask = [&](const std::wstring& path, bool create, bool tell,
                             const std::vector<ExpectedBox>& boxes) {
            const Answer answer = call_in(way, profile_.get(), L"ExisteCarpeta",
                                          {Variant(path), Variant(create), Variant(tell)}, boxes);
            EXPECT_EQ(answer.result, S_OK);
            // Arguments by reference are not changed.
            EXPECT_EQ(answer.arguments.at(0).to_text(), path);
            return shown(answer.value);
        };
        const std::string yes = shown(Variant(true));
        const std::string no = shown(Variant(false));
        EXPECT_EQ(ask(missing, false, true, {}), no);
        EXPECT_EQ(ask(missing, true, true, {refused}), no);
        EXPECT_FALSE(std::filesystem::exists(missing));
        EXPECT_EQ(ask(missing, true, true, {accepted, created}), yes);
        EXPECT_EQ(ask(missing, true, true, {}), yes);
        EXPECT_TRUE(std::filesystem::remove(missing));
        EXPECT_EQ(ask(missing, true, false, {}), yes);
        EXPECT_TRUE(std::filesystem::remove(missing));
        EXPECT_EQ(ask(orphan, true, false, {failed}), no);
        EXPECT_EQ(ask(orphan, true, true, {{about_orphan.c_str(), 33, L"Gestión"}, failed}), no);
    }
}

}  // namespace
}  // namespace kovrel::test
