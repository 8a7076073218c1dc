#include "taxid/tax_id_kind.h"

#include <array>
#include <gtest/gtest.h>
#include <utility>

#include "tests/support/spanish_regional.h"

namespace kovrel {
namespace {

std::wstring_view kind(std::wstring_view letter) {
    return tax_id_kind(letter, testing_support::SpanishRegional());
}

TEST(TaxIdKind, NamesEveryFirstLetter) {
    constexpr std::array<std::pair<wchar_t, const wchar_t*>, 22> table{{
        {L'A', L"A - Sociedad Anónima"},
        {L'B', L"B - Sociedad de Responsabilidad Limitada"},
        {L'C', L"C - Sociedad Colectiva"},
        {L'D', L"D - Sociedad Comanditaria"},
        {L'E', L"E - Comunidad de Bienes"},
        {L'F', L"F - Sociedad Cooperativa"},
        {L'G', L"G - Asociación"},
        {L'H', L"H - Comunidad de Propietarios"},
        {L'J', L"J - Sociedad Civil"},
        {L'K', L"K - Formato antiguo"},
        {L'L', L"L - Formato antiguo"},
        {L'M', L"M - Formato antiguo"},
        {L'N', L"N - Entidad Extranjera"},
        {L'P', L"P - Corporación local"},
        {L'Q', L"Q - Organismo público"},
        {L'R', L"R - Institución Religiosa"},
        {L'S', L"S - Organo de la administración"},
        {L'U', L"U - Unión Temporal de Empresas"},
        {L'V', L"V - Otro Tipo"},
        {L'W', L"W - Entidad No Residente"},
        {L'X', L"X - NIE: Número Identificador de Extranjero"},
        {L'Y', L"Y - NIE: Número Identificador de Extranjero"},
    }};
    for (const auto& [letter, description] : table) {
        EXPECT_EQ(kind(std::wstring(1, letter)), description);
        const auto small = static_cast<wchar_t>(letter + (L'a' - L'A'));
        EXPECT_EQ(kind(std::wstring(1, small)), description);
    }
}

TEST(TaxIdKind, AnyNumberIsAPerson) {
    for (const auto* text : {L"7", L"0", L"12345678", L"-3,5", L" 12 ", L"&H1F"}) {
        EXPECT_EQ(kind(text), L"NIF - Número de Identificación Fiscal") << text;
    }
}

TEST(TaxIdKind, OtherTextsAreErrors) {
    for (const auto* text :
         {L"Z", L"T", L"I", L"O", L"Ñ", L"Á", L"-", L",", L" ", L"BA", L"A1", L"HI"}) {
        EXPECT_EQ(kind(text), L"ERROR") << text;
    }
}

TEST(TaxIdKind, TheWholeTextMustMatch) {
    EXPECT_EQ(kind(L""), L"A - Sociedad Anónima");
    EXPECT_EQ(kind(L"AB"), L"A - Sociedad Anónima");
    EXPECT_EQ(kind(L"hj"), L"H - Comunidad de Propietarios");
    EXPECT_EQ(kind(L"ABCDEFGHJKLMNPQRSUVWXY"), L"A - Sociedad Anónima");
}

}  // namespace
}  // namespace kovrel
