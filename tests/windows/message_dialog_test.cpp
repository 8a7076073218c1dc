// The message dialog: its texts, its keys, and how it is modal.
#include "tests/windows/message_dialog.h"

#include <algorithm>
#include <atomic>
#include <gmock/gmock.h>

#include "tests/support/box_lines.h"
#include "tests/support/gui_objects.h"
#include "tests/support/import_patch.h"
#include "tests/windows/host_window.h"

namespace kovrel::test {
namespace {

using testing::ElementsAre;

TEST(MessageDialog, ShowsItsCaptionAndItsText) {
    show_dialog(L"Resultado", L"Primera\rSegunda", [](HWND dialog) {
        EXPECT_EQ(text_of(dialog), L"Resultado");
        EXPECT_EQ(text_of(text_box(dialog)), L"Primera\r\nSegunda");
        EXPECT_EQ(text_of(ok_button(dialog)), L"Aceptar");
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), nullptr);
        close_by_button(dialog);
    });
}

TEST(MessageDialog, AnEmptyCaptionShowsTheDefault) {
    show_dialog(L"", L"Texto", [](HWND dialog) {
        EXPECT_EQ(text_of(dialog), L"Información");
        close_by_button(dialog);
    });
}

TEST(MessageDialog, LoneCarriageReturnsBreakLines) {
    show_dialog(L"Líneas", L"uno\rdos\r\ntres\ncuatro\r\rseis", [](HWND dialog) {
        EXPECT_EQ(ask(text_box(dialog), EM_GETLINECOUNT), 6);
        EXPECT_EQ(text_of(text_box(dialog)), L"uno\r\ndos\r\ntres\r\ncuatro\r\n\r\nseis");
        close_by_button(dialog);
    });
}

TEST(MessageDialog, EnterEscAndTheCloseButtonCloseIt) {
    for (const WORD key : std::initializer_list<WORD>{VK_RETURN, VK_ESCAPE, VK_SPACE}) {
        show_dialog(L"Tecla", L"Texto", [key](HWND dialog) {
            EXPECT_TRUE(bring_to_front(dialog));
            // Space works only on the button.
            if (key == VK_SPACE) press_key(VK_TAB);
            press_key(key);
        });
    }
    show_dialog(L"Aspa", L"Texto", [](HWND dialog) { PostMessageW(dialog, WM_CLOSE, 0, 0); });
}

TEST(MessageDialog, TheKeyboardAloneSelectsAndCopies) {
    show_dialog(L"Copia", L"Año 2026\rCuota", [](HWND dialog) {
        EXPECT_TRUE(bring_to_front(dialog));
        HWND const box = text_box(dialog);
        EXPECT_THAT(tab_order(dialog), ElementsAre(box, ok_button(dialog)));
        EXPECT_TRUE(wait_until([&] { return focus_of(dialog) == box; }));
        press_key('A', Modifier::control);
        EXPECT_TRUE(wait_until([&] { return HIWORD(ask(box, EM_GETSEL)) == 15; }));
        // Not opened before the text box has copied: copying fails while it is open.
        const DWORD last_content = GetClipboardSequenceNumber();
        press_key('C', Modifier::control);
        EXPECT_TRUE(wait_until([&] { return GetClipboardSequenceNumber() != last_content; }));
        std::wstring copied;
        EXPECT_TRUE(wait_until([&] {
            if (OpenClipboard(nullptr) == FALSE) return false;
            HANDLE const data = GetClipboardData(CF_UNICODETEXT);
            if (data != nullptr) {
                copied = static_cast<const wchar_t*>(GlobalLock(data));
                GlobalUnlock(data);
            }
            CloseClipboard();
            return copied == L"Año 2026\r\nCuota";  // no longer what another test has left
        }));
        EXPECT_EQ(copied, L"Año 2026\r\nCuota");
        // The text box is read-only.
        type_text(L"x");
        press_key(VK_TAB);
        EXPECT_TRUE(wait_until([&] { return focus_of(dialog) == ok_button(dialog); }));
        EXPECT_EQ(text_of(box), L"Año 2026\r\nCuota");
        press_key(VK_RETURN);
    });
}

