// Windows that are moved to a display of another resolution.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>

#include "tests/windows/display.h"
#include "tests/windows/progress_window.h"
#include "tests/windows/verifier_window.h"

namespace kovrel::test {
namespace {

constexpr const wchar_t* question =
    L"El recibo se devolvió y se ha vuelto a presentar al cobro. ¿En qué fecha?";

/// Sends WM_DPICHANGED as the system does: the client area is scaled, the frame is not.
void move_to(HWND window, int from, int to) {
    const RECT now = on_screen(window);
    const RECT screen = work_area();
    RECT inside{};
    GetClientRect(window, &inside);
    const auto grown = [&](LONG length) { return length * to / from - length; };
    RECT next = now;
    next.right = std::min(now.right + grown(inside.right), now.left + screen.right);
    next.bottom = std::min(now.bottom + grown(inside.bottom), now.top + screen.bottom);
    OffsetRect(&next, screen.left - next.left, screen.top - next.top);
    ask(window, WM_DPICHANGED, MAKEWPARAM(to, to), reinterpret_cast<LPARAM>(&next));
}

/// Moves to every other resolution and back.
void move_about(HWND window, const std::function<void()>& check) {
    int at = resolution();
    is_whole(window);
    for (const int next : {96, 192, 144, resolution()}) {
        SCOPED_TRACE(std::to_string(at) + " to " + std::to_string(next));
        move_to(window, at, next);
        at = next;
        is_whole(window);
        check();
    }
}

TEST_F(Verifier, IsWholeOnEveryDisplayThatItIsMovedTo) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678Z", L"12345678Z");
        press_key(VK_TAB);
        controls.has_focus(controls.copy_tax_id);
        press_key(VK_TAB);
        controls.type(controls.account, L"2100", L"2100");
        move_about(controls.window, [&] {
            is_in_the_middle(controls.tax_id);
            is_in_the_middle(controls.account);
        });
        controls.leave();
    });
}

TEST_F(Progress, IsWholeOnEveryDisplayThatItIsMovedTo) {
    start({L"Facturación", L"Generando recibos...", true});
    update(50);
    HWND const window = only_window();
    move_about(window, [&] {
        settle();
        const Pixels seen = bar_pixels(window);
        EXPECT_EQ(seen.at(seen.width / 2 - 1, 0), usual_bar_color());
        EXPECT_NE(seen.at(seen.width / 2, 0), usual_bar_color());
    });
}

TEST(MessageDialogOnDisplays, IsWholeOnEveryDisplayThatItIsMovedTo) {
    const auto catalogue = create(L"Kovrel.clsMensajes");
    BoxWatcher windows({on_window({L"Kovrel.frmDialogo", {}, 0}, [](HWND window) {
        move_about(window, [] {});
        PostMessageW(find_control(window, L"Button"), BM_CLICK, 0, 0);
    })});
    EXPECT_EQ(call(catalogue.get(), L"MsgFormA", {L"Aviso", L"Texto"}).result, S_OK);
}

TEST(DatePromptOnDisplays, IsWholeOnEveryDisplayThatItIsMovedTo) {
    for (const int times : {1, 8, 100}) {
        SCOPED_TRACE(times);
        const auto dates = create(L"Kovrel.clsFFechas");
        std::wstring text;
        for (int count = 0; count < times; ++count) text += question;
        BoxWatcher windows({on_window({L"Kovrel.frmFECHA1", {}, 0}, [&](HWND window) {
            move_about(window, [&] {
                HWND const label = find_control(window, L"Static", text);
                if (times < 100) {
                    EXPECT_TRUE(IsWindowVisible(label));
                } else {
                    EXPECT_FALSE(IsWindowVisible(label));
                }
            });
            PostMessageW(find_control(window, L"Button", L"Aceptar"), BM_CLICK, 0, 0);
        })});
        EXPECT_EQ(call(dates.get(), L"PideFecha", {text}).result, S_OK);
    }
}

}  // namespace
}  // namespace kovrel::test
