// The message dialog and the date prompt at the display's resolution and in its colours.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>

#include "runtime/calendar.h"
#include "tests/support/late.h"
#include "tests/windows/display.h"
#include "tests/windows/kept_picture.h"

namespace kovrel::test {
namespace {

class Dialogs : public testing::Test {
 protected:
    static void show_dialog(const std::function<void(HWND)>& work, bool proportional = false) {
        const auto catalogue = create(L"Kovrel.clsMensajes");
        std::wstring text = L"Línea   Concepto                    Importe";
        for (int line = 10; line < 70; ++line) {
            text += L"\r   " + std::to_wstring(line) + L"   Cuota de mantenimiento       120,50 €";
        }
        BoxWatcher windows({on_window({L"Kovrel.frmDialogo", {}, 0}, [&](HWND window) {
            work(window);
            PostMessageW(find_control(window, L"Button"), BM_CLICK, 0, 0);
        })});
        EXPECT_EQ(call(catalogue.get(), L"MsgFormA", {L"Cuotas", text, proportional}).result, S_OK);
    }
    static void ask_date(const std::wstring& question, const std::function<void(HWND)>& work) {
        const auto dates = create(L"Kovrel.clsFFechas");
        BoxWatcher windows({on_window({L"Kovrel.frmFECHA1", {}, 0}, [&](HWND window) {
            work(window);
            PostMessageW(find_control(window, L"Button", L"Aceptar"), BM_CLICK, 0, 0);
        })});
        EXPECT_EQ(call(dates.get(), L"PideFecha",
                       {question, L"Fecha de cobro", Date{day_count({2026, 12, 24})}})
                      .result,
                  S_OK);
    }
};

TEST_F(Dialogs, TheMessageDialogIsLegibleInEveryFont) {
    for (const bool proportional : {false, true}) {
        show_dialog(
            [&](HWND window) {
                EXPECT_TRUE(bring_to_front(window));
                is_whole(window);
                is_legible(window);
                looks_as_kept(window, proportional ? L"dialog_sans_serif" : L"dialog_courier");
            },
            proportional);
    }
}

TEST_F(Dialogs, TheMessageDialogIsDrawnWholeAtEverySize) {
    show_dialog([](HWND window) {
        const int width = at_resolution(4000);
        const int height = at_resolution(3000);
        const RECT screen = work_area();
        EXPECT_TRUE(bring_to_front(window));
        SetWindowPos(window, nullptr, screen.left, screen.top, width, height, SWP_NOZORDER);
        const Picture small = looks_as_kept(window, L"dialog_small");
        {
            SCOPED_TRACE("widened in one step, and narrowed again");
            resize(window, screen.right - screen.left, height);
            looks_as_kept(window, L"dialog_widened");
            resize(window, width, height);
            looks_as_before(window, small);
        }
        {
            SCOPED_TRACE("maximised and restored");
            ShowWindowAsync(window, SW_MAXIMIZE);
            EXPECT_TRUE(wait_until([&] { return IsZoomed(window) != FALSE; }));
            looks_as_kept(window, L"dialog_maximised");
            ShowWindowAsync(window, SW_RESTORE);
            EXPECT_TRUE(wait_until([&] { return IsZoomed(window) == FALSE; }));
            looks_as_before(window, small);
        }
        survives_being_covered(window, small);
    });
}

TEST_F(Dialogs, TheDatePromptIsLegible) {
    ask_date(L"¿En qué fecha se cobró el recibo?", [](HWND window) {
        EXPECT_TRUE(bring_to_front(window));
        is_whole(window);
        is_legible(window);
        survives_being_covered(window, looks_as_kept(window, L"date_prompt"));
    });
}

TEST_F(Dialogs, TheDateFieldShowsThatItHasTheKeyboard) {
    ask_date(L"¿En qué fecha se cobró el recibo?", [](HWND window) {
        HWND const field = find_control(window, DATETIMEPICK_CLASSW);
        const auto settled = [&] {
            Picture seen;
            int still = 0;
            EXPECT_TRUE(wait_until([&] {
                Picture now = picture_of(field);
                still = now == seen && legibility_of(now) >= text_contrast ? still + 1 : 0;
                seen = std::move(now);
                return still >= 10;
            }));
            return seen;
        };
        EXPECT_TRUE(bring_to_front(window));
        EXPECT_TRUE(wait_until([&] { return focus_of(window) == field; }));
        const Picture with = settled();
        press_key(VK_TAB);
        EXPECT_TRUE(wait_until([&] { return focus_of(window) != field; }));
        // The day, an area of about two digits, looks different.
        EXPECT_TRUE(wait_until([&] {
            const Picture without = picture_of(field);
            int changed = 0;
            for (int y = 0; y < with.height; ++y) {
                for (int x = 0; x < with.width / 2; ++x) {
                    changed += with.at(x, y) != without.at(x, y) ? 1 : 0;
                }
            }
            return changed > at_resolution(90) * at_resolution(90);
        }));
    });
}

std::wstring question_of(int sentences) {
    std::wstring question;
    for (int sentence = 1; sentence <= sentences; ++sentence) {
        question += L"El recibo " + std::to_wstring(sentence) +
                    L" se devolvió y se ha vuelto a presentar al cobro.\r";
    }
    return question + L"¿En qué fecha?";
}

/// The text box that replaces the label when the question is too long.
HWND scrolling_question(HWND window) {
    for (const Control& control : controls_of(window)) {
        if (control.visible && control.window_class == L"Edit" &&
            GetParent(control.window) == window)
            return control.window;
    }
    return nullptr;
}

TEST_F(Dialogs, ALongQuestionLeavesTheButtonOnTheScreen) {
    for (const int sentences : {5, 20, 60, 200}) {
        SCOPED_TRACE(sentences);
        const std::wstring question = question_of(sentences);
        ask_date(question, [&](HWND window) {
            EXPECT_TRUE(bring_to_front(window));
            is_whole(window);
            HWND const text = scrolling_question(window);
            HWND const label = find_control(window, L"Static", question);
            EXPECT_NE(IsWindowVisible(label) != FALSE, text != nullptr);
            if (sentences == 5) {
                EXPECT_EQ(text, nullptr);
                looks_as_kept(window, L"date_prompt_lines");
            }
            if (sentences < 200) return;
            ASSERT_NE(text, nullptr);
            is_legible(window);
            // The focus begins in the date field, and Tab reaches the text.
            EXPECT_EQ(tab_order(window),
                      (std::vector<HWND>{find_control(window, DATETIMEPICK_CLASSW),
                                         find_control(window, L"Button", L"Aceptar"), text}));
            EXPECT_EQ(ask(text, EM_GETFIRSTVISIBLELINE), 0);
            EXPECT_GE(ask(text, EM_GETLINECOUNT), 201);
            press_key(VK_TAB, Modifier::shift);
            EXPECT_TRUE(wait_until([&] { return focus_of(window) == text; }));
            press_key(VK_END, Modifier::control);
            RECT inner{};
            GetClientRect(text, &inner);
            const LRESULT last = ask(text, WM_GETTEXTLENGTH) - 1;
            EXPECT_TRUE(wait_until([&] {
                const auto place = ask(text, EM_POSFROMCHAR, static_cast<WPARAM>(last));
                const int top = static_cast<short>(HIWORD(static_cast<DWORD>(place)));
                return top > 0 && top < inner.bottom;
            }));
            looks_as_kept(window, L"date_prompt_scrolled");
        });
    }
}

}  // namespace
}  // namespace kovrel::test
