// A click on a button of the verifier takes effect only after the check of the field that loses the
// focus has passed; and the button that Enter presses.
#include <gmock/gmock.h>

#include "tests/windows/verifier_window.h"

namespace kovrel::test {
namespace {

using testing::ElementsAre;

constexpr const char* letter_corrected =
    "48|Error en la letra del N.I.F.|La letra del N.I.F. 'A' es incorrecta y será sustituida por "
    "la correcta: 'Z'|1";
constexpr const char* wrong_account =
    "48|Datos bancarios incorrectos|Datos bancarios incorrectos. Por favor revise el 'Código de "
    "Cuenta Cliente'\\r\\r          D.C. Correcto.......: 61|1";

TEST_F(Verifier, AClickCopiesWhatTheCheckCorrected) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678A", L"12345678A");
        click(controls.copy_tax_id);
        EXPECT_EQ(answer_next_box(), letter_corrected);
        EXPECT_TRUE(clipboard_becomes(L"12345678Z")) << narrow(clipboard());
        controls.back_to_front();
        controls.has_focus(controls.tax_id);
        EXPECT_EQ(controls.selection_of(controls.tax_id), std::pair(0, 9));
        controls.leave();
    });
}

TEST_F(Verifier, AClickCopiesTheAccountAfterTheWarning) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        press_key('U', Modifier::alt);
        controls.type(controls.account, L"21000813620123456789", L"2100 0813 62 0123456789");
        click(controls.copy_account);
        EXPECT_EQ(answer_next_box(), wrong_account);
        EXPECT_TRUE(clipboard_becomes(L"2100 0813 62 0123456789")) << narrow(clipboard());
        PostMessageW(controls.window, WM_CLOSE, 0, 0);
    });
}

TEST_F(Verifier, AClickCopiesOneFieldAfterTheOtherHasBeenChecked) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        press_key('U', Modifier::alt);
        controls.type(controls.account, L"21000813610123456789", L"2100 0813 61 0123456789");
        press_key('N', Modifier::alt);
        controls.type(controls.tax_id, L"12345678A", L"12345678A");
        click(controls.copy_account);
        EXPECT_EQ(answer_next_box(), letter_corrected);
        EXPECT_TRUE(clipboard_becomes(L"2100 0813 61 0123456789")) << narrow(clipboard());
        controls.shows_marks("NIF aceptado, Cuenta aceptada");
        controls.leave();
    });
}

TEST_F(Verifier, OneClickClosesAfterTheCheck) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678A", L"12345678A");
        click(controls.close);
        EXPECT_EQ(answer_next_box(), letter_corrected);
        EXPECT_TRUE(wait_until_closed(controls.window));
        PostMessageW(controls.window, WM_CLOSE, 0, 0);
    });
}

TEST_F(Verifier, ARefusedClickHasNoEffect) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"1234", L"1234");
        for (HWND button : {controls.copy_tax_id, controls.copy_account}) {
            click(button);
            controls.shows_marks("");
            controls.has_focus(controls.tax_id);
            controls.after_clicks(controls.tax_id);
            EXPECT_EQ(clipboard(), L"antes");
        }
        // The check has emptied the field, so there is nothing to copy.
        press_key(VK_END);
        for (int strokes = 0; strokes < 4; ++strokes) press_key(VK_BACK);
        controls.type(controls.tax_id, L"A28015866", L"A28015866");
        click(controls.copy_tax_id);
        EXPECT_EQ(answer_next_box(),
                  "16|ATENCIÓN|El último número no corresponde a un CIF correcto.|1");
        EXPECT_EQ(answer_next_box(), "64|Dato incorrecto o falta|Escriba el NIF|1");
        EXPECT_EQ(clipboard(), L"antes");
        controls.leave();
    });
}

