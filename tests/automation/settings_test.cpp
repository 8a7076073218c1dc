// cgsFileOpR's INI files and path texts, as hosts call them, with real files.
#include <filesystem>
#include <gtest/gtest.h>

#include "tests/support/every_way.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {
namespace {

class IniAndPathsAnySettings : public testing::TestWithParam<Way> {
 protected:
    Answer call_for(const wchar_t* member, std::vector<Variant> arguments,
                    const std::vector<ExpectedBox>& boxes = {}) {
        return call_in(GetParam(), files_.get(), member, std::move(arguments), boxes);
    }

    std::string text_for(const wchar_t* member, std::vector<Variant> arguments,
                         const std::vector<ExpectedBox>& boxes = {}) {
        const Answer answer = call_for(member, std::move(arguments), boxes);
        EXPECT_EQ(answer.result, S_OK);
        return shown(answer.value);
    }

    std::string read(const wchar_t* section, const wchar_t* key,
                     const Variant& otherwise = Variant::missing()) {
        std::vector<Variant> arguments{file(), Variant(section), Variant(key), otherwise};
        std::string value = text_for(L"GetSetting", arguments);
        EXPECT_EQ(text_for(L"LeerIni", arguments), value);
        return value;
    }

    void save(const wchar_t* section, const wchar_t* key, const std::wstring& value,
              const wchar_t* member = L"SaveSetting") {
        EXPECT_EQ(call_for(member, {file(), Variant(section), Variant(key), Variant(value)}).result,
                  S_OK);
    }

    [[nodiscard]] Variant file() const { return Variant(file_); }

