// clsProfile as hosts call it: folders, path texts, INI values and the system's folder browser.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <gtest/gtest.h>

#include "tests/support/box_lines.h"
#include "tests/support/every_way.h"
#include "tests/support/import_patch.h"
#include "tests/support/own_drive.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {
namespace {

class Profile : public testing::Test {
 protected:
    Profile() { put(profile_.get(), L"AppOrigen", Variant(L"Gestión")); }

    bool exists(const std::wstring& path) {
        return flag(call(profile_.get(), L"ExisteCarpeta", {path}));
    }
    bool exists(const std::wstring& path, bool create, bool tell) {
        return flag(call(profile_.get(), L"ExisteCarpeta", {path, create, tell}));
    }
    static bool flag(const Outcome& outcome) {
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_BOOL);
        return outcome.value.boolVal != VARIANT_FALSE;
    }
    std::wstring folder_of(const std::wstring& path) {
        return text_of_result(call(profile_.get(), L"RutadeArchivo", {path}));
    }
    static std::string question(const std::wstring& path, int pressed) {
        return narrow(L"33|Gestión|" +
                      escaped(L"La carpeta \"" + path + L"\" no existe.\r\r¿Desea crearla?") +
                      L"|" + std::to_wstring(pressed));
    }
    static std::wstring escaped(const std::wstring& text) {
        SeenBox box;
        box.text = text;
        const std::wstring line = as_line(box);
        return line.substr(3, line.rfind(L'|') - 3);
    }

    TestFolder folder_;
    ComPtr<IDispatch> profile_ = create(L"Kovrel.clsProfile");
};

/// Members whose result does not depend on the user's settings.
class ProfileAnySettings : public Profile {};

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
    BoxWatcher boxes({answer(IDOK, L"profile_create"), answer(IDOK)});
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

TEST_F(ProfileAnySettings, Backslashes) {
    BoxWatcher no_box;
    const auto add = [&](const wchar_t* path) {
        return text_of_result(call(profile_.get(), L"AñadirBackSlash", {path}));
    };
    const auto remove = [&](const wchar_t* path) {
        return text_of_result(call(profile_.get(), L"QuitarBackSlash", {path}));
    };
    EXPECT_EQ(add(L""), L"");
    EXPECT_EQ(add(L"C:\\Año"), L"C:\\Año\\");
    EXPECT_EQ(add(L"C:\\"), L"C:\\");
    EXPECT_EQ(add(L"C:/"), L"C:/\\");
    EXPECT_EQ(remove(L""), L"");
    EXPECT_EQ(remove(L"C:\\a\\\\"), L"C:\\a\\");
    EXPECT_EQ(remove(L"\\"), L"");
    EXPECT_EQ(remove(L"C:\\a"), L"C:\\a");
}

TEST_F(ProfileAnySettings, IniValuesAreWrittenAndRead) {
    BoxWatcher no_box;
    const std::wstring file = folder_ / L"opciones.ini";
    const auto read = [&](const wchar_t* key) {
        return text_of_result(call(profile_.get(), L"LeerIni", {file, L"Sección", key}));
    };
    const auto save = [&](const wchar_t* key, const std::wstring& value) {
        EXPECT_EQ(call(profile_.get(), L"GuardarIni", {file, L"Sección", key, value}).result, S_OK);
    };
    EXPECT_EQ(read(L"falta"), L"");
    save(L"Año", L"ñandú €");
    EXPECT_EQ(read(L"Año"), L"ñandú €");
    EXPECT_EQ(content_of(file).find("\xF1"
                                    "and\xFA \x80") != std::string::npos,
              true);
    save(L"largo", std::wstring(300, L'x'));
    EXPECT_EQ(read(L"largo"), std::wstring(254, L'x'));
    save(L"justo", std::wstring(254, L'y'));
    EXPECT_EQ(read(L"justo"), std::wstring(254, L'y'));
    save(L"vacío", L"");
    EXPECT_EQ(read(L"vacío"), L"");
}

TEST_F(Profile, DefaultsOfMissingIniValues) {
    const std::wstring file = folder_ / L"falta.ini";
    const auto read = [&](const LateArgument& otherwise) {
        return text_of_result(call(profile_.get(), L"LeerIni", {file, L"a", L"b", otherwise}));
    };
    {
        BoxWatcher no_box;
        EXPECT_EQ(read(std::int16_t{5}), L"5");
        EXPECT_EQ(read(1.5), L"1,5");
        EXPECT_EQ(read(true), L"Verdadero");
        EXPECT_EQ(read(false), L"Falso");
        EXPECT_EQ(read(L"por defecto"), L"por defecto");
        EXPECT_EQ(read(L""), L"");
        EXPECT_EQ(read(LateArgument::missing()), L"");
        EXPECT_EQ(read(Variant()), L"");
        EXPECT_EQ(read(std::wstring(300, L'd')), std::wstring(254, L'd'));
        EXPECT_EQ(read(L"\u03c9 omega"), read(L"\u03c9 omega"));
    }
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(read(Variant::null()), L"");
    EXPECT_EQ(lines_of(boxes),
              (Lines{narrow(L"16|kovrel|Error 94\\r (Uso no válido de Null) en procedimiento "
                            L"LeerIni del Módulo clsProfile.|1")}));
}