TEST_F(Verifier, APressReleasedOutsideOnlyMovesTheFocus) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678A", L"12345678A");
        press_and_leave(controls.copy_tax_id);
        EXPECT_EQ(answer_next_box(), letter_corrected);
        controls.back_to_front();
        controls.shows_marks("NIF aceptado");
        controls.has_focus(controls.copy_tax_id);
        EXPECT_EQ(clipboard(), L"antes");
        // The same with the close button: the window stays open.
        press_key('N', Modifier::alt);
        controls.has_focus(controls.tax_id);
        ask(controls.tax_id, EM_SETSEL, 0, -1);
        controls.type(controls.tax_id, L"1234", L"1234");
        press_and_leave(controls.close);
        controls.shows_marks("");
        controls.has_focus(controls.tax_id);
        controls.after_clicks(controls.tax_id);
        controls.leave();
    });
}

/// The captions of the buttons that are drawn as the default button.
std::vector<std::string> framed(const Controls& controls) {
    std::vector<std::string> captions;
    for (const Control& control : controls_of(controls.window)) {
        if (control.window_class != L"Button") continue;
        if ((GetWindowLongW(control.window, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON) {
            captions.push_back(narrow(control.text));
        }
    }
    return captions;
}

void expect_framed(const Controls& controls, const std::string& caption) {
    const std::vector<std::string> only{caption};
    EXPECT_TRUE(wait_until([&] { return framed(controls) == only; }))
        << testing::PrintToString(framed(controls));
}

TEST_F(Verifier, ExactlyOneButtonIsTheDefault) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        EXPECT_THAT(framed(controls), ElementsAre("C&errar"));
        controls.to_front();
        EXPECT_EQ(ask(controls.window, DM_GETDEFID),
                  MAKELRESULT(GetDlgCtrlID(controls.close), DC_HASDEFID));
        // Tab when the check refuses the field.
        controls.type(controls.tax_id, L"1234", L"1234");
        press_key(VK_TAB);
        controls.shows_marks("");
        controls.has_focus(controls.tax_id);
        expect_framed(controls, "C&errar");
        // Tab when the check passes.
        press_key(VK_END);
        controls.type(controls.tax_id, L"5678Z", L"12345678Z");
        press_key(VK_TAB);
        controls.has_focus(controls.copy_tax_id);
        expect_framed(controls, "&Copiar NIF");
        press_key(VK_RETURN);
        EXPECT_TRUE(clipboard_becomes(L"12345678Z"));
        controls.has_focus(controls.tax_id);
        expect_framed(controls, "C&errar");
        // With the mouse, and back with the access key.
        click(controls.copy_tax_id);
        EXPECT_TRUE(clipboard_becomes(L"12345678Z"));
        controls.has_focus(controls.tax_id);
        expect_framed(controls, "C&errar");
        press_key(VK_TAB);
        expect_framed(controls, "&Copiar NIF");
        press_key('U', Modifier::alt);
        controls.has_focus(controls.account);
        expect_framed(controls, "C&errar");
        press_key(VK_TAB);
        expect_framed(controls, "C&opiar cuenta");
        press_key(VK_TAB);
        expect_framed(controls, "C&errar");
        controls.leave();
    });
}

TEST_F(Verifier, AfterARefusedClickTheFieldHasTheFocusAndCloseIsTheDefault) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"1234", L"1234");
        click(controls.copy_tax_id);
        controls.shows_marks("");
        controls.has_focus(controls.tax_id);
        expect_framed(controls, "C&errar");
        click(controls.copy_account);
        controls.has_focus(controls.tax_id);
        controls.after_clicks(controls.tax_id);
        expect_framed(controls, "C&errar");
        controls.leave();
    });
}

TEST_F(Verifier, EnterPressesTheDefaultButtonOutsideTheFields) {
    open([](const Controls& controls) {
        controls.to_front();
        // In a field Enter moves to the next control.
        press_key(VK_RETURN);
        controls.has_focus(controls.copy_tax_id);
        press_key('U', Modifier::alt);
        controls.has_focus(controls.account);
        press_key(VK_RETURN);
        controls.has_focus(controls.copy_account);
        press_key('N', Modifier::alt);
        controls.has_focus(controls.tax_id);
        EXPECT_TRUE(IsWindowVisible(controls.window));
        PostMessageW(controls.window, WM_KEYDOWN, VK_RETURN, 1);
        EXPECT_TRUE(wait_until_closed(controls.window));
        PostMessageW(controls.window, WM_CLOSE, 0, 0);
    });
}

}  // namespace
}  // namespace kovrel::test
