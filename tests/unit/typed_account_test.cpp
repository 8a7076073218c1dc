#include "identifiers/typed_account.h"

#include <gtest/gtest.h>

namespace kovrel {
namespace {

const std::optional<std::wstring> whole_account = L"21000418450200051332";

TEST(TypedAccount, AnAccountIsItself) {
    EXPECT_EQ(typed_account(L"21000418450200051332"), whole_account);
    EXPECT_EQ(typed_account(L" 2100-0418.45/0200051332 "), whole_account);
    EXPECT_EQ(typed_account(L"21000418460200051332"), L"21000418460200051332");
}

TEST(TypedAccount, ASpanishIbanGivesItsAccountEvenWhenItIsWrong) {
    EXPECT_EQ(typed_account(L"ES9121000418450200051332"), whole_account);
    EXPECT_EQ(typed_account(L"iban: es91 2100"), std::nullopt);
    EXPECT_EQ(typed_account(L"IBAN es91 2100 0418 4502 0005 1332"), whole_account);
    EXPECT_EQ(typed_account(L"ES0021000418460200051332"), L"21000418460200051332");
}

TEST(TypedAccount, DigitsWithoutACountryMustBeARightIban) {
    EXPECT_EQ(typed_account(L"9121000418450200051332"), whole_account);
    EXPECT_EQ(typed_account(L"9221000418450200051332"), std::nullopt);
    // Right controls around a wrong account.
    EXPECT_EQ(typed_account(L"2921000418460200051332"), std::nullopt);
}

TEST(TypedAccount, AnythingElseIsNone) {
    for (const wchar_t* const text :
         {L"", L"ES", L"2100041845020005133", L"210004184502000513321", L"2100041845020005133A",
          L"GB29NWBK60161331926819", L"ES912100041845020005133", L"ES91210004184502000513321",
          L"ES91 2100 0418 45O2 0005 1332", L"FR9121000418450200051332"}) {
        EXPECT_EQ(typed_account(text), std::nullopt);
    }
}

}  // namespace
}  // namespace kovrel
