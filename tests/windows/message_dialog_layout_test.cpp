// The message dialog: its fonts, its size and the layout of its controls.
#include <gmock/gmock.h>
#include <memory>
#include <utility>

#include "tests/windows/message_dialog.h"

namespace kovrel::test {
namespace {

RECT bounds_in(HWND control, HWND parent) {
    RECT bounds{};
    GetWindowRect(control, &bounds);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&bounds), 2);
    return bounds;
}

RECT inner(HWND window) {
    RECT bounds{};
    GetClientRect(window, &bounds);
    return bounds;
}

LOGFONTW font_of(HWND control) {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(ask(control, WM_GETFONT)), sizeof font, &font);
    return font;
}

// Resizes the dialog, to another outer size than it has, and waits until its controls have
// followed.
void resize_and_settle(HWND dialog, int width, int height) {
    const RECT before = inner(dialog);
    resize(dialog, width, height);
    // The window manager may set an earlier size once more.
    int still = 0;
    EXPECT_TRUE(wait_until([&] {
        ask(dialog, WM_NULL);
        const RECT now = inner(dialog);
        const RECT base = bounds_in(strip(dialog), dialog);
        const bool followed = base.bottom == now.bottom && base.right == now.right;
        still = followed && !EqualRect(&now, &before) ? still + 1 : 0;
        return still >= 10;
    }));
}

std::wstring long_text() {
    std::wstring text = L"Línea   Concepto                    Importe";
    for (int line = 1; line <= 60; ++line) {
        std::wstring number = std::to_wstring(line);
        text += L"\r" + std::wstring(5 - number.size(), L' ') + number +
                L"   Cuota de mantenimiento       120,50 €";
    }
    return text;
}

TEST(MessageDialog, LongTextsScrollAndAreComplete) {
    std::wstring text;
    for (int line = 0; line < 4000; ++line) text += L"Una línea del informe número mil\r";
    show_dialog(L"Informe", text, [&](HWND dialog) {
        HWND const box = text_box(dialog);
        EXPECT_EQ(ask(box, EM_GETLINECOUNT), 4001);
        EXPECT_EQ(ask(box, WM_GETTEXTLENGTH), static_cast<LRESULT>(text.size() + 4000));
        EXPECT_EQ(ask(box, EM_GETFIRSTVISIBLELINE), 0);
        ask(box, WM_VSCROLL, SB_BOTTOM);
        EXPECT_GT(ask(box, EM_GETFIRSTVISIBLELINE), 3900);
        close_by_button(dialog);
    });
}

TEST(MessageDialog, CourierWithoutTheFlag) {
    show_dialog(L"Cuotas", long_text(), [](HWND dialog) {
        const LOGFONTW font = font_of(text_box(dialog));
        EXPECT_STREQ(font.lfFaceName, L"Courier");
        EXPECT_EQ(font.lfHeight, -13);  // 9.75 points at 96 dots per inch
        EXPECT_EQ(font.lfWeight, FW_NORMAL);
        close_by_button(dialog);
    });
}

TEST(MessageDialog, SansSerifWithTheFlagAndCourierAgainAfterIt) {
    const std::wstring text =
        L"No ha sido posible abrir la base de datos de contratos porque otra persona la está "
        L"utilizando en modo exclusivo.\r\rEspere a que termine, o pida que la cierre, y vuelva a "
        L"intentarlo. Si el problema continúa, avise al servicio técnico.";
    show_dialog(
        L"Apertura de la base de datos", text,
        [](HWND dialog) {
            const LOGFONTW font = font_of(text_box(dialog));
            EXPECT_STREQ(font.lfFaceName, L"MS Sans Serif");
            EXPECT_EQ(font.lfHeight, -13);
            close_by_button(dialog);
        },
        true);
    show_dialog(L"", text, [](HWND dialog) {
        EXPECT_STREQ(font_of(text_box(dialog)).lfFaceName, L"Courier");
        EXPECT_EQ(text_of(dialog), L"Información");
        close_by_button(dialog);
    });
}

TEST(MessageDialog, AnOmittedFlagIsCourier) {
    const auto catalogue = create(L"Kovrel.clsMensajes");
    BoxWatcher windows({on_window({dialog_class, {}, 0}, [](HWND dialog) {
        EXPECT_STREQ(font_of(text_box(dialog)).lfFaceName, L"Courier");
        close_by_button(dialog);
    })});
    EXPECT_EQ(call(catalogue.get(), L"MsgFormA", {L"Aviso", L"Texto"}).result, S_OK);
}

