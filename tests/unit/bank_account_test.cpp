#include "taxid/bank_account.h"

#include <gtest/gtest.h>

namespace kovrel {
namespace {

constexpr std::wstring_view opening =
    L"Datos bancarios incorrectos. Por favor revise el 'Código de Cuenta Cliente'\r\r";

std::wstring right_digits(std::wstring_view code) {
    return control_digits(bank_of(code), branch_of(code), account_of(code));
}

std::optional<Notice> notice(std::wstring_view code, bool reveal = false) {
    return bank_account_notice(code, right_digits(code), reveal);
}

Notice expected(std::wstring_view rest) {
    return {std::wstring(opening) + std::wstring(rest), NoticeStyle::exclamation,
            L"Datos bancarios incorrectos"};
}

TEST(BankAccount, IsSplitIntoItsParts) {
    constexpr std::wstring_view code = L"12345678901234567890";
    EXPECT_EQ(bank_of(code), L"1234");
    EXPECT_EQ(branch_of(code), L"5678");
    EXPECT_EQ(control_digits_of(code), L"90");
    EXPECT_EQ(account_of(code), L"1234567890");
    EXPECT_EQ(account_of(L"1234567890123456789012345"), L"1234567890");
}

TEST(BankAccount, AShortCodeHasShortParts) {
    EXPECT_EQ(bank_of(L""), L"");
    EXPECT_EQ(branch_of(L""), L"");
    EXPECT_EQ(control_digits_of(L""), L"");
    EXPECT_EQ(account_of(L""), L"");
    EXPECT_EQ(bank_of(L"123"), L"123");
    EXPECT_EQ(branch_of(L"12345"), L"5");
    EXPECT_EQ(branch_of(L"1234"), L"");
    EXPECT_EQ(control_digits_of(L"123456789"), L"9");
    EXPECT_EQ(account_of(L"12345678901"), L"1");
}

TEST(ControlDigits, FollowTheWeights) {
    EXPECT_EQ(control_digits(L"2085", L"0103", L"").front(), L'9');
    EXPECT_EQ(control_digits(L"2077", L"0024", L"3102575766"), L"00");
    EXPECT_EQ(control_digits(L"1234", L"5678", L"1234567890"), L"06");
}

TEST(ControlDigits, TenIsWrittenOneAndElevenZero) {
    EXPECT_EQ(control_digits(L"0000", L"0000", L"0000000000"), L"00");
    // A single 1 with the weight 1 leaves the remainder 1; with 10 it leaves 10.
    EXPECT_EQ(control_digits(L"", L"", L"1000000000"), L"01");
    EXPECT_EQ(control_digits(L"", L"", L"0000010000"), L"01");
    EXPECT_EQ(control_digits(L"0001", L"0000", L""), L"10");
}

TEST(ControlDigits, MissingDigitsAndOtherCharactersCountAsZero) {
    EXPECT_EQ(control_digits(L"", L"", L""), L"00");
    EXPECT_EQ(control_digits(L"A08Ñ", L"-1 3", L"x"), control_digits(L"0080", L"0103", L"0"));
    // Bank and branch are used as one number of eight digits.
    EXPECT_EQ(control_digits(L"20850103", L"", L""), control_digits(L"2085", L"0103", L""));
    EXPECT_EQ(control_digits(L"2085", L"01039999", L"12345678901111"),
              control_digits(L"2085", L"0103", L"1234567890"));
}

TEST(ControlDigits, EveryChangedDigitChangesThem) {
    const std::wstring code = L"20770024003102575766";
    for (std::size_t position = 0; position < code.size(); ++position) {
        for (wchar_t digit = L'0'; digit <= L'9'; ++digit) {
            if (digit == code[position]) continue;
            auto changed = code;
            changed[position] = digit;
            // Only a change between the remainders of 10 and 1, both written as 1, is not detected.
            EXPECT_EQ(notice(changed).has_value(), right_digits(changed) != changed.substr(8, 2));
        }
    }
}

TEST(BankAccountNotice, AValidCodeHasNone) {
    EXPECT_EQ(notice(L"20770024003102575766"), std::nullopt);
    EXPECT_EQ(notice(L"20770024003102575766", true), std::nullopt);
    EXPECT_EQ(notice(L"00000000000000000000"), std::nullopt);
}

TEST(BankAccountNotice, ShowsTheCorrectDigits) {
    EXPECT_EQ(notice(L"20770024123102575766", true),
              expected(L"          D.C. Correcto.......: 00"));
}

TEST(BankAccountNotice, SaysWhichDigitIsWrong) {
    EXPECT_EQ(notice(L"20770024123102575766"),
              expected(L"Errores localizados en los 8 primeros dígitos (Banco-Sucursal) y en en "
                       L"los 10 últimos dígitos (Nº de Cuenta)"));
    EXPECT_EQ(notice(L"20770024103102575766"),
              expected(L"Error localizado en los 8 primeros dígitos (Banco-Sucursal)"));
    EXPECT_EQ(notice(L"20770024013102575766"),
              expected(L"Error localizado en los 10 últimos dígitos (Nº de Cuenta)"));
}

TEST(BankAccountNotice, EachDigitIsComparedWithItsOwn) {
    // The right digits are 06.
    EXPECT_EQ(notice(L"12345678661234567890"),
              expected(L"Error localizado en los 8 primeros dígitos (Banco-Sucursal)"));
    EXPECT_EQ(notice(L"12345678001234567890"),
              expected(L"Error localizado en los 10 últimos dígitos (Nº de Cuenta)"));
}

TEST(BankAccountNotice, AShortCodeNeverMatches) {
    EXPECT_EQ(notice(L"0"), expected(L"Errores localizados en los 8 primeros dígitos "
                                     L"(Banco-Sucursal) y en en los 10 últimos dígitos (Nº de "
                                     L"Cuenta)"));
    EXPECT_EQ(notice(L"000000000"),
              expected(L"Error localizado en los 10 últimos dígitos (Nº de Cuenta)"));
    EXPECT_EQ(notice(L"0000000000"), std::nullopt);
}

}  // namespace
}  // namespace kovrel
