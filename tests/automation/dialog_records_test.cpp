// The structures that the library passes to the system's dialogs, field by field, and what it makes
// of every answer that a dialog can give.
#include <windows.h>
#include <commdlg.h>
#include <shlobj.h>

#include <cstddef>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <optional>

#include "tests/support/every_way.h"
#include "tests/support/import_patch.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {
namespace {

using namespace std::string_literals;

constexpr std::size_t buffer_size = 260;
const Variant missing = Variant::missing();

/// The bytes of a list that ends in two zeros.
std::string list_at(const char* list) {
    std::size_t length = 0;
    while (list[length] != '\0' || list[length + 1] != '\0') ++length;
    return {list, length + 2};
}

std::string padded(std::string text) {
    text.resize(buffer_size);
    return text;
}

/// The open-file dialog's structure as passed, with copies of what it points to.
struct OpenRecord {
    OPENFILENAME_NT4A record;
    std::string filter;
    std::string file;
    std::string file_title;
    std::string folder;
    std::string title;
    std::string extension;
    std::string template_name;
};

std::vector<OpenRecord> opened;
/// How the replacement of the dialog fills in the structure; without it the dialog is cancelled.
std::function<void(OPENFILENAME_NT4A&)> answer_open;

BOOL WINAPI stand_in_for_open(OPENFILENAMEA* given) {
    OPENFILENAME_NT4A record{};
    std::memcpy(&record, given, std::min<std::size_t>(given->lStructSize, sizeof record));
    opened.push_back({record, list_at(record.lpstrFilter), std::string(record.lpstrFile, 260),
                      std::string(record.lpstrFileTitle, 260),
                      std::string(record.lpstrInitialDir, 260), record.lpstrTitle,
                      record.lpstrDefExt, reinterpret_cast<const char*>(record.lpTemplateName)});
    if (!answer_open) return FALSE;
    answer_open(record);
    // Output fields that the library does not pass on to the host.
    given->Flags = 0x0100'0000;
    given->nFilterIndex = 77;
    given->nFileOffset = 3;
    return TRUE;
}

class OpenRecordsAnySettings : public testing::TestWithParam<Way> {
 protected:
    OpenRecordsAnySettings() {
        opened.clear();
        answer_open = nullptr;
    }
    ~OpenRecordsAnySettings() override { answer_open = nullptr; }

    void set(const wchar_t* member, const Variant& value) {
        EXPECT_EQ(put(files_.get(), member, value).result, S_OK) << narrow(member);
    }
    std::string read(const wchar_t* member) {
        return narrow(get(files_.get(), member).value.to_text());
    }
    bool show(std::vector<Variant> arguments = {}, const std::vector<ExpectedBox>& boxes = {}) {
        const Answer answer =
            call_in(GetParam(), files_.get(), L"ShowOpen", std::move(arguments), boxes);
        EXPECT_EQ(answer.result, S_OK);
        EXPECT_EQ(answer.value.vt, VT_BOOL);
        return answer.value.boolVal != VARIANT_FALSE;
    }
    /// The record of one cancelled dialog.
    OpenRecord record_of(std::vector<Variant> arguments = {}) {
        opened.clear();
        EXPECT_FALSE(show(std::move(arguments)));
        EXPECT_EQ(opened.size(), 1U);
        return opened.empty() ? OpenRecord{} : opened.front();
    }

