// The verifier and the real clipboard.
#include "tests/windows/verifier_window.h"

namespace kovrel::test {
namespace {

TEST_F(Verifier, PastedTextIsGrouped) {
    set_clipboard(L"ES 2100-0813-61-0123456789 y más");
    open([](const Controls& controls) {
        controls.to_front();
        press_key('U', Modifier::alt);
        controls.has_focus(controls.account);
        press_key('V', Modifier::control);
        EXPECT_TRUE(wait_until([&] {
            return text_of(controls.account) == L"2100 0813 61 0123456789";
        })) << narrow(text_of(controls.account));
        press_key('N', Modifier::alt);
        controls.shows_marks("Cuenta aceptada");
        controls.has_focus(controls.tax_id);
        controls.leave();
    });
}

/// Goes to the account's field, which is empty, and pastes.
void paste_account(const Controls& controls, const wchar_t* shown) {
    press_key('U', Modifier::alt);
    controls.has_focus(controls.account);
    press_key('V', Modifier::control);
    EXPECT_TRUE(wait_until([&] { return text_of(controls.account) == shown; }))
        << narrow(text_of(controls.account));
}

TEST_F(Verifier, APastedIbanGivesItsAccount) {
    for (const wchar_t* const iban :
         {L"ES9121000418450200051332", L"IBAN es91 2100 0418 4502 0005 1332",
          L"9121000418450200051332"}) {
        SCOPED_TRACE(narrow(iban));
        set_clipboard(iban);
        open([](const Controls& controls) {
            controls.to_front();
            paste_account(controls, L"2100 0418 45 0200051332");
            press_key('N', Modifier::alt);
            controls.shows_marks("Cuenta aceptada");
            controls.leave();
        });
    }
}

TEST_F(Verifier, APastedIbanReplacesWhatTheFieldHolds) {
    set_clipboard(L"ES91 2100 0418 4502 0005 1332");
    open([](const Controls& controls) {
        controls.to_front();
        press_key('U', Modifier::alt);
        controls.type(controls.account, L"2100081", L"2100 081");
        paste_account(controls, L"2100 0418 45 0200051332");
        controls.leave();
    });
}

TEST_F(Verifier, AnIbanOfAnotherCountryIsNoAccount) {
    set_clipboard(L"GB29 NWBK 6016 1331 9268 19");
    open([](const Controls& controls) {
        controls.to_front();
        paste_account(controls, L"2960 1613 31 926819");
        controls.leave();
    });
}

TEST_F(Verifier, ATypedIbanGivesItsAccount) {
    // The last ones are an account and two digits too many, which are refused.
    for (const wchar_t* const typed :
         {L"ES91 2100 0418 4502 0005 1332", L"9121000418450200051332", L"2100041845020005133299"}) {
        SCOPED_TRACE(narrow(typed));
        open([typed](const Controls& controls) {
            controls.to_front();
            press_key('U', Modifier::alt);
            controls.type(controls.account, typed, L"2100 0418 45 0200051332");
            press_key('N', Modifier::alt);
            controls.shows_marks("Cuenta aceptada");
            controls.leave();
        });
    }
}

TEST_F(Verifier, TheAccountOfAWrongIbanIsTheOneChecked) {
    open([](const Controls& controls) {
        controls.to_front();
        press_key('U', Modifier::alt);
        controls.type(controls.account, L"ES0021000418460200051332", L"2100 0418 46 0200051332");
        press_key('N', Modifier::alt);
        EXPECT_EQ(answer_next_box(),
                  "48|Datos bancarios incorrectos|Datos bancarios incorrectos. Por favor revise el "
                  "'Código de Cuenta Cliente'\\r\\r          D.C. Correcto.......: 45|1");
        controls.shows_marks("Cuenta no aceptada");
        controls.leave();
    });
}

TEST_F(Verifier, TheCopiedAccountIsUnderstoodWhenPastedBack) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        press_key('U', Modifier::alt);
        controls.type(controls.account, L"21000418450200051332", L"2100 0418 45 0200051332");
        press_key('O', Modifier::alt);
        EXPECT_TRUE(clipboard_becomes(L"2100 0418 45 0200051332"));
        press_key(VK_END);
        press_key(VK_BACK);
        EXPECT_TRUE(
            wait_until([&] { return text_of(controls.account) == L"2100 0418 45 020005133"; }));
        paste_account(controls, L"2100 0418 45 0200051332");
        controls.leave();
    });
}

