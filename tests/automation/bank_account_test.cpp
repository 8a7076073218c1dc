// clsFGen's bank account codes and the letters of tax identifiers, as hosts call them.
#include <gtest/gtest.h>

#include "tests/support/every_way.h"

namespace kovrel::test {
namespace {

constexpr const wchar_t* right = L"20770024003102575766";
constexpr const wchar_t* title = L"Datos bancarios incorrectos";

class BankAccountAnySettings : public testing::TestWithParam<Way> {
 protected:
    std::string shown_for(const wchar_t* member, std::vector<Variant> arguments,
                          const std::vector<ExpectedBox>& boxes = {}) {
        const Answer answer =
            call_in(GetParam(), general_.get(), member, std::move(arguments), boxes);
        EXPECT_EQ(answer.result, S_OK);
        return shown(answer.value);
    }

    std::string kind(const wchar_t* letter) {
        return shown_for(L"DescripNIFCIF", {Variant(letter)});
    }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
    const std::string yes_ = shown(Variant(true));
    const std::string no_ = shown(Variant(false));
};

TEST_P(BankAccountAnySettings, ControlDigits) {
    const auto digits = [&](const wchar_t* bank, const wchar_t* branch, const wchar_t* account) {
        return shown_for(L"DC", {Variant(bank), Variant(branch), Variant(account)});
    };
    EXPECT_EQ(digits(L"2077", L"0024", L"3102575766"), "texto 00");
    EXPECT_EQ(digits(L"2085", L"0103", L"0000000000"), "texto 90");
    EXPECT_EQ(digits(L"0000", L"0000", L"0000000000"), "texto 00");
    EXPECT_EQ(digits(L"", L"", L""), "texto 00");
    EXPECT_EQ(digits(L"ABCD", L"-+.,", L"x"), "texto 00");
    // A control digit of 10 is written as 1: 3 times the weight 4 leaves the remainder 1.
    EXPECT_EQ(digits(L"3", L"", L""), "texto 10");
}

TEST_P(BankAccountAnySettings, BankBranchControlDigitsAndAccount) {
    for (const auto& [member, piece] :
         {std::pair{L"Banco_CC", "texto 2077"}, std::pair{L"Sucursal_CC", "texto 0024"},
          std::pair{L"DC_CC", "texto 00"}, std::pair{L"Cuenta_CC", "texto 3102575766"}}) {
        EXPECT_EQ(shown_for(member, {Variant(right)}), piece);
        EXPECT_EQ(shown_for(member, {Variant(L"")}), "texto ");
        // A code of more than 20 digits is cut.
        EXPECT_EQ(shown_for(member, {Variant(std::wstring(right) + L"99")}), piece);
    }
    EXPECT_EQ(shown_for(L"DC_CC", {Variant(L"123456789")}), "texto 9");
    EXPECT_EQ(shown_for(L"Cuenta_CC", {Variant(L"123456789012")}), "texto 12");
    EXPECT_EQ(shown_for(L"Sucursal_CC", {Variant(L"1234")}), "texto ");
}

TEST_P(BankAccountAnySettings, AValidCodeShowsNoBox) {
    EXPECT_EQ(shown_for(L"Verifica_CC", {Variant(right)}), yes_);
    EXPECT_EQ(shown_for(L"Verifica_CC", {Variant(right), Variant(true), Variant(true)}), yes_);
    // Missing digits count as zeros.
    EXPECT_EQ(shown_for(L"Verifica_CC", {Variant(L"0000000000")}), yes_);
}

TEST_P(BankAccountAnySettings, AnEmptyCode) {
    put(general_.get(), L"AppOrigen", Variant(L"Facturas"));
    EXPECT_EQ(shown_for(L"Verifica_CC", {Variant(L"")}), yes_);
    EXPECT_EQ(shown_for(L"Verifica_CC", {Variant(L""), Variant(false), Variant(true)}), yes_);
    EXPECT_EQ(shown_for(L"Verifica_CC", {Variant(L""), Variant(true)}), no_);
    EXPECT_EQ(shown_for(L"Verifica_CC", {Variant(L""), Variant(true), Variant(true)},
                        {{L"El dato  no puede quedar vacío.", 48, L"Facturas"}}),
              no_);
}

TEST_P(BankAccountAnySettings, AWrongCodeAlwaysShowsABox) {
    put(general_.get(), L"AppOrigen", Variant(L"Facturas"));
    const std::wstring opening =
        L"Datos bancarios incorrectos. Por favor revise el 'Código de Cuenta Cliente'\r\r";
    const auto told = [&](const wchar_t* code, const wchar_t* where) {
        const std::wstring silent = opening + where;
        EXPECT_EQ(shown_for(L"Verifica_CC", {Variant(code)}, {{silent.c_str(), 48, title}}), no_);
        const std::wstring digits = opening + L"          D.C. Correcto.......: 00";
        EXPECT_EQ(shown_for(L"Verifica_CC", {Variant(code), Variant(false), Variant(true)},
                            {{digits.c_str(), 48, title}}),
                  no_);
    };
    told(L"20770024103102575766", L"Error localizado en los 8 primeros dígitos (Banco-Sucursal)");
    told(L"20770024013102575766", L"Error localizado en los 10 últimos dígitos (Nº de Cuenta)");
    told(L"20770024113102575766",
         L"Errores localizados en los 8 primeros dígitos (Banco-Sucursal) y en en los 10 últimos "
         L"dígitos (Nº de Cuenta)");
    told(L"0",
         L"Errores localizados en los 8 primeros dígitos (Banco-Sucursal) y en en los 10 últimos "
         L"dígitos (Nº de Cuenta)");
    told(L"000000000", L"Error localizado en los 10 últimos dígitos (Nº de Cuenta)");
}

TEST_P(BankAccountAnySettings, WithoutACatalogueShowsTheErrorBox) {
    put(general_.get(), L"Mensajes", Variant(ComPtr<IDispatch>()), DISPATCH_PROPERTYPUTREF);
    EXPECT_EQ(shown_for(L"Verifica_CC", {Variant(L""), Variant(true), Variant(true)},
                        {{L"Error 91\r (Variable de objeto o bloque With no establecido) en "
                          L"procedimiento Verifica_CC del Módulo de clase clsFGen.",
                          16, L"kovrel"}}),
              no_);
}

TEST_P(BankAccountAnySettings, KindsOfHolder) {
    EXPECT_EQ(kind(L"7"), "texto NIF - Número de Identificación Fiscal");
    EXPECT_EQ(kind(L"-12"), "texto NIF - Número de Identificación Fiscal");
    EXPECT_EQ(kind(L"A"), "texto A - Sociedad Anónima");
    EXPECT_EQ(kind(L"B"), "texto B - Sociedad de Responsabilidad Limitada");
    EXPECT_EQ(kind(L"b"), "texto B - Sociedad de Responsabilidad Limitada");
    EXPECT_EQ(kind(L"C"), "texto C - Sociedad Colectiva");
    EXPECT_EQ(kind(L"D"), "texto D - Sociedad Comanditaria");
    EXPECT_EQ(kind(L"E"), "texto E - Comunidad de Bienes");
    EXPECT_EQ(kind(L"F"), "texto F - Sociedad Cooperativa");
    EXPECT_EQ(kind(L"G"), "texto G - Asociación");
    EXPECT_EQ(kind(L"H"), "texto H - Comunidad de Propietarios");
    EXPECT_EQ(kind(L"J"), "texto J - Sociedad Civil");
    EXPECT_EQ(kind(L"K"), "texto K - Formato antiguo");
    EXPECT_EQ(kind(L"L"), "texto L - Formato antiguo");
    EXPECT_EQ(kind(L"M"), "texto M - Formato antiguo");
    EXPECT_EQ(kind(L"N"), "texto N - Entidad Extranjera");
    EXPECT_EQ(kind(L"P"), "texto P - Corporación local");
    EXPECT_EQ(kind(L"Q"), "texto Q - Organismo público");
    EXPECT_EQ(kind(L"R"), "texto R - Institución Religiosa");
    EXPECT_EQ(kind(L"S"), "texto S - Organo de la administración");
    EXPECT_EQ(kind(L"U"), "texto U - Unión Temporal de Empresas");
    EXPECT_EQ(kind(L"V"), "texto V - Otro Tipo");
    EXPECT_EQ(kind(L"W"), "texto W - Entidad No Residente");
    EXPECT_EQ(kind(L"X"), "texto X - NIE: Número Identificador de Extranjero");
    EXPECT_EQ(kind(L"y"), "texto Y - NIE: Número Identificador de Extranjero");
    for (const wchar_t* const other : {L"I", L"O", L"T", L"Z", L"Ñ", L"BA", L"?"}) {
        EXPECT_EQ(kind(other), "texto ERROR");
    }
    EXPECT_EQ(kind(L""), "texto A - Sociedad Anónima");
    EXPECT_EQ(kind(L"AB"), "texto A - Sociedad Anónima");
    EXPECT_EQ(kind(L"wxy"), "texto W - Entidad No Residente");
}

INSTANTIATE_TEST_SUITE_P(All, BankAccountAnySettings, testing::ValuesIn(every_way));

}  // namespace
}  // namespace kovrel::test
