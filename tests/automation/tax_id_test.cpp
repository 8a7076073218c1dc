// clsFGen's tax identifiers, as hosts call them, with their real boxes.
#include <gtest/gtest.h>

#include "tests/support/box_lines.h"
#include "tests/support/early.h"
#include "tests/support/every_way.h"

namespace kovrel::test {
namespace {

class TaxIds : public testing::Test {
 protected:
    std::wstring verify(const wchar_t* typed) {
        return text_of_result(call(general_.get(), L"Verifica_NIF", {typed}));
    }

    std::wstring verify_silently(const wchar_t* typed) {
        return text_of_result(call(general_.get(), L"Verifica_NIF", {typed, false}));
    }

    /// Verifies and expects just one box.
    void expect_box(const wchar_t* typed, const wchar_t* result, const wchar_t* text, int style,
                    const wchar_t* title) {
        SCOPED_TRACE(narrow(typed));
        BoxWatcher boxes({answer(IDOK)});
        EXPECT_EQ(narrow(verify(typed)), narrow(result));
        ASSERT_EQ(boxes.seen().size(), 1U);
        EXPECT_EQ(narrow(boxes.seen()[0].text), narrow(text));
        EXPECT_EQ(narrow(boxes.seen()[0].title), narrow(title));
        EXPECT_EQ(boxes.seen()[0].style, style);
    }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
};

TEST_F(TaxIds, ValidOnesShowNoBox) {
    BoxWatcher no_box;
    EXPECT_EQ(verify(L"12345678Z"), L"12345678Z");
    EXPECT_EQ(verify(L"12345678z"), L"12345678Z");
    EXPECT_EQ(verify(L"12.345.678-Z"), L"12345678Z");
    EXPECT_EQ(verify(L"12 345 678 Z"), L"12345678Z");
    EXPECT_EQ(verify(L"X1234567L"), L"X1234567L");
    EXPECT_EQ(verify(L"B12345674"), L"B12345674");
    EXPECT_EQ(verify(L"b-1234567-d"), L"B1234567D");
    for (const wchar_t* const listed : {L"A28015865", L"A39000013", L"A48265169", L"A15075062"}) {
        EXPECT_EQ(verify(listed), listed);
    }
}

TEST_F(TaxIds, AWrongLetterIsNamedAndReplaced) {
    expect_box(L"12345678A", L"12345678Z",
               L"La letra del N.I.F. 'A' es incorrecta y será sustituida por la correcta: 'Z'", 48,
               L"Error en la letra del N.I.F.");
    expect_box(L"12345678", L"12345678T",
               L"La letra del N.I.F. '8' es incorrecta y será sustituida por la correcta: 'T'", 48,
               L"Error en la letra del N.I.F.");
    expect_box(L"1234567L", L"01234567T",
               L"La letra del N.I.F. 'L' es incorrecta y será sustituida por la correcta: 'T'", 48,
               L"Error en la letra del N.I.F.");
    expect_box(L"X1234567A", L"X1234567L",
               L"La letra del N.I.E. 'A' es incorrecta y será sustituida por la correcta: 'L'", 48,
               L"Error en la letra del N.I.E.");
    expect_box(L"X-1234567-A", L"X1234567AL",
               L"La letra del N.I.E. 'A' es incorrecta y será sustituida por la correcta: 'L'", 48,
               L"Error en la letra del N.I.E.");
}

// By the system's rules for all scripts, not only for Spanish letters.
TEST_F(TaxIds, EveryLetterHasItsCapital) {
    for (const Way way : every_way) {
        const auto typed = [&](const wchar_t* text, const wchar_t* letter) {
            const std::wstring box = std::wstring(L"La letra del N.I.F. '") + letter +
                                     L"' es incorrecta y será sustituida por la correcta: 'Z'";
            const Answer answer =
                call_in(way, general_.get(), L"Verifica_NIF", {Variant(text), Variant(true)},
                        {{box.c_str(), 48, L"Error en la letra del N.I.F."}});
            EXPECT_EQ(shown(answer.value), "texto 12345678Z");
        };
        typed(L"12345678ñ", L"Ñ");
        typed(L"12345678\u0151", L"\u0150");  // ő
        typed(L"12345678\u03C9", L"\u03A9");  // ω
        typed(L"12345678\u0436", L"\u0416");  // ж
        typed(L"12345678\u1E63", L"\u1E62");  // ṣ
        typed(L"12345678\u00DF", L"\u00DF");  // ß
    }
}

TEST_F(TaxIds, ACifIsRejectedWithItsReason) {
    expect_box(L"", L"", L"CIF incompleto, mínimo 8 carácteres.", 16, L"ATENCIÓN");
    expect_box(L"B123", L"", L"CIF incompleto, mínimo 8 carácteres.", 16, L"ATENCIÓN");
    expect_box(L"T12345674", L"", L"La Primera letra no corresponde a un CIF.", 16, L"ATENCIÓN");
    expect_box(L"B12345675", L"", L"El último número no corresponde a un CIF correcto.", 16,
               L"ATENCIÓN");
    expect_box(L"B1234567E", L"", L"La última letra no corresponde a un CIF correcto.", 16,
               L"ATENCIÓN");
}

TEST_F(TaxIds, SilentWhenMessagesAreOff) {
    BoxWatcher no_box;
    EXPECT_EQ(verify_silently(L"12345678A"), L"12345678Z");
    EXPECT_EQ(verify_silently(L"X1234567A"), L"X1234567L");
    EXPECT_EQ(verify_silently(L"B12345675"), L"");
    EXPECT_EQ(verify_silently(L""), L"");
}

TEST_F(TaxIds, AFailureShowsTheStandardBoxWhateverTheMessagesSay) {
    const wchar_t* const text =
        L"Error 13\r (No coinciden los tipos) en procedimiento Verifica_NIF del Módulo de clase "
        L"clsFGen.";
    for (const bool messages : {true, false}) {
        BoxWatcher boxes({answer(IDOK)});
        EXPECT_EQ(text_of_result(call(general_.get(), L"Verifica_NIF", {L"1234A678Z", messages})),
                  L"");
        ASSERT_EQ(boxes.seen().size(), 1U);
        EXPECT_EQ(narrow(boxes.seen()[0].text), narrow(text));
        EXPECT_EQ(boxes.seen()[0].style, 16);
        EXPECT_EQ(boxes.seen()[0].title, L"kovrel");
    }
    expect_box(L"X12", L"", text, 16, L"kovrel");
}

TEST_F(TaxIds, TheErrorBoxIgnoresTheHostsName) {
    put(general_.get(), L"AppOrigen", Variant(L"Facturas"));
    BoxWatcher boxes({answer(IDOK)});
    verify(L"X12");
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(boxes.seen()[0].title, L"kovrel");
}

TEST_F(TaxIds, TextsOfAnyLength) {
    const std::wstring longest(40000, L'1');
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    // The 16-bit position overflows inside QuitaCaracteresyEspacios, which shows the box and
    // changes nothing; the text is then verified as a NIF of another length.
    const std::wstring result = verify(longest.c_str());
    EXPECT_EQ(result.size(), 40000U);
    EXPECT_EQ(result.back(), L'T');
    EXPECT_EQ(lines_of(boxes),
              (Lines{narrow(L"16|kovrel|Error 6\\r (Desbordamiento) en procedimiento "
                            L"QuitaCaracteresyEspacios del Módulo de clase clsFGen.|1"),
                     narrow(L"48|Error en la letra del N.I.F.|La letra del N.I.F. '1' es "
                            L"incorrecta y será sustituida por la correcta: 'T'|1")}));
}

TEST_F(TaxIds, LettersOfNumbers) {
    EXPECT_EQ(text_of_result(call(general_.get(), L"LetraNIF", {12345678})), L"Z");
    EXPECT_EQ(text_of_result(call(general_.get(), L"LetraNIF", {0})), L"T");
    EXPECT_EQ(text_of_result(call(general_.get(), L"LetraNIF", {L"23"})), L"T");
    EXPECT_EQ(text_of_result(call(general_.get(), L"LetraNIF", {-1})), L"E");
}

TEST_F(TaxIds, SeparatorsAreRemovedFromTheCallersVariable) {
    Variant variable(L"12.345.678-Z / x");
    EXPECT_EQ(call(general_.get(), L"QuitaCaracteresyEspacios", {LateArgument::variable(variable)})
                  .result,
              S_OK);
    EXPECT_EQ(text_of(variable.bstrVal), L"12345678Zx");
    Bstr typed(L"1-2/3 4.5_6");
    BSTR raw = typed.detach();
    call(general_.get(), L"QuitaCaracteresyEspacios", {LateArgument::variable(raw)});
    EXPECT_EQ(text_of(raw), L"12345_6");
    SysFreeString(raw);
}

TEST_F(TaxIds, EarlyBound) {
    using Verify = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR, VARIANT_BOOL*, BSTR*);
    using Letter = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, LONG*, BSTR*);
    using Strip = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*);
    const Bstr typed(L"12345678a");
    VARIANT_BOOL messages = VARIANT_FALSE;
    Bstr result;
    EXPECT_EQ(early<Verify>(general_.get(), L"Verifica_NIF")(general_.get(), typed.get(), &messages,
                                                             result.put()),
              S_OK);
    EXPECT_EQ(result.view(), L"12345678Z");
    LONG number = 12345678;
    EXPECT_EQ(early<Letter>(general_.get(), L"LetraNIF")(general_.get(), &number, result.put()),
              S_OK);
    EXPECT_EQ(result.view(), L"Z");
    BSTR raw = SysAllocString(L"a-b");
    EXPECT_EQ(early<Strip>(general_.get(), L"QuitaCaracteresyEspacios")(general_.get(), &raw),
              S_OK);
    EXPECT_EQ(text_of(raw), L"ab");
    SysFreeString(raw);

    messages = VARIANT_TRUE;
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(early<Verify>(general_.get(), L"Verifica_NIF")(general_.get(), typed.get(), &messages,
                                                             result.put()),
              S_OK);
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(boxes.seen()[0].style, 48);
}

}  // namespace
}  // namespace kovrel::test
