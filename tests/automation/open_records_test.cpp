// The structure that cgsFileOpR passes to the system's open-file dialog, field by field, and every
// answer that the dialog can give.
#include <windows.h>
#include <commdlg.h>

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
