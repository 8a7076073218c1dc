// The system's open-file dialog shown by cgsFileOpR: how the properties appear in it, and their
// values afterwards.
#include <windows.h>
#include <commdlg.h>

#include <functional>
#include <gtest/gtest.h>

#include "tests/support/box_lines.h"
#include "tests/support/early.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {
namespace {

// Published control ids of the dialog: the list of filters and the file name.
constexpr int filter_list = 0x470;
constexpr int file_name_list = 0x47C;
constexpr int file_name_field = 0x480;

HWND file_name(HWND dialog) {
    HWND const list = find_control(dialog, file_name_list);
    if (list == nullptr) return find_control(dialog, file_name_field);
    HWND const field = find_control(list, L"Edit");
    return field != nullptr ? field : list;
}

std::vector<std::wstring> filters(HWND dialog) {
    HWND const list = find_control(dialog, filter_list);
    std::vector<std::wstring> texts;
    for (LRESULT index = 0; index < ask(list, CB_GETCOUNT); ++index) {
        const auto length =
            static_cast<std::size_t>(ask(list, CB_GETLBTEXTLEN, static_cast<WPARAM>(index)));
        std::wstring text(length + 1, L'\0');
        ask(list, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
        text.resize(length);
        texts.push_back(text);
    }
    return texts;
}

void press(HWND dialog, int button) {
    PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
}

void choose(HWND dialog, const std::wstring& name) {
    EXPECT_TRUE(wait_until([&] { return file_name(dialog) != nullptr; }));
    ask(file_name(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
    press(dialog, IDOK);
}

void cancel(HWND dialog) {
    press(dialog, IDCANCEL);
}

class OpenDialog : public testing::Test {
 protected:
    OpenDialog() {
        folder_.write(L"uno ñ.txt");
        folder_.write(L"dos.txt");
        folder_.write(L"tres.dat");
        set(L"InitDir", Variant(folder_.path()));
    }
    ~OpenDialog() override { SetErrorInfo(0, nullptr); }

    void set(const wchar_t* member, const Variant& value) {
        EXPECT_EQ(put(files_.get(), member, value).result, S_OK) << narrow(member);
    }
    std::wstring read(const wchar_t* member) { return get(files_.get(), member).value.to_text(); }
    // Shows the dialog and runs `work` on it; true when a file was chosen.
    bool show(const std::function<void(HWND)>& work,
              const std::vector<LateArgument>& arguments = {},
              const std::wstring& title = L"Abrir") {
        BoxWatcher windows({on_window({L"#32770", title, 0}, work)});
        const Outcome outcome = call(files_.get(), L"ShowOpen", arguments);
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_BOOL);
        return outcome.value.boolVal != VARIANT_FALSE;
    }

    TestFolder folder_{L"Abrir ñ"};
    ComPtr<IDispatch> files_ = create(L"Kovrel.cgsFileOpR");
};

// The thread's error object; reading clears it.
struct ErrorObject {
    ErrorObject() {
        ComPtr<IErrorInfo> info;
        if (GetErrorInfo(0, info.put()) != S_OK) return;
        present = true;
        Bstr text;
        info->GetSource(text.put());
        source = text.view();
        Bstr other;
        info->GetDescription(other.put());
        description = other.view();
        info->GetHelpContext(&number);
    }
    bool present = false;
    std::wstring source;
    std::wstring description;
    DWORD number = 0;
};

TEST_F(OpenDialog, OneFile) {
    EXPECT_TRUE(show([&](HWND dialog) {
        EXPECT_EQ(filters(dialog), (std::vector<std::wstring>{L"Todos los Archivos (*.*)"}));
        choose(dialog, L"uno ñ.txt");
    }));
    EXPECT_EQ(read(L"FileName"), folder_ / L"uno ñ.txt");
    EXPECT_EQ(read(L"FileTitle"), L"uno ñ.txt");
    EXPECT_EQ(read(L"InitDir"), folder_.path());
    EXPECT_EQ(read(L"DialogTitle"), L"Abrir");
}

TEST_F(OpenDialog, SeveralFiles) {
    set(L"Flags", Variant(std::int32_t{OFN_ALLOWMULTISELECT | OFN_EXPLORER}));
    EXPECT_TRUE(show([](HWND dialog) { choose(dialog, L"\"uno ñ.txt\" \"dos.txt\""); }));
    EXPECT_EQ(read(L"FileName"), L"\"" + folder_.path() + L"\" \"uno ñ.txt\" \"dos.txt\"");
    EXPECT_EQ(read(L"InitDir"), L"\"" + folder_.path() + L"\"");
}

TEST_F(OpenDialog, OneFileOfAMultipleSelectionIsQuotedToo) {
    set(L"Flags", Variant(std::int32_t{OFN_ALLOWMULTISELECT | OFN_EXPLORER}));
    EXPECT_TRUE(show([](HWND dialog) { choose(dialog, L"dos.txt"); }));
    EXPECT_EQ(read(L"FileName"), L"\"" + (folder_ / L"dos.txt") + L"\"");
    EXPECT_EQ(read(L"FileTitle"), L"\"dos.txt\"");
}

TEST_F(OpenDialog, ACancelledDialogChangesNothing) {
    set(L"FileName", Variant(L"tres.dat"));
    set(L"FileTitle", Variant(L"título"));
    set(L"DefaultExt", Variant(L"dat"));
    EXPECT_FALSE(show([](HWND dialog) {
        EXPECT_EQ(text_of(file_name(dialog)), L"tres.dat");
        cancel(dialog);
    }));
    EXPECT_FALSE(ErrorObject().present);
    EXPECT_EQ(read(L"FileName"), L"tres.dat");
    EXPECT_EQ(read(L"FileTitle"), L"título");
    EXPECT_EQ(read(L"InitDir"), folder_.path());
    EXPECT_EQ(read(L"DefaultExt"), L"dat");
    EXPECT_EQ(read(L"DialogTitle"), L"Abrir");
}

TEST_F(OpenDialog, CancelErrorSetsTheErrorObjectWithoutFailing) {
    set(L"CancelError", Variant(true));
    EXPECT_FALSE(show(cancel));
    const ErrorObject noted;
    EXPECT_TRUE(noted.present);
    EXPECT_EQ(noted.source, L"cComDlgR.ShowOpen");
    EXPECT_EQ(noted.number, 32755U);
    EXPECT_EQ(noted.description, L"Error en Abrir (clase cComDlgR)");
    // The next call clears the error of the one before.
    EXPECT_FALSE(show(cancel));
    EXPECT_TRUE(show([](HWND dialog) { choose(dialog, L"dos.txt"); }));
    EXPECT_FALSE(ErrorObject().present);
}

TEST_F(OpenDialog, ArgumentsStayInTheProperties) {
    Variant flags(std::int32_t{OFN_HIDEREADONLY});
    EXPECT_TRUE(show(
        [](HWND dialog) {
            EXPECT_EQ(text_of(file_name(dialog)), L"dos.txt");
            EXPECT_EQ(filters(dialog), (std::vector<std::wstring>{L"Textos", L"Datos"}));
            press(dialog, IDOK);
        },
        {L"dos.txt", L"Elija una factura", L"Textos|*.txt|Datos|*.dat",
         LateArgument::variable(flags), std::int16_t{0}},
        L"Elija una factura"));
    EXPECT_EQ(read(L"DialogTitle"), L"Elija una factura");
    EXPECT_EQ(read(L"FileName"), folder_ / L"dos.txt");
    EXPECT_EQ(read(L"Flags"), std::to_wstring(OFN_HIDEREADONLY));
    EXPECT_EQ(flags.to_int32(), OFN_HIDEREADONLY);
    // Omitted arguments leave the properties unchanged.
    set(L"FilterIndex", Variant(std::int32_t{2}));
    EXPECT_FALSE(show(
        [](HWND dialog) {
            EXPECT_EQ(filters(dialog), (std::vector<std::wstring>{L"Textos", L"Datos"}));
            EXPECT_EQ(ask(find_control(dialog, filter_list), CB_GETCURSEL), 1);
            cancel(dialog);
        },
        {}, L"Elija una factura"));
}

TEST_F(OpenDialog, FiltersWithAndWithoutTheirLastBar) {
    for (const wchar_t* filter : {L"Textos|*.txt", L" Textos|*.txt| "}) {
        set(L"Filter", Variant(filter));
        EXPECT_FALSE(show([](HWND dialog) {
            EXPECT_EQ(filters(dialog), (std::vector<std::wstring>{L"Textos"}));
            cancel(dialog);
        }));
    }
    // A list without its last bar is accepted.
    set(L"Filter", Variant(std::wstring(L"Textos\0*.txt\0Datos", 18)));
    EXPECT_FALSE(show([](HWND dialog) {
        EXPECT_EQ(filters(dialog), (std::vector<std::wstring>{L"Textos", L"Datos"}));
        cancel(dialog);
    }));
    set(L"Filter", Variant(L"*.txt"));
    EXPECT_FALSE(show([](HWND dialog) {
        EXPECT_EQ(filters(dialog), (std::vector<std::wstring>{L"Todos los Archivos (*.*)"}));
        cancel(dialog);
    }));
}

TEST_F(OpenDialog, ActionOneShowsIt) {
    {
        BoxWatcher windows(
            {on_window({L"#32770", L"Abrir", 0}, [](HWND dialog) { choose(dialog, L"dos.txt"); })});
        set(L"Action", Variant(std::int16_t{1}));
    }
    EXPECT_EQ(read(L"FileName"), folder_ / L"dos.txt");
    BoxWatcher no_window;
    for (const int action : {0, 2, -1, 3}) {
        set(L"Action", Variant(static_cast<std::int16_t>(action)));
    }
}

TEST_F(OpenDialog, TheOwnerIsDisabledMeanwhile) {
    HWND const owner = CreateWindowExW(0, L"STATIC", L"Anfitrión", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                       0, 0, 200, 100, nullptr, nullptr, nullptr, nullptr);
    const auto handle = static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(owner));
    EXPECT_FALSE(show(
        [owner](HWND dialog) {
            EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner);
            EXPECT_FALSE(IsWindowEnabled(owner));
            cancel(dialog);
        },
        {LateArgument::missing(), LateArgument::missing(), LateArgument::missing(),
         LateArgument::missing(), handle}));
    EXPECT_TRUE(IsWindowEnabled(owner));
    DestroyWindow(owner);
}

TEST_F(OpenDialog, AnArgumentThatDoesNotConvertIsReported) {
    const std::string ending = ") en procedimiento ShowOpen del Módulo de clase cgsFileOpR.|1";
    const auto missing = LateArgument::missing();
    const auto refused = [&](const std::vector<LateArgument>& arguments) {
        BoxWatcher boxes({answer(IDOK)});
        const Outcome outcome = call(files_.get(), L"ShowOpen", arguments);
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.boolVal, VARIANT_FALSE);
        return lines_of(boxes);
    };
    EXPECT_EQ(refused({L"uno.txt", L"Nuevo", missing, L"no", missing}),
              Lines{"16|kovrel|Error 13\\r (No coinciden los tipos" + ending});
    // The arguments before the one that fails have been assigned.
    EXPECT_EQ(read(L"FileName"), L"uno.txt");
    EXPECT_EQ(read(L"DialogTitle"), L"Nuevo");
    EXPECT_EQ(refused({Variant::null()}),
              Lines{"16|kovrel|Error 94\\r (Uso no válido de Null" + ending});
    EXPECT_EQ(refused({missing, missing, missing, missing, 3e10}),
              Lines{"16|kovrel|Error 6\\r (Desbordamiento" + ending});
}