    ComPtr<IDispatch> files_ = create(L"Kovrel.cgsFileOpR");
    TestFolder folder_{L"Ajustes ñ"};
    std::wstring file_ = folder_ / L"ajustes año.ini";
};

TEST_P(IniAndPathsAnySettings, SavedValuesAreReadBack) {
    const BoxWatcher no_box;
    save(L"General", L"Título", L"Facturación");
    EXPECT_EQ(read(L"General", L"Título"), "texto Facturación");
    EXPECT_EQ(read(L"GENERAL", L"Título"), "texto Facturación");
    save(L"General", L"Título", L"Año nuevo", L"GuardarIni");
    EXPECT_EQ(read(L"General", L"Título", Variant(L"otro")), "texto Año nuevo");
    // In the system's 8-bit code page.
    EXPECT_NE(content_of(file_).find("T\xEDtulo=A\xF1o nuevo"), std::string::npos);
    // Characters that the code page lacks become "?".
    save(L"General", L"Griego", L"\x0391 y \x4E00");
    EXPECT_EQ(read(L"General", L"Griego").substr(0, 6), "texto ");
    EXPECT_NE(read(L"General", L"Griego").find(" y ?"), std::string::npos);
}

// Characters that the code page lacks become "?", never a similar letter, so that no section or key
// of another name is read or written.
TEST_P(IniAndPathsAnySettings, SectionsAndKeysMatchOnlyThemselves) {
    const BoxWatcher no_box;
    save(L"secO", L"claveO", L"ajeno");
    EXPECT_EQ(read(L"sec\x03A9", L"claveO"), "texto ");
    EXPECT_EQ(read(L"secO", L"clave\x03A9"), "texto ");
    save(L"sec\x03A9", L"clave\x03A9", L"omega \x03A9");
    EXPECT_EQ(read(L"sec\x03A9", L"clave\x03A9"), "texto omega ?");
    EXPECT_EQ(read(L"secO", L"claveO"), "texto ajeno");
    EXPECT_EQ(read(L"secO", L"clave\x03A9"), "texto ");
    EXPECT_NE(content_of(file_).find("[sec?]"), std::string::npos);
    EXPECT_NE(content_of(file_).find("clave?=omega ?"), std::string::npos);
    EXPECT_EQ(
        call_for(L"DeleteSetting", {file(), Variant(L"secO"), Variant(L"clave\x03A9")}).result,
        S_OK);
    EXPECT_EQ(call_for(L"DeleteSetting", {file(), Variant(L"sec\x03A9")}).result, S_OK);
    EXPECT_EQ(read(L"sec\x03A9", L"clave\x03A9"), "texto ");
    EXPECT_EQ(read(L"secO", L"claveO"), "texto ajeno");
    EXPECT_EQ(read(L"General", L"Falta", Variant(L"\x03A9")), "texto ?");
}

TEST_P(IniAndPathsAnySettings, AFileNameThatTheCodePageLacksMatchesNoOther) {
    const BoxWatcher no_box;
    folder_.write(L"O.ini", "[a]\r\nb=ajeno\r\n");
    const Variant greek(folder_ / L"\x03A9.ini");
    EXPECT_EQ(text_for(L"GetSetting", {greek, Variant(L"a"), Variant(L"b"), Variant(7)}),
              "texto 7");
    EXPECT_EQ(
        call_for(L"SaveSetting", {greek, Variant(L"a"), Variant(L"b"), Variant(L"propio")}).result,
        S_OK);
    EXPECT_EQ(content_of(folder_ / L"O.ini"), "[a]\r\nb=ajeno\r\n");
    EXPECT_FALSE(std::filesystem::exists(folder_ / L"\x03A9.ini"));
    const std::filesystem::directory_iterator entries{std::filesystem::path(folder_.path())};
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST_P(IniAndPathsAnySettings, ThePlatformsOwnRulesForValues) {
    const BoxWatcher no_box;
    save(L"Valores", L"vacío", L"");
    EXPECT_EQ(read(L"Valores", L"vacío", Variant(L"otro")), "texto otro");
    save(L"Valores", L"comillas", L"\"  entre comillas  \"");
    EXPECT_EQ(read(L"Valores", L"comillas"), "texto   entre comillas  ");
    save(L"Valores", L"signos", L"a=b;c[d]");
    EXPECT_EQ(read(L"Valores", L"signos"), "texto a=b;c[d]");
}

TEST_P(IniAndPathsAnySettings, Defaults) {
    const BoxWatcher no_box;
    EXPECT_EQ(read(L"General", L"Falta"), "texto ");
    EXPECT_EQ(read(L"General", L"Falta", Variant(5)), "texto 5");
    EXPECT_EQ(read(L"General", L"Falta", Variant(2.5)), "texto " + narrow(Variant(2.5).to_text()));
    EXPECT_EQ(read(L"General", L"Falta", Variant(L"por defecto ñ")), "texto por defecto ñ");
    EXPECT_EQ(read(L"General", L"Falta", Variant(L"")), "texto ");
    EXPECT_EQ(read(L"General", L"Falta", Variant()), "texto ");
    // A default is cut to the same buffer.
    EXPECT_EQ(read(L"General", L"Falta", Variant(std::wstring(300, L'd'))),
              "texto " + std::string(254, 'd'));
    EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_P(IniAndPathsAnySettings, LongValuesAreCut) {
    const BoxWatcher no_box;
    for (const std::size_t length : {253U, 254U, 255U, 300U, 3000U}) {
        save(L"Largos", L"valor", std::wstring(length, L'x'));
        EXPECT_EQ(read(L"Largos", L"valor"),
                  "texto " + std::string(std::min<std::size_t>(length, 254), 'x'));
    }
    save(L"Largos", L"eñes", std::wstring(300, L'ñ'));
    EXPECT_EQ(read(L"Largos", L"eñes"), shown(Variant(std::wstring(254, L'ñ'))));
    // The file holds the whole value.
    EXPECT_NE(content_of(file_).find(std::string(3000, 'x')), std::string::npos);
}

TEST_P(IniAndPathsAnySettings, DeletedKeysAndSections) {
    const BoxWatcher no_box;
    save(L"Uno", L"a", L"1");
    save(L"Uno", L"b", L"2");
    save(L"Dos", L"a", L"3");
    EXPECT_EQ(call_for(L"DeleteSetting", {file(), Variant(L"Uno"), Variant(L"a")}).result, S_OK);
    EXPECT_EQ(read(L"Uno", L"a"), "texto ");
    EXPECT_EQ(read(L"Uno", L"b"), "texto 2");
    EXPECT_EQ(call_for(L"DeleteSetting", {file(), Variant(L"Uno")}).result, S_OK);
    EXPECT_EQ(read(L"Uno", L"b"), "texto ");
    EXPECT_EQ(read(L"Dos", L"a"), "texto 3");
    EXPECT_EQ(call_for(L"DeleteSetting", {file(), Variant(L"Dos"), Variant(L"")}).result, S_OK);
    EXPECT_EQ(read(L"Dos", L"a"), "texto ");
    EXPECT_EQ(content_of(file_).find("Dos"), std::string::npos);
    // Nothing there to delete.
    EXPECT_EQ(call_for(L"DeleteSetting", {file(), Variant(L"Tres"), Variant(L"x")}).result, S_OK);
}

TEST_P(IniAndPathsAnySettings, FailedWritesShowNothing) {
    const BoxWatcher no_box;
    save(L"Uno", L"a", L"1");
    // A read-only file, and one that another program has open. Privileged users can write the
    // read-only one, so the value stays the same.
    ASSERT_TRUE(SetFileAttributesW(file_.c_str(), FILE_ATTRIBUTE_READONLY));
    save(L"Uno", L"a", L"1");
    ASSERT_TRUE(SetFileAttributesW(file_.c_str(), FILE_ATTRIBUTE_NORMAL));
    HANDLE const held = CreateFileW(file_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    save(L"Uno", L"a", L"2");
    call_for(L"DeleteSetting", {file(), Variant(L"Uno")});
    CloseHandle(held);
    // Read from the file, since the system caches INI files.
    EXPECT_NE(content_of(file_).find("a=1"), std::string::npos);
    const Variant nowhere(folder_ / L"no hay\\x.ini");
    EXPECT_EQ(
        call_for(L"GuardarIni", {nowhere, Variant(L"a"), Variant(L"b"), Variant(L"c")}).result,
        S_OK);
    EXPECT_EQ(text_for(L"LeerIni", {nowhere, Variant(L"a"), Variant(L"b"), Variant(7)}), "texto 7");
}

TEST_P(IniAndPathsAnySettings, ANullDefaultShowsTheErrorBox) {
    // LeerIni calls GetSetting, which shows the box.
    for (const wchar_t* const member : {L"GetSetting", L"LeerIni"}) {
        EXPECT_EQ(text_for(member, {file(), Variant(L"a"), Variant(L"b"), Variant::null()},
                           {{L"Error 94\r (Uso no válido de Null) en procedimiento GetSetting del "
                             L"Módulo de clase cgsFileOpR.",
                             16, L"kovrel"}}),
                  "texto ");
    }
}

TEST_P(IniAndPathsAnySettings, PathsAreSplit) {
    const BoxWatcher no_box;
    const auto split = [&](const wchar_t* path, const char* folder, const char* name,
                           const char* extension) {
        const Answer answer =
            call_for(L"SplitPath", {Variant(path), Variant(L"?"), Variant(L"?"), Variant(L"?")});
        EXPECT_EQ(answer.result, S_OK);
        const bool written = GetParam() != Way::values;
        EXPECT_EQ(shown(answer.arguments[1]), std::string("texto ") + (written ? folder : "?"));
        EXPECT_EQ(shown(answer.arguments[2]), std::string("texto ") + (written ? name : "?"));
        EXPECT_EQ(shown(answer.arguments[3]), std::string("texto ") + (written ? extension : "?"));
    };
    split(L"C:\\Datos\\año\\factura.tar.gz", "C:\\Datos\\año", "factura.tar.gz", "gz");
    split(L"C:\\Datos\\factura", "C:\\Datos", "factura", "*");
    split(L"factura.txt", "", "factura.txt", "txt");
    split(L"factura", "", "factura", "*");
    split(L"C:\\v1.2\\factura", "C:\\v1.2", "factura", "2\\factura");
    split(L"C:\\Datos\\factura.", "C:\\Datos", "factura.", "*");
    split(L"\\x", "", "x", "*");
    split(L"C:\\Datos\\", "C:\\Datos", "", "*");
    split(L"", "", "", "*");
}

TEST_P(IniAndPathsAnySettings, OutputVariablesBecomeTexts) {
    // As scripts pass variables without a value.
    const Answer answer =
        call_for(L"SplitPath", {Variant(L"C:\\a\\b.c"), Variant(L""), Variant(), Variant::null()});
    EXPECT_EQ(answer.result, S_OK);
    if (GetParam() == Way::values) return;
    EXPECT_EQ(shown(answer.arguments[1]), "texto C:\\a");
    EXPECT_EQ(shown(answer.arguments[2]), "texto b.c");
    EXPECT_EQ(shown(answer.arguments[3]), "texto c");
}

TEST_P(IniAndPathsAnySettings, TheFolderAlone) {
    const Answer answer = call_for(L"SplitPath", {Variant(L"C:\\a\\b.c"), Variant(L"?")});
    EXPECT_EQ(answer.result, S_OK);
    if (GetParam() != Way::values) {
        EXPECT_EQ(shown(answer.arguments[1]), "texto C:\\a");
    }
}

TEST_P(IniAndPathsAnySettings, TextsAreRemovedAndReplaced) {
    const BoxWatcher no_box;
    const auto without = [&](const std::wstring& text, const std::wstring& searched) {
        return text_for(L"QuitarCaracterEx", {Variant(text), Variant(searched)});
    };
    const auto with = [&](const std::wstring& text, const std::wstring& searched,
                          const Variant& replacement) {
        return text_for(L"QuitarCaracterEx", {Variant(text), Variant(searched), replacement});
    };
    // Of two adjacent occurrences only the first is removed.
    EXPECT_EQ(without(L"aab", L"a"), "texto ab");
    EXPECT_EQ(without(L"aaaa", L"a"), "texto aa");
    EXPECT_EQ(without(L"12.345.678", L"."), "texto 12345678");
    EXPECT_EQ(without(L"aBCaBCa", L"BC"), "texto aaa");
    EXPECT_EQ(without(L"año", L"Ñ"), "texto año");
    EXPECT_EQ(without(L"abc", L""), "texto abc");
    EXPECT_EQ(with(L"aab", L"a", Variant(L"")), "texto b");
    EXPECT_EQ(with(L"1.000.000", L".", Variant(L",")), "texto 1,000,000");
    EXPECT_EQ(with(L"a-b", L"-", Variant(7)), "texto a7b");
    EXPECT_EQ(with(L"a-b", L"-", Variant()), "texto ab");
    EXPECT_EQ(with(L"abc", L"-", Variant(L"--")), "texto abc");
    // Nothing searched for: what would replace it is not looked at.
    EXPECT_EQ(with(L"abc", L"", Variant::null()), "texto abc");
    // A buffer of the system's.
    using namespace std::string_literals;
    EXPECT_EQ(without(L"C:\\Datos\0\0\0"s, L"\0"s), "texto C:\\Datos");
    EXPECT_EQ(without(L"uno\0dos\0\0"s, L"\0"s), "texto unodos");
    EXPECT_EQ(with(L"uno\0dos\0\0"s, L"\0"s, Variant(L"; ")), "texto uno; dos");
    EXPECT_EQ(without(L"a\0bc"s, L"\0b"s), "texto abc");
    EXPECT_EQ(without(L"\0\0"s, L"\0"s), "texto ");
}

TEST_P(IniAndPathsAnySettings, AnEndlessReplacementShowsTheErrorBox) {
    const ExpectedBox box{
        L"Error 7\r (Memoria insuficiente) en procedimiento QuitarCaracterEx del "
        L"Módulo de clase cgsFileOpR.",
        16, L"kovrel"};
    using namespace std::string_literals;
    EXPECT_EQ(
        text_for(L"QuitarCaracterEx", {Variant(L"a-b"), Variant(L"-"), Variant(L"--")}, {box}),
        "texto ");
    EXPECT_EQ(text_for(L"QuitarCaracterEx", {Variant(L"a\0b"s), Variant(L"\0"s), Variant(L"x\0"s)},
                       {box}),
              "texto ");
    EXPECT_EQ(
        text_for(L"QuitarCaracterEx", {Variant(L"a-b"), Variant(L"-"), Variant::null()},
                 {{L"Error 94\r (Uso no válido de Null) en procedimiento QuitarCaracterEx del "
                   L"Módulo de clase cgsFileOpR.",
                   16, L"kovrel"}}),
        "texto ");
    EXPECT_EQ(text_for(L"AddBackSlash", {Variant(L"vivo")}), "texto vivo\\");
}

TEST_P(IniAndPathsAnySettings, Backslashes) {
    const BoxWatcher no_box;
    EXPECT_EQ(text_for(L"AddBackSlash", {Variant(L"C:\\Datos")}), "texto C:\\Datos\\");
    EXPECT_EQ(text_for(L"AddBackSlash", {Variant(L"C:\\")}), "texto C:\\");
    EXPECT_EQ(text_for(L"AddBackSlash", {Variant(L"/")}), "texto /\\");
    EXPECT_EQ(text_for(L"AddBackSlash", {Variant(L"")}), "texto ");
    EXPECT_EQ(text_for(L"QuitarBackSlash", {Variant(L"C:\\Datos\\")}), "texto C:\\Datos");
    EXPECT_EQ(text_for(L"QuitarBackSlash", {Variant(L"C:\\Datos\\\\")}), "texto C:\\Datos\\");
    EXPECT_EQ(text_for(L"QuitarBackSlash", {Variant(L"C:\\Datos")}), "texto C:\\Datos");
    EXPECT_EQ(text_for(L"QuitarBackSlash", {Variant(L"\\")}), "texto ");
    EXPECT_EQ(text_for(L"QuitarBackSlash", {Variant(L"")}), "texto ");
}

/// Booleans read as the user's own words for them.
class Settings : public IniAndPathsAnySettings {};

TEST_P(Settings, BooleansAreStoredAsWords) {
    EXPECT_EQ(read(L"General", L"Falta", Variant(true)), "texto Verdadero");
    EXPECT_EQ(read(L"General", L"Falta", Variant(false)), "texto Falso");
    const auto with = [&](bool replacement) {
        return text_for(L"QuitarCaracterEx",
                        {Variant(L"a-b"), Variant(L"-"), Variant(replacement)});
    };
    EXPECT_EQ(with(true), "texto aVerdaderob");
    EXPECT_EQ(with(false), "texto aFalsob");
}

INSTANTIATE_TEST_SUITE_P(All, IniAndPathsAnySettings, testing::ValuesIn(every_way));
INSTANTIATE_TEST_SUITE_P(All, Settings, testing::ValuesIn(every_way));

}  // namespace
}  // namespace kovrel::test
