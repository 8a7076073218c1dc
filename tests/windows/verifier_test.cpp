// The verifier's checks, with real keys: what it accepts, corrects, marks and reports.
#include "tests/windows/verifier_window.h"

namespace kovrel::test {
namespace {

TEST_F(Verifier, ValidValuesAreAccepted) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678z", L"12345678z");
        controls.shows_marks("NIF no aceptado");
        press_key(VK_TAB);
        controls.shows_marks("NIF aceptado");
        EXPECT_EQ(text_of(controls.tax_id), L"12345678Z");
        controls.has_focus(controls.copy_tax_id);
        press_key(VK_TAB);
        controls.type(controls.account, L"21000813610123456789", L"2100 0813 61 0123456789");
        controls.shows_marks("NIF aceptado, Cuenta no aceptada");
        press_key(VK_TAB);
        controls.shows_marks("NIF aceptado, Cuenta aceptada");
        controls.leave();
    });
}

TEST_F(Verifier, AWrongLetterIsReportedAndCorrected) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"12345678A", L"12345678A");
        press_key(VK_TAB);
        EXPECT_EQ(answer_next_box(),
                  "48|Error en la letra del N.I.F.|La letra del N.I.F. 'A' es incorrecta y será "
                  "sustituida por la correcta: 'Z'|1");
        controls.shows_marks("NIF aceptado");
        EXPECT_EQ(text_of(controls.tax_id), L"12345678Z");
        controls.leave();
    });
}

TEST_F(Verifier, ARejectedCompanyIsEmptiedAndMarkedAsAccepted) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"A28015866", L"A28015866");
        press_key(VK_TAB);
        EXPECT_EQ(answer_next_box(),
                  "16|ATENCIÓN|El último número no corresponde a un CIF correcto.|1");
        EXPECT_TRUE(wait_until([&] { return text_of(controls.tax_id).empty(); }));
        controls.shows_marks("NIF aceptado");
        controls.leave();
    });
}

TEST_F(Verifier, AWrongAccountNamesTheRightDigits) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"1234", L"1234");
        controls.shows_marks("NIF no aceptado");
        for (int strokes = 0; strokes < 4; ++strokes) press_key(VK_BACK);
        EXPECT_TRUE(wait_until([&] { return text_of(controls.tax_id).empty(); }));
        press_key(VK_TAB);
        controls.shows_marks("");
        press_key(VK_TAB);
        controls.type(controls.account, L"21000813620123456789", L"2100 0813 62 0123456789");
        press_key(VK_TAB);
        EXPECT_EQ(answer_next_box(),
                  "48|Datos bancarios incorrectos|Datos bancarios incorrectos. Por favor revise el "
                  "'Código de Cuenta Cliente'\\r\\r          D.C. Correcto.......: 61|1");
        controls.shows_marks("Cuenta no aceptada");
        controls.has_focus(controls.copy_account);
        EXPECT_EQ(text_of(controls.account), L"2100 0813 62 0123456789");
        controls.leave();
    });
}

TEST_F(Verifier, ShortValuesKeepTheFocusWithoutABox) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"1234", L"1234");
        press_key(VK_TAB);
        controls.shows_marks("");
        controls.has_focus(controls.tax_id);
        EXPECT_EQ(text_of(controls.tax_id), L"1234");
        // Completing it makes it valid.
        press_key(VK_END);
        controls.type(controls.tax_id, L"5678Z", L"12345678Z");
        press_key(VK_TAB);
        controls.has_focus(controls.copy_tax_id);
        press_key(VK_TAB);
        controls.type(controls.account, L"21000", L"2100 0");
        press_key(VK_TAB);
        controls.shows_marks("NIF aceptado");
        controls.has_focus(controls.account);
        // The next key still goes to the field.
        press_key(VK_TAB, Modifier::shift);
        controls.type(controls.account, L"8", L"2100 08");
        controls.leave();
    });
}

TEST_F(Verifier, TheFieldsTakeOnlyTheirCharacters) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"b-12 34.56x789", L"b123456x7");
        press_key(VK_BACK);
        EXPECT_TRUE(wait_until([&] { return text_of(controls.tax_id) == L"b123456x"; }));
        ask(controls.tax_id, EM_SETSEL, 0, -1);
        controls.type(controls.tax_id, L"x1234567l", L"x1234567l");
        press_key(VK_TAB);
        press_key(VK_TAB);
        controls.type(controls.account, L"2100a0813", L"2100 0813");
        // Past the separator from both sides.
        ask(controls.account, EM_SETSEL, 5, 5);
        press_key(VK_BACK);
        EXPECT_TRUE(wait_until([&] { return text_of(controls.account) == L"2100 813"; }))
            << narrow(text_of(controls.account));
        controls.leave();
    });
}

TEST_F(Verifier, TheKindOfTaxIdIsInTheTooltip) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"A28015865", L"A28015865");
        press_key(VK_TAB);
        controls.shows_marks("NIF aceptado");
        EXPECT_EQ(tooltip_of(controls.window, controls.tax_id), L"A - Sociedad Anónima");
        controls.leave();
    });
}

TEST_F(Verifier, TheTooltipIsRemovedWithItsValue) {
    open([](const Controls& controls) {
        const auto check = [&](const wchar_t* keys, const wchar_t* tooltip) {
            controls.type(controls.tax_id, keys, keys);
            press_key(VK_TAB);
            EXPECT_TRUE(wait_until([&] {
                return tooltip_of(controls.window, controls.tax_id) == tooltip;
            })) << narrow(tooltip_of(controls.window, controls.tax_id));
            press_key('N', Modifier::alt);
            controls.has_focus(controls.tax_id);
            ask(controls.tax_id, EM_SETSEL, 0, -1);
        };
        controls.to_front();
        check(L"12345678Z", L"NIF - Número de Identificación Fiscal");
        // Left short.
        check(L"1234", L"");
        check(L"A28015865", L"A - Sociedad Anónima");
        // Left empty.
        press_key(VK_DELETE);
        check(L"", L"");
        controls.leave();
    });
}

TEST_F(Verifier, ARejectedCompanyHasTheTooltipOfAnEmptyText) {
    open([](const Controls& controls) {
        controls.to_front();
        controls.type(controls.tax_id, L"A28015866", L"A28015866");
        press_key(VK_TAB);
        answer_next_box();
        EXPECT_TRUE(wait_until([&] {
            return tooltip_of(controls.window, controls.tax_id) == L"A - Sociedad Anónima";
        }));
        controls.leave();
    });
}

TEST_F(Verifier, AnAccountLeftEmptyHasNoMark) {
    open([](const Controls& controls) {
        controls.to_front();
        press_key('U', Modifier::alt);
        controls.type(controls.account, L"21000813610123456789", L"2100 0813 61 0123456789");
        press_key(VK_TAB);
        controls.shows_marks("Cuenta aceptada");
        press_key('U', Modifier::alt);
        controls.has_focus(controls.account);
        ask(controls.account, EM_SETSEL, 0, -1);
        press_key(VK_DELETE);
        controls.shows_marks("Cuenta no aceptada");
        press_key(VK_TAB);
        controls.shows_marks("");
        controls.has_focus(controls.copy_account);
        controls.leave();
    });
}

}  // namespace
}  // namespace kovrel::test
