// The structure that clsProfile passes to the system's folder browser, and every answer that the
// browser can give.
#include <windows.h>
#include <shlobj.h>

#include <cstddef>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <kovrel.h>
#include <optional>
#include <utility>

#include "tests/support/event_sink.h"
#include "tests/support/every_way.h"
#include "tests/support/import_patch.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {
namespace {

using namespace std::string_literals;

constexpr std::size_t buffer_size = 260;

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

TEST_P(BrowseRecordsAnySettings, AListenerMayBrowseBeforeTheBrowserIsShown) {
    const auto avisos = create(L"Kovrel.clsAvisos");
    const auto listener =
        EventSink::make(Kovrel::DIID__clsAvisosEvents, [this](DISPID, DISPPARAMS&) {
            call(profile_.get(), L"BrowseForFolder",
                 {Variant(0), Variant(L"x"), Variant(L"C:\\Dentro")});
            return S_OK;
        });
    ASSERT_NE(attach(avisos.get(), Kovrel::DIID__clsAvisosEvents, *listener.get()), 0U);
    HWND const window = reinterpret_cast<HWND>(std::intptr_t{0x777});
    bool is_chosen = false;
    answer_browse = [&](const BROWSEINFOA& record) {
        record.lpfn(window, 1, 0, record.lParam);
        return std::exchange(is_chosen, true);
    };
    item_path = "C:\\Elegida\0"s;
    EXPECT_EQ(browse({Variant(0), Variant(L"x"), Variant(L"C:\\Fuera")}), "texto C:\\Elegida");
    EXPECT_EQ(sent, (std::vector<Sent>{{window, 0x466, 1, "C:\\Dentro"},
                                       {window, 0x466, 1, "C:\\Fuera"}}));
    // What the user did is noted: the inner browser was cancelled.
    const auto answer_to = [&](int place) {
        const auto aviso = call(avisos.get(), L"Item", {Variant(place)}).value.to_object();
        return get(aviso.get(), L"Respuesta").value.to_int32();
    };
    EXPECT_EQ(answer_to(1), IDOK);
    EXPECT_EQ(answer_to(2), IDCANCEL);
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
    const auto profile = create(L"Kovrel.clsProfile");  // loads the library
    const ImportPatch browser(L"kovrel.dll", "SHBrowseForFolderA",
                              reinterpret_cast<void*>(stand_in));
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

}  // namespace
}  // namespace kovrel::test
