// The masks of the verifier's fields, and its messages.
#include <gtest/gtest.h>

#include "taxid/verifier_notices.h"
#include "ui/mask.h"

namespace kovrel {
namespace {

const Mask tax_id(Mask::Accepts::letters_and_digits, {9});
const Mask account(Mask::Accepts::digits, {4, 4, 2, 10});

TEST(Mask, KeepsAcceptedCharactersUpToItsSize) {
    EXPECT_EQ(tax_id.size(), 9U);
    EXPECT_EQ(account.size(), 20U);
    EXPECT_EQ(tax_id.bare(L"12.345.678-z"), L"12345678z");
    EXPECT_EQ(tax_id.bare(L"X1234567890"), L"X12345678");
    EXPECT_EQ(tax_id.bare(L"Ñ\u0661_ñ"), L"");
    EXPECT_EQ(account.bare(L"2077 0024 00 3102575766"), L"20770024003102575766");
    EXPECT_EQ(account.bare(L"ES2077a"), L"2077");
    EXPECT_EQ(account.bare(std::wstring(50, L'7')), std::wstring(20, L'7'));
    EXPECT_EQ(account.bare(L""), L"");
    EXPECT_EQ(account.bare(std::wstring_view(L"1\0002", 3)), L"12");
}

TEST(Mask, ShowsTheGroupsThatHaveBegun) {
    EXPECT_EQ(account.shown(L"20770024003102575766"), L"2077 0024 00 3102575766");
    EXPECT_EQ(account.shown(L"20770024003102575766").size(), 23U);
    EXPECT_EQ(account.shown(L""), L"");
    EXPECT_EQ(account.shown(L"2077"), L"2077");
    EXPECT_EQ(account.shown(L"20770"), L"2077 0");
    EXPECT_EQ(account.shown(L"20770024"), L"2077 0024");
    EXPECT_EQ(account.shown(L"2077002400"), L"2077 0024 00");
    EXPECT_EQ(account.shown(L"20770024003"), L"2077 0024 00 3");
    EXPECT_EQ(account.shown(L" 2 0 7 7 0"), L"2077 0");
    EXPECT_EQ(tax_id.shown(L"12345678Z"), L"12345678Z");
}

TEST(Mask, TheCaretPositionFollowsTheCharacters) {
    const std::wstring shown = account.shown(L"20770024003");
    EXPECT_EQ(account.shown_position(shown, 0), 0U);
    EXPECT_EQ(account.shown_position(shown, 4), 4U);
    EXPECT_EQ(account.shown_position(shown, 5), 6U);
    EXPECT_EQ(account.shown_position(shown, 11), shown.size());
    EXPECT_EQ(account.shown_position(shown, 40), shown.size());
    EXPECT_EQ(account.shown_position(L"", 3), 0U);
}

TEST(VerifierNotices, NothingToCopy) {
    EXPECT_EQ(tax_id_to_copy_missing(),
              (Notice{L"Escriba el NIF", NoticeStyle::information, L"Dato incorrecto o falta"}));
    EXPECT_EQ(account_to_copy_missing(),
              (Notice{L"Escriba el Código de la Cuenta Bancaria (20 dígitos)",
                      NoticeStyle::information, L"Dato incorrecto o falta"}));
}

TEST(VerifierNotices, DataEntryErrors) {
    const Notice empty{L"El dato no puede quedar vacío.", NoticeStyle::exclamation, std::nullopt};
    EXPECT_EQ(data_entry_notice(3162, L"MkNIF"), empty);
    EXPECT_EQ(data_entry_notice(3314, L""), empty);
    EXPECT_EQ(data_entry_notice(2113, L"MkCCC"), (Notice{L"Introduzca el dato correctamente.",
                                                         NoticeStyle::information, std::nullopt}));
    EXPECT_EQ(data_entry_notice(2279, L"MkNIF"),
              (Notice{L"Introduzca el NIF correctamente (Ejemplo: \"09123456X\" o \"X9123456Y\")",
                      NoticeStyle::information, std::nullopt}));
    for (const wchar_t* control : {L"MkCCC", L"", L"mknif", L"cmdOK"}) {
        EXPECT_EQ(data_entry_notice(2279, control),
                  (Notice{L"Introduzca el Código de Cuenta Bancaria correctamente.",
                          NoticeStyle::information, std::nullopt}));
    }
    for (const std::int32_t code : {0, 1, -1, 2280, 3163}) {
        EXPECT_EQ(data_entry_notice(code, L"MkNIF"), std::nullopt);
    }
}

}  // namespace
}  // namespace kovrel