TEST_F(ProfileAnySettings, TheCallersVariablesAreWrittenBackInTheCodePage) {
    BoxWatcher no_box;
    Variant file(folder_ / L"v.ini");
    Variant section(L"\u4e2d");
    Variant key(L"clave ñ");
    Variant value(L"\u4e2d\u6587 ñ");
    EXPECT_EQ(call(profile_.get(), L"GuardarIni",
                   {LateArgument::variable(file), LateArgument::variable(section),
                    LateArgument::variable(key), LateArgument::variable(value)})
                  .result,
              S_OK);
    EXPECT_EQ(section.to_text(), L"?");
    EXPECT_EQ(key.to_text(), L"clave ñ");
    EXPECT_EQ(value.to_text(), L"?? ñ");
    section = Variant(L"\u4e2d");
    EXPECT_EQ(text_of_result(call(profile_.get(), L"LeerIni",
                                  {LateArgument::variable(file), LateArgument::variable(section),
                                   LateArgument::variable(key)})),
              L"?? ñ");
    EXPECT_EQ(section.to_text(), L"?");
}

TEST_F(ProfileAnySettings, TextsAreWrittenBackInTheCodePageInEveryWayOfCalling) {
    BoxWatcher no_box;
    for (const Way way : ways_that_write_back) {
        SCOPED_TRACE(name_of(way));
        const Variant file(folder_ / L"\u4e2d.ini");
        const Variant text(L"\u4e2d ñ");
        const Answer saved = call_in(way, profile_.get(), L"GuardarIni", {file, text, text, text});
        EXPECT_EQ(saved.result, S_OK);
        const Answer read = call_in(way, profile_.get(), L"LeerIni", {file, text, text, text});
        // No file can have such a name, so the default is returned.
        EXPECT_EQ(shown(read.value), "texto ? ñ");
        for (const Answer& answer : {saved, read}) {
            EXPECT_EQ(narrow(answer.arguments.at(0).to_text()), narrow(folder_ / L"?.ini"));
            EXPECT_EQ(narrow(answer.arguments.at(1).to_text()), "? ñ");
            EXPECT_EQ(narrow(answer.arguments.at(2).to_text()), "? ñ");
        }
        EXPECT_EQ(narrow(saved.arguments.at(3).to_text()), "? ñ");
        // The default alone is not converted.
        EXPECT_EQ(read.arguments.at(3).to_text(), L"\u4e2d ñ");
    }
}

TEST_F(ProfileAnySettings, PathsInEveryWayOfCalling) {
    BoxWatcher no_box;
    const std::wstring file = folder_.write(L"Factura nº 1.txt", "x");
    const std::string folder = narrow(L"texto " + folder_.path());
    for (const Way way : every_way) {
        const auto of = [&](const wchar_t* member, const std::wstring& path) {
            const Answer answer = call_in(way, profile_.get(), member, {Variant(path)});
            EXPECT_EQ(answer.result, S_OK);
            EXPECT_EQ(answer.arguments.at(0).to_text(), path);
            return shown(answer.value);
        };
        EXPECT_EQ(of(L"AñadirBackSlash", folder_.path()), folder + "\\");
        EXPECT_EQ(of(L"QuitarBackSlash", folder_.path() + L"\\"), folder);
        EXPECT_EQ(of(L"RutadeArchivo", file), folder + "\\");
        EXPECT_EQ(of(L"RutadeArchivo", folder_ / L"falta"), folder + "\\falta\\");
    }
}

TEST_F(ProfileAnySettings, AFailedReadLeavesTheVariablesUnchanged) {
    const std::wstring omega = L"\u03c9";
    for (const Way way : every_way) {
        const Answer answer = call_in(
            way, profile_.get(), L"LeerIni",
            {Variant(folder_ / L"v.ini"), Variant(omega), Variant(omega), Variant::null()},
            {{L"Error 94\r (Uso no válido de Null) en procedimiento LeerIni del Módulo clsProfile.",
              16, L"kovrel"}});
        EXPECT_EQ(answer.result, S_OK);
        EXPECT_EQ(shown(answer.value), "texto ");
        EXPECT_EQ(answer.arguments.at(1).to_text(), omega);
        EXPECT_EQ(answer.arguments.at(2).to_text(), omega);
    }
}

TEST_F(ProfileAnySettings, AWriteThatFailsIsSilent) {
    BoxWatcher no_box;
    EXPECT_EQ(
        call(profile_.get(), L"GuardarIni", {folder_ / L"falta\\x.ini", L"a", L"b", L"c"}).result,
        S_OK);
    EXPECT_FALSE(std::filesystem::exists(folder_ / L"falta"));
}