    ComPtr<IDispatch> files_ = create(L"Kovrel.cgsFileOpR");
    const ImportPatch patch_{L"kovrel.dll", "GetOpenFileNameA",
                             reinterpret_cast<void*>(&stand_in_for_open)};
};

TEST_P(OpenRecordsAnySettings, WithNothingSet) {
    ASSERT_TRUE(patch_.in_place());
    const OpenRecord shown = record_of();
    EXPECT_EQ(shown.record.lStructSize, sizeof(void*) == 4 ? 76U : 136U);
    EXPECT_EQ(shown.record.hwndOwner, nullptr);
    EXPECT_EQ(shown.record.hInstance, nullptr);
    EXPECT_EQ(shown.filter, "Todos los Archivos (*.*)\0*.*\0\0"s);
    EXPECT_EQ(shown.record.lpstrCustomFilter, nullptr);
    EXPECT_EQ(shown.record.nMaxCustFilter, 0U);
    EXPECT_EQ(shown.record.nFilterIndex, 0U);
    EXPECT_EQ(shown.file, padded(""));
    EXPECT_EQ(shown.record.nMaxFile, buffer_size);
    EXPECT_EQ(shown.file_title, padded(""));
    EXPECT_EQ(shown.record.nMaxFileTitle, buffer_size);
    EXPECT_EQ(shown.folder, padded(""));
    EXPECT_EQ(shown.title, "Abrir");
    EXPECT_EQ(shown.record.Flags, 0U);
    EXPECT_EQ(shown.record.nFileOffset, 0U);
    EXPECT_EQ(shown.record.nFileExtension, 0U);
    EXPECT_EQ(shown.extension, "0");
    EXPECT_EQ(shown.record.lCustData, 0);
    EXPECT_EQ(shown.record.lpfnHook, nullptr);
    EXPECT_EQ(shown.template_name, "0");
    EXPECT_EQ(read(L"DialogTitle"), "Abrir");
}

TEST_P(OpenRecordsAnySettings, EveryPropertyHasItsField) {
    set(L"hWnd", Variant(std::int32_t{0x12345}));
    set(L"DialogTitle", Variant(L"Elija el año"));
    set(L"Flags", Variant(std::int32_t{0x1A04}));
    set(L"DefaultExt", Variant(L"txt"));
    set(L"FileName", Variant(L"año.txt"));
    set(L"FileTitle", Variant(L"título"));
    set(L"FilterIndex", Variant(std::int32_t{2}));
    set(L"InitDir", Variant(L"C:\\Datos ñ"));
    set(L"Filter", Variant(L"Textos|*.txt|Datos ñ|*.dat;*.db"));
    const OpenRecord shown = record_of();
    EXPECT_EQ(shown.record.hwndOwner, reinterpret_cast<HWND>(std::intptr_t{0x12345}));
    EXPECT_EQ(shown.title,
              "Elija el a\xF1"
              "o");
    EXPECT_EQ(shown.record.Flags, 0x1A04U);
    EXPECT_EQ(shown.file, padded("a\xF1o.txt"));
    EXPECT_EQ(shown.file_title, padded("t\xEDtulo"));
    EXPECT_EQ(shown.record.nFilterIndex, 2U);
    EXPECT_EQ(shown.folder, padded("C:\\Datos \xF1"));
    EXPECT_EQ(shown.filter, "Textos\0*.txt\0Datos \xF1\0*.dat;*.db\0\0"s);
    // The default extension is not passed to the dialog.
    EXPECT_EQ(shown.extension, "0");
    EXPECT_EQ(read(L"DefaultExt"), "txt");
    set(L"hWnd", Variant(std::int32_t{-2}));
    EXPECT_EQ(record_of().record.hwndOwner, reinterpret_cast<HWND>(std::intptr_t{-2}));
}

TEST_P(OpenRecordsAnySettings, ArgumentsComeBeforeTheProperties) {
    set(L"DialogTitle", Variant(L"Antes"));
    const OpenRecord shown =
        record_of({Variant(L"uno.txt"), Variant(L"Después"), Variant(L"Textos|*.txt"),
                   Variant(std::int32_t{0x200}), Variant(std::int32_t{7})});
    EXPECT_EQ(shown.file, padded("uno.txt"));
    EXPECT_EQ(shown.title, "Despu\xE9s");
    EXPECT_EQ(shown.filter, "Textos\0*.txt\0\0"s);
    EXPECT_EQ(shown.record.Flags, 0x200U);
    EXPECT_EQ(shown.record.hwndOwner, reinterpret_cast<HWND>(std::intptr_t{7}));
    EXPECT_EQ(record_of({missing, Variant(L"")}).title, "Abrir");
}

TEST_P(OpenRecordsAnySettings, LongTextsAreCutToTheirBuffers) {
    set(L"FileName", Variant(std::wstring(300, L'f')));
    set(L"FileTitle", Variant(std::wstring(260, L't')));
    set(L"InitDir", Variant(std::wstring(259, L'd')));
    const OpenRecord shown = record_of();
    EXPECT_EQ(shown.file, std::string(260, 'f'));
    EXPECT_EQ(shown.file_title, std::string(260, 't'));
    EXPECT_EQ(shown.folder, padded(std::string(259, 'd')));
    EXPECT_EQ(read(L"FileName"), std::string(300, 'f'));
}

TEST_P(OpenRecordsAnySettings, FiltersAsTheSystemTakesThem) {
    const auto filter = [&](const std::wstring& text) {
        set(L"Filter", Variant(text));
        return record_of().filter;
    };
    EXPECT_EQ(filter(L"A|*.a"), "A\0*.a\0\0"s);
    EXPECT_EQ(filter(L" A|*.a| "), "A\0*.a\0\0"s);
    EXPECT_EQ(filter(L"A\0*.a\0B\0*.b\0\0"s), "A\0*.a\0B\0*.b\0\0"s);
    EXPECT_EQ(filter(L"*.a"), "Todos los Archivos (*.*)\0*.*\0\0"s);
    EXPECT_EQ(filter(L""), "Todos los Archivos (*.*)\0*.*\0\0"s);
}

/// An answer that fills the three buffers.
void fill(OPENFILENAME_NT4A& record, const std::string& file, const std::string& title,
          const std::optional<std::string>& folder = std::nullopt) {
    std::copy(file.begin(), file.end(), record.lpstrFile);
    std::copy(title.begin(), title.end(), record.lpstrFileTitle);
    if (folder)
        std::copy(folder->begin(), folder->end(), const_cast<char*>(record.lpstrInitialDir));
}

TEST_P(OpenRecordsAnySettings, OneFileEndsAtTheFirstNull) {
    answer_open = [](auto& record) { fill(record, "C:\\a\\\xF1.txt\0resto"s, "\xF1.txt\0x"s); };
    set(L"InitDir", Variant(L"C:\\a"));
    set(L"FilterIndex", Variant(std::int32_t{1}));
    EXPECT_TRUE(show());
    EXPECT_EQ(read(L"FileName"), "C:\\a\\ñ.txt");
    EXPECT_EQ(read(L"FileTitle"), "ñ.txt");
    EXPECT_EQ(read(L"InitDir"), "C:\\a");
    EXPECT_EQ(read(L"Flags"), "0");
    EXPECT_EQ(read(L"FilterIndex"), "1");
}

TEST_P(OpenRecordsAnySettings, SeveralFilesAreQuotedInAllThreeBuffers) {
    set(L"Flags", Variant(std::int32_t{0x200}));
    set(L"InitDir", Variant(L" C:\\d "));
    answer_open = [](auto& record) { fill(record, "C:\\d\0a\0b \xF1.txt\0\0"s, ""s); };
    EXPECT_TRUE(show());
    EXPECT_EQ(read(L"FileName"), "\"C:\\d\" \"a\" \"b ñ.txt\"");
    EXPECT_EQ(read(L"FileTitle"), "\"\"");
    EXPECT_EQ(read(L"InitDir"), "\"C:\\d\"");
    set(L"FileName", Variant(L""));
    set(L"FileTitle", Variant(L""));
    answer_open = [](auto& record) { fill(record, "C:\\d\\a\0\0"s, "a\0b\0"s); };
    EXPECT_TRUE(show());
    EXPECT_EQ(read(L"FileName"), "\"C:\\d\\a\"");
    EXPECT_EQ(read(L"FileTitle"), "\"a\" \"b\"");
}

TEST_P(OpenRecordsAnySettings, APathThatFillsItsBufferIsReported) {
    const ExpectedBox box{
        L"Error 5\r (Llamada a procedimiento o argumento no válidos) en procedimiento ShowOpen del "
        L"Módulo de clase cgsFileOpR.",
        16, L"kovrel"};
    set(L"FileName", Variant(L"antes.txt"));
    answer_open = [](auto& record) { fill(record, std::string(260, 'x'), "x"); };
    EXPECT_FALSE(show({}, {box}));
    EXPECT_EQ(read(L"FileName"), "antes.txt");
    // One character less leaves room for the terminating null.
    answer_open = [](auto& record) { fill(record, std::string(259, 'x') + '\0', "x\0"s); };
    EXPECT_TRUE(show());
    EXPECT_EQ(read(L"FileName"), std::string(259, 'x'));
    // Several files are read to the end of the buffer without a terminating null.
    set(L"Flags", Variant(std::int32_t{0x200}));
    answer_open = [](auto& record) { fill(record, std::string(260, 'y'), "y\0"s); };
    EXPECT_TRUE(show());
    EXPECT_EQ(read(L"FileName"), "\"" + std::string(260, 'y') + "\"");
}

INSTANTIATE_TEST_SUITE_P(All, OpenRecordsAnySettings, testing::ValuesIn(every_way));

/// A message sent to the browser's window.
struct Sent {
    HWND window;
    UINT message;
    WPARAM parameter;
    std::string text;
    bool operator==(const Sent&) const = default;
};

std::vector<Sent> sent;
std::optional<BROWSEINFOA> browsed;
std::string browser_title;
/// What the replacement of the browser does before it closes; true when an item was chosen.
std::function<bool(const BROWSEINFOA&)> answer_browse;
/// The path of the chosen item; none for an item outside the file system.
std::optional<std::string> item_path;

LRESULT WINAPI stand_in_for_send(HWND window, UINT message, WPARAM parameter, LPARAM text) {
    sent.push_back({window, message, parameter, reinterpret_cast<const char*>(text)});
    return 0;
}

ITEMIDLIST* WINAPI stand_in_for_browser(BROWSEINFOA* record) {
    browsed = *record;
    browser_title = record->lpszTitle;
    if (!answer_browse || !answer_browse(*record)) return nullptr;
    auto* const item = static_cast<ITEMIDLIST*>(CoTaskMemAlloc(sizeof(ITEMIDLIST)));
    *item = {};
    return item;
}

BOOL WINAPI stand_in_for_path(const ITEMIDLIST* /*item*/, char* path) {
    // Filled with blanks, so that a path that is not written is noticed.
    EXPECT_EQ(std::string(path, buffer_size), std::string(buffer_size, ' '));
    if (!item_path) return FALSE;
    std::copy(item_path->begin(), item_path->end(), path);
    return TRUE;
}

class BrowseRecordsAnySettings : public testing::TestWithParam<Way> {
 protected:
    BrowseRecordsAnySettings() {
        sent.clear();
        browsed.reset();
        answer_browse = nullptr;
        item_path.reset();
    }
    ~BrowseRecordsAnySettings() override { answer_browse = nullptr; }