TEST_F(Verifier, CopiesToTheClipboard) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678Z", L"12345678Z");
        click(controls.copy_tax_id);
        EXPECT_TRUE(clipboard_becomes(L"12345678Z"));
        controls.has_focus(controls.tax_id);
        EXPECT_EQ(controls.selection_of(controls.tax_id), std::pair(0, 9));
        press_key(VK_TAB);
        press_key(VK_TAB);
        controls.type(controls.account, L"21000813610123456789", L"2100 0813 61 0123456789");
        press_key('O', Modifier::alt);
        EXPECT_TRUE(clipboard_becomes(L"2100 0813 61 0123456789"));
        controls.has_focus(controls.account);
        EXPECT_EQ(controls.selection_of(controls.account), std::pair(0, 23));
        controls.leave();
    });
}

TEST_F(Verifier, NothingToCopyShowsABoxAndLeavesTheClipboard) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        click(controls.copy_tax_id);
        EXPECT_EQ(answer_next_box(), "64|Dato incorrecto o falta|Escriba el NIF|1");
        controls.back_to_front();
        controls.has_focus(controls.tax_id);
        click(controls.copy_account);
        EXPECT_EQ(answer_next_box(),
                  "64|Dato incorrecto o falta|Escriba el Código de la Cuenta Bancaria (20 "
                  "dígitos)|1");
        controls.has_focus(controls.account);
        EXPECT_EQ(clipboard(), L"antes");
        controls.leave();
    });
}

TEST_F(Verifier, AShortValueIsNotCopied) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"1234", L"1234");
        press_key('C', Modifier::alt);
        controls.shows_marks("");
        controls.has_focus(controls.tax_id);
        EXPECT_EQ(clipboard(), L"antes");
        controls.leave();
    });
}

TEST_F(Verifier, AClipboardThatAnotherProgramHoldsIsReported) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678Z", L"12345678Z");
        press_key(VK_TAB);
        controls.shows_marks("NIF aceptado");
        press_key(VK_TAB);
        controls.type(controls.account, L"21000813610123456789", L"2100 0813 61 0123456789");
        ASSERT_TRUE(wait_until([] { return OpenClipboard(nullptr) != FALSE; }));
        press_key('C', Modifier::alt);
        EXPECT_EQ(answer_next_box(),
                  "16|kovrel|Error 521\\r (No se puede abrir el Portapapeles) en procedimiento "
                  "cmd_copiaNIF_Click del Formulario frmNIFCCC.|1");
        controls.back_to_front();
        controls.has_focus(controls.tax_id);
        press_key('O', Modifier::alt);
        EXPECT_EQ(answer_next_box(),
                  "16|kovrel|Error 521\\r (No se puede abrir el Portapapeles) en procedimiento "
                  "cmd_copiaCCC_Click del Formulario frmNIFCCC.|1");
        controls.back_to_front();
        controls.has_focus(controls.account);
        CloseClipboard();
        EXPECT_EQ(clipboard(), L"antes");
        press_key('O', Modifier::alt);
        EXPECT_TRUE(clipboard_becomes(L"2100 0813 61 0123456789"));
        controls.leave();
    });
}

TEST_F(Verifier, EnterPressesAFocusedCopyButton) {
    set_clipboard(L"antes");
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678Z", L"12345678Z");
        press_key(VK_TAB);
        controls.has_focus(controls.copy_tax_id);
        press_key(VK_RETURN);
        EXPECT_TRUE(clipboard_becomes(L"12345678Z"));
        controls.has_focus(controls.tax_id);
        controls.leave();
    });
}

}  // namespace
}  // namespace kovrel::test