TEST_F(OpenDialog, AFolderThatFillsItsBufferIsReported) {
    set(L"InitDir", Variant(std::wstring(300, L'x')));
    BoxWatcher boxes({on_window({L"#32770", L"Abrir", 0},
                                [&](HWND dialog) { choose(dialog, folder_ / L"dos.txt"); }),
                      answer(IDOK)});
    const Outcome outcome = call(files_.get(), L"ShowOpen");
    EXPECT_EQ(outcome.value.boolVal, VARIANT_FALSE);
    EXPECT_EQ(lines_of(boxes),
              Lines{"16|kovrel|Error 5\\r (Llamada a procedimiento o argumento no válidos) en "
                    "procedimiento ShowOpen del Módulo de clase cgsFileOpR.|1"});
}

TEST_F(OpenDialog, EarlyBound) {
    using Show = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, VARIANT, VARIANT, VARIANT, VARIANT*,
                                             VARIANT, VARIANT_BOOL*);
    BoxWatcher windows(
        {on_window({L"#32770", L"Abrir", 0}, [](HWND dialog) { choose(dialog, L"dos.txt"); })});
    Variant none = Variant::missing();
    VARIANT_BOOL chosen = VARIANT_FALSE;
    EXPECT_EQ(early<Show>(files_.get(), L"ShowOpen")(files_.get(), none, none, none, &none, none,
                                                     &chosen),
              S_OK);
    EXPECT_EQ(chosen, VARIANT_TRUE);
    EXPECT_EQ(read(L"FileName"), folder_ / L"dos.txt");
}

}  // namespace
}  // namespace kovrel::test