    std::string browse(std::vector<Variant> arguments, const std::vector<ExpectedBox>& boxes = {}) {
        const Answer answer =
            call_in(GetParam(), profile_.get(), L"BrowseForFolder", std::move(arguments), boxes);
        EXPECT_EQ(answer.result, S_OK);
        return shown(answer.value);
    }

    ComPtr<IDispatch> profile_ = create(L"Kovrel.clsProfile");
    const ImportPatch browser_{L"kovrel.dll", "SHBrowseForFolderA",
                               reinterpret_cast<void*>(&stand_in_for_browser)};
    const ImportPatch path_{L"kovrel.dll", "SHGetPathFromIDListA",
                            reinterpret_cast<void*>(&stand_in_for_path)};
    const ImportPatch send_{L"kovrel.dll", "SendMessageA",
                            reinterpret_cast<void*>(&stand_in_for_send)};
};

TEST_P(BrowseRecordsAnySettings, TheStructure) {
    ASSERT_TRUE(browser_.in_place() && path_.in_place() && send_.in_place());
    EXPECT_EQ(browse({Variant(std::int32_t{0x4321}), Variant(L"Elija el año")}), "texto ");
    ASSERT_TRUE(browsed);
    EXPECT_EQ(browsed->hwndOwner, reinterpret_cast<HWND>(std::intptr_t{0x4321}));
    EXPECT_EQ(browsed->pidlRoot, nullptr);
    EXPECT_EQ(browsed->pszDisplayName, nullptr);
    EXPECT_EQ(browser_title,
              "Elija el a\xF1"
              "o");
    EXPECT_EQ(browsed->ulFlags, 1U);
    EXPECT_NE(browsed->lpfn, nullptr);
    EXPECT_EQ(browsed->lParam, 0);
    EXPECT_EQ(browsed->iImage, 0);
    browse({Variant(std::int32_t{-1}), Variant(L"")});
    EXPECT_EQ(browser_title, "");
    EXPECT_EQ(browsed->hwndOwner, reinterpret_cast<HWND>(std::intptr_t{-1}));
}

TEST_P(BrowseRecordsAnySettings, TheBrowserIsToldWhereToBeginAndWhatIsSelected) {
    HWND const window = reinterpret_cast<HWND>(std::intptr_t{0x777});
    const ITEMIDLIST item{};
    const auto selection = reinterpret_cast<LPARAM>(&item);
    answer_browse = [&](const BROWSEINFOA& record) {
        EXPECT_EQ(record.lpfn(window, 1, 0, record.lParam), 0);
        item_path = "C:\\Datos \xF1\0"s;
        EXPECT_EQ(record.lpfn(window, 2, selection, record.lParam), 0);
        item_path.reset();
        EXPECT_EQ(record.lpfn(window, 2, selection, record.lParam), 0);
        for (const UINT other : {0U, 3U, 4U, 5U, 0x464U, 0xFFFFU}) {
            EXPECT_EQ(record.lpfn(window, other, selection, record.lParam), 0);
        }
        return false;
    };
    EXPECT_EQ(browse({Variant(0), Variant(L"x"), Variant(L"C:\\Año")}), "texto ");
    EXPECT_EQ(sent, (std::vector<Sent>{{window, 0x466, 1,
                                        "C:\\A\xF1"
                                        "o"},
                                       {window, 0x464, 0, "C:\\Datos \xF1"}}));
    // The next call does not begin at the folder of the one before.
    sent.clear();
    answer_browse = [&](const BROWSEINFOA& record) {
        record.lpfn(window, 1, 0, record.lParam);
        return false;
    };
    browse({Variant(0), Variant(L"x")});
    EXPECT_EQ(sent, (std::vector<Sent>{{window, 0x466, 1, ""}}));
}

TEST_P(BrowseRecordsAnySettings, TheChosenFolderEndsAtTheFirstNull) {
    answer_browse = [](const BROWSEINFOA&) { return true; };
    item_path = "C:\\Datos \xF1\0resto"s;
    EXPECT_EQ(browse({Variant(0), Variant(L"x")}), "texto C:\\Datos ñ");
    item_path = std::string(259, 'c') + '\0';
    EXPECT_EQ(browse({Variant(0), Variant(L"x")}), "texto " + std::string(259, 'c'));
}

TEST_P(BrowseRecordsAnySettings, AnItemOutsideTheFileSystemIsReported) {
    const ExpectedBox box{
        L"Error 5\r (Llamada a procedimiento o argumento no válidos) en procedimiento "
        L"BrowseForFolder del Módulo de clase clsProfile.",
        16, L"kovrel"};
    put(profile_.get(), L"AppOrigen", Variant(L"Gestión"));
    answer_browse = [](const BROWSEINFOA&) { return true; };
    EXPECT_EQ(browse({Variant(0), Variant(L"x")}, {box}), "texto ");
    // The same for a path without a terminating null.
    item_path = std::string(260, 'c');
    EXPECT_EQ(browse({Variant(0), Variant(L"x")}, {box}), "texto ");
}

INSTANTIATE_TEST_SUITE_P(All, BrowseRecordsAnySettings, testing::ValuesIn(every_way));

/// Characters that the code page lacks become "?", never a similar letter, which could name another
/// folder.
TEST(BrowserOfTheSystem, CharactersThatTheCodePageLacksBecomeQuestionMarks) {
    const TestFolder folder{L"Carpetas"};
    for (const wchar_t* const name : {L"O", L"\x03A9", L"Año"}) {
        std::filesystem::create_directory(folder / name);
    }
    static std::wstring chosen;
    const auto choose = [](BROWSEINFOA* /*record*/)
                            WINAPI -> ITEMIDLIST* { return ILCreateFromPathW(chosen.c_str()); };
    ITEMIDLIST*(WINAPI* const stand_in)(BROWSEINFOA*) = choose;
    const ImportPatch browser(L"kovrel.dll", "SHBrowseForFolderA",
                              reinterpret_cast<void*>(stand_in));
    const auto profile = create(L"Kovrel.clsProfile");
    ASSERT_TRUE(browser.in_place());
    for (const Way way : every_way) {
        const auto browse = [&](const wchar_t* name) {
            chosen = folder / name;
            return shown(
                call_in(way, profile.get(), L"BrowseForFolder", {Variant(0), Variant(L"x")}, {})
                    .value);
        };
        EXPECT_EQ(browse(L"\x03A9"), narrow(L"texto " + (folder / L"?")));
        EXPECT_EQ(browse(L"Año"), narrow(L"texto " + (folder / L"Año")));
    }
}

/// A name typed without extension gets the extension "0".
TEST(OpenDialogOfTheSystem, TheDefaultExtensionIsZero) {
    TestFolder folder{L"Extensión"};
    folder.write(L"factura.0");
    folder.write(L"factura.txt");
    const auto files = create(L"Kovrel.cgsFileOpR");
    put(files.get(), L"InitDir", Variant(folder.path()));
    put(files.get(), L"DefaultExt", Variant(L"txt"));
    constexpr int file_name_list = 0x47C;
    const BoxWatcher windows({on_window({L"#32770", L"Abrir", 0}, [&](HWND dialog) {
        EXPECT_TRUE(wait_until([&] { return find_control(dialog, file_name_list) != nullptr; }));
        HWND const list = find_control(dialog, file_name_list);
        HWND const field = find_control(list, L"Edit");
        ask(field != nullptr ? field : list, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"factura"));
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        if (!wait_until([&] { return IsWindow(dialog) == FALSE; })) {
            ADD_FAILURE() << "the name is not accepted";
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        }
    })});
    const Outcome outcome = call(files.get(), L"ShowOpen");
    EXPECT_EQ(outcome.value.boolVal, VARIANT_TRUE);
    EXPECT_EQ(narrow(text_of_result(get(files.get(), L"FileName"))), narrow(folder / L"factura.0"));
}

}  // namespace
}  // namespace kovrel::test