TEST(MessageDialog, GrowsWithTheDisplaysResolution) {
    show_dialog(L"Cuotas", long_text(), [](HWND dialog) {
        RECT next{};
        GetWindowRect(dialog, &next);
        next.right = next.left + (next.right - next.left) * 3 / 2;
        next.bottom = next.top + (next.bottom - next.top) * 3 / 2;
        const int strip_height = inner(strip(dialog)).bottom;
        ask(dialog, WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&next));
        EXPECT_EQ(inner(strip(dialog)).bottom, strip_height * 3 / 2);
        EXPECT_EQ(font_of(text_box(dialog)).lfHeight, -20);
        const RECT box = bounds_in(text_box(dialog), dialog);
        EXPECT_EQ(box.right, inner(dialog).right);
        EXPECT_EQ(box.bottom, bounds_in(strip(dialog), dialog).top);
        close_by_button(dialog);
    });
}

TEST(MessageDialog, TheTextBoxFillsTheRestAtEverySize) {
    show_dialog(L"Tamaños", long_text(), [](HWND dialog) {
        const int strip_height = inner(strip(dialog)).bottom;
        EXPECT_GT(strip_height, 0);
        for (const auto& [width, height] :
             std::initializer_list<std::pair<int, int>>{{500, 300}, {1200, 900}, {300, 200}}) {
            resize_and_settle(dialog, width, height);
            const RECT whole = inner(dialog);
            const RECT box = bounds_in(text_box(dialog), dialog);
            EXPECT_EQ(box.left, 0);
            EXPECT_EQ(box.top, 0);
            EXPECT_EQ(box.right, whole.right);
            EXPECT_EQ(box.bottom, whole.bottom - strip_height);
            const RECT base = bounds_in(strip(dialog), dialog);
            EXPECT_EQ(base.left, 0);
            EXPECT_EQ(base.right, whole.right);
            EXPECT_EQ(base.bottom - base.top, strip_height);
            const RECT button = bounds_in(ok_button(dialog), strip(dialog));
            EXPECT_NEAR(button.left, whole.right - button.right, 1);
        }
        close_by_button(dialog);
    });
}

TEST(MessageDialog, ASmallWindowHidesTheTextAndPinsTheButton) {
    show_dialog(L"Mínima", long_text(), [](HWND dialog) {
        resize_and_settle(dialog, 40, 40);
        const RECT whole = inner(dialog);
        const RECT button = bounds_in(ok_button(dialog), strip(dialog));
        EXPECT_EQ(inner(text_box(dialog)).bottom, 0);
        EXPECT_LT(whole.bottom, inner(strip(dialog)).bottom);
        if (whole.right < button.right - button.left) {
            EXPECT_EQ(button.left, 0);
        }
        // The window manager may keep it wider, so the client area decides.
        SetWindowPos(strip(dialog), nullptr, 0, 0, 30, 48, SWP_NOZORDER | SWP_NOACTIVATE);
        EXPECT_EQ(bounds_in(ok_button(dialog), strip(dialog)).left, 0);
        resize_and_settle(dialog, 600, 400);
        EXPECT_GT(inner(text_box(dialog)).bottom, 200);
        close_by_button(dialog);
    });
}

TEST(MessageDialog, MedidasAreItsSizeUntilItIsUnloaded) {
    const auto bounds_with = [](std::int16_t width, std::int16_t height) {
        const auto dialog = std::make_shared<frmDialogo>();
        dialog->Medida1 = width;
        dialog->Medida2 = height;
        dialog->load();
        RECT bounds{};
        GetWindowRect(dialog->handle(), &bounds);
        dialog->unload();
        EXPECT_EQ(dialog->Medida1, 0);
        EXPECT_EQ(dialog->Medida2, 0);
        return std::pair(bounds.right - bounds.left, bounds.bottom - bounds.top);
    };
    const auto [width, height] = bounds_with(0, 0);
    EXPECT_GT(width, 600);
    EXPECT_GT(height, 360);
    EXPECT_EQ(bounds_with(6000, 4500), std::pair(400L, 300L));
    EXPECT_EQ(bounds_with(6000, 0), std::pair(400L, height));
    EXPECT_EQ(bounds_with(0, 4500), std::pair(width, 300L));
}

}  // namespace
}  // namespace kovrel::test
