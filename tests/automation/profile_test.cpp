// clsProfile's path texts, INI values and the system's folder browser.
#include "tests/automation/profile.h"

#include <windows.h>
#include <commctrl.h>

#include <algorithm>

namespace kovrel::test {
namespace {

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