TEST_F(ProfileAnySettings, EarlyBound) {
    using Exists =
        HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*, VARIANT_BOOL*, VARIANT_BOOL*, VARIANT_BOOL*);
    using Text = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR, BSTR*);
    using Read = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*, BSTR*, BSTR*, VARIANT*, BSTR*);
    using Save = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*, BSTR*, BSTR*, BSTR*);
    BoxWatcher no_box;
    const Bstr path(folder_ / L"nueva");
    BSTR raw = path.get();
    VARIANT_BOOL create = VARIANT_TRUE;
    VARIANT_BOOL tell = VARIANT_FALSE;
    VARIANT_BOOL result = VARIANT_FALSE;
    EXPECT_EQ(early<Exists>(profile_.get(), L"ExisteCarpeta")(profile_.get(), &raw, &create, &tell,
                                                              &result),
              S_OK);
    EXPECT_EQ(result, VARIANT_TRUE);
    Bstr text;
    EXPECT_EQ(
        early<Text>(profile_.get(), L"AñadirBackSlash")(profile_.get(), path.get(), text.put()),
        S_OK);
    EXPECT_EQ(text.view(), folder_ / L"nueva\\");
    BSTR file = SysAllocString((folder_ / L"e.ini").c_str());
    BSTR section = SysAllocString(L"\u03a9");
    BSTR key = SysAllocString(L"k");
    BSTR value = SysAllocString(L"valor");
    EXPECT_EQ(
        early<Save>(profile_.get(), L"GuardarIni")(profile_.get(), &file, &section, &key, &value),
        S_OK);
    Variant missing = Variant::missing();
    EXPECT_EQ(early<Read>(profile_.get(), L"LeerIni")(profile_.get(), &file, &section, &key,
                                                      &missing, text.put()),
              S_OK);
    EXPECT_EQ(text.view(), L"valor");
    EXPECT_NE(text_of(section), L"\u03a9");
    for (BSTR owned : {file, section, key, value}) SysFreeString(owned);
}

const WindowQuery browser{L"#32770", {}, 0};  // the system's folder browser

void press(HWND dialog, int button) {
    PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
}

TEST_F(Profile, TheBrowserBeginsAtTheFolderGivenAndReturnsTheOneChosen) {
    std::filesystem::create_directory(folder_ / L"Año");
    // Wine's browser sometimes opens without a selected folder; it is then cancelled and reopened.
    bool opened_on_folder = false;
    for (int attempts = 0; attempts < 10 && !opened_on_folder; ++attempts) {
        std::wstring prompt;
        BoxWatcher windows({on_window(browser, [&](HWND dialog) {
            opened_on_folder = wait_until(
                [&] {
                    HWND tree = find_control(dialog, L"SysTreeView32");
                    return tree != nullptr && ask(tree, TVM_GETNEXTITEM, TVGN_CARET) != 0;
                },
                Milliseconds{2000});
            for (const Control& control : controls_of(dialog)) {
                const bool is_text = control.window_class == L"Static" && !control.text.empty();
                if (is_text && prompt.empty()) prompt = control.text;
            }
            if (opened_on_folder) save_picture(dialog, picture_folder() / L"folder_browser.png");
            press(dialog, opened_on_folder ? IDOK : IDCANCEL);
        })});
        const std::wstring chosen = text_of_result(
            call(profile_.get(), L"BrowseForFolder", {0, L"Elija la carpeta ñ", folder_ / L"Año"}));
        EXPECT_EQ(chosen, opened_on_folder ? folder_ / L"Año" : std::wstring());
        EXPECT_EQ(prompt, L"Elija la carpeta ñ");
    }
    EXPECT_TRUE(opened_on_folder);
}

TEST_F(Profile, AnEmptyPromptShowsNone) {
    const auto texts_with = [&](const wchar_t* prompt) {
        std::vector<std::wstring> texts;
        BoxWatcher windows({on_window(browser, [&](HWND dialog) {
            for (const Control& control : controls_of(dialog)) {
                if (control.window_class == L"Static") texts.push_back(control.text);
            }
            press(dialog, IDCANCEL);
        })});
        EXPECT_EQ(text_of_result(call(profile_.get(), L"BrowseForFolder", {0, prompt})), L"");
        return texts;
    };
    auto texts = texts_with(L"Elija");
    const auto prompt = std::find(texts.begin(), texts.end(), L"Elija");
    ASSERT_NE(prompt, texts.end());
    // The other texts are unchanged.
    *prompt = L"";
    EXPECT_EQ(texts_with(L""), texts);
}

TEST_F(Profile, ACancelledBrowseIsEmpty) {
    BoxWatcher windows({on_window(browser, [](HWND dialog) { press(dialog, IDCANCEL); }),
                        on_window(browser, [](HWND dialog) { press(dialog, IDCANCEL); })});
    EXPECT_EQ(text_of_result(call(profile_.get(), L"BrowseForFolder", {0, L""})), L"");
    EXPECT_EQ(text_of_result(call(profile_.get(), L"BrowseForFolder", {0, L"x", L"Q:\\falta"})),
              L"");
}

}  // namespace
}  // namespace kovrel::test