HFONT WINAPI third_font_fails(const LOGFONTW* description) {
    static int fonts = 0;
    return ++fonts == 3 ? nullptr : CreateFontIndirectW(description);
}

TEST(MessageDialog, AFailureWhileItLoadsShowsTheBoxAndThenTheWindow) {
    const auto catalogue = create(L"Kovrel.clsMensajes");
    // The third font is that of the text, created in Form_Load.
    const ImportPatch patch(L"kovrel.dll", "CreateFontIndirectW",
                            reinterpret_cast<void*>(&third_font_fails));
    ASSERT_TRUE(patch.in_place());
    BoxWatcher windows({answer(IDOK), on_window({dialog_class, {}, 0}, close_by_button)});
    EXPECT_EQ(call(catalogue.get(), L"MsgFormA", {L"Aviso", L"Texto"}).result, S_OK);
    EXPECT_THAT(lines_of(windows),
                ElementsAre(narrow(L"16|kovrel|Error 7\\r (Memoria insuficiente) en procedimiento "
                                   L"Form_Load del Formulario frmDialogo.|1")));
}

TEST(MessageDialog, IsModalAndGivesTheFocusBack) {
    const HostWindow first(L"Contratos");
    const HostWindow second(L"Pagadores");
    EnableWindow(second.window(), FALSE);
    const HostWindow third(L"Facturas");
    SetActiveWindow(first.window());
    SetFocus(first.field());
    show_dialog(L"Modal", L"Texto", [&](HWND dialog) {
        EXPECT_TRUE(bring_to_front(dialog));
        EXPECT_FALSE(IsWindowEnabled(first.window()));
        EXPECT_FALSE(IsWindowEnabled(second.window()));
        EXPECT_FALSE(IsWindowEnabled(third.window()));
        press_key(VK_RETURN);
    });
    EXPECT_TRUE(IsWindowEnabled(first.window()));
    EXPECT_FALSE(IsWindowEnabled(second.window()));
    EXPECT_TRUE(IsWindowEnabled(third.window()));
    EXPECT_EQ(GetActiveWindow(), first.window());
    EXPECT_EQ(GetFocus(), first.field());
}

TEST(MessageDialog, AHiddenDialogStillWaits) {
    const auto catalogue = create(L"Kovrel.clsMensajes");
    std::atomic<bool> returned = false;
    BoxWatcher windows({on_window({dialog_class, {}, 0}, [&](HWND dialog) {
        ShowWindow(dialog, SW_HIDE);
        // The waiting call dispatches messages.
        for (int messages = 0; messages < 20; ++messages) ask(dialog, WM_NULL);
        EXPECT_FALSE(returned);
        EXPECT_TRUE(IsWindow(dialog));
        close_by_button(dialog);
        EXPECT_TRUE(wait_until([&] { return returned.load(); }));
        EXPECT_FALSE(IsWindow(dialog));
    })});
    EXPECT_EQ(call(catalogue.get(), L"MsgFormA", {L"Oculta", L"Texto"}).result, S_OK);
    returned = true;
}

TEST(MessageDialog, AQuitMessageReachesTheHostAfterwards) {
    const auto catalogue = create(L"Kovrel.clsMensajes");
    const DWORD thread = GetCurrentThreadId();
    BoxWatcher windows({on_window({dialog_class, {}, 0}, [thread](HWND dialog) {
        PostThreadMessageW(thread, WM_QUIT, 7, 0);
        ask(dialog, WM_NULL);
        EXPECT_TRUE(IsWindowVisible(dialog));
        close_by_button(dialog);
    })});
    EXPECT_EQ(call(catalogue.get(), L"MsgFormA", {L"Fin", L"Texto"}).result, S_OK);
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
    }
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7U);
}

TEST(MessageDialog, LeaksNothing) {
    const auto once = [] { show_dialog(L"Uno", L"Texto", close_by_button); };
    once();
    const GuiObjects before = gui_objects();
    for (int round = 0; round < 10; ++round) once();
    EXPECT_EQ(gui_objects(), before);
}

}  // namespace
}  // namespace kovrel::test
