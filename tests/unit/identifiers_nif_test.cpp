// The NIF of every holder, and the VAT number.
#include <gtest/gtest.h>

#include "identifiers/identifier.h"
#include "taxid/tax_id.h"
#include "tests/unit/identifiers_support.h"

namespace kovrel {
namespace {

using testing_support::corrected;
using testing_support::fault;
using testing_support::shown;

TEST(Nif, FaultsOfADni) {
    for (const Identifier kind : {Identifier::dni, Identifier::nif}) {
        EXPECT_EQ(fault(kind, L"12345678A"), IdentifierFault::control);
        EXPECT_EQ(fault(kind, L"123456789"), IdentifierFault::control);
        EXPECT_EQ(fault(kind, L"1234567L"), IdentifierFault::length);
        EXPECT_EQ(fault(kind, L"12345678"), IdentifierFault::length);
        EXPECT_EQ(fault(kind, L"0012345678Z"), IdentifierFault::length);
        EXPECT_EQ(fault(kind, L"1234A678Z"), IdentifierFault::characters);
        EXPECT_EQ(fault(kind, L"1234567AZ"), IdentifierFault::characters);
        EXPECT_EQ(fault(kind, L"1A345678Z"), IdentifierFault::characters);
        EXPECT_EQ(fault(kind, L"12345678Z*"), IdentifierFault::characters);
    }
    EXPECT_EQ(fault(Identifier::dni, L"X1234567L"), IdentifierFault::first_letter);
    EXPECT_EQ(fault(Identifier::dni, L"A28015865"), IdentifierFault::first_letter);
}

TEST(Nif, FaultsOfPersonsWithoutDni) {
    EXPECT_EQ(fault(Identifier::nie, L"X1234567R"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::nie, L"X12345678"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::nie, L"X123456L"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::nie, L"X01234567L"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::nie, L"W1234567L"), IdentifierFault::first_letter);
    EXPECT_EQ(fault(Identifier::nie, L"12345678Z"), IdentifierFault::first_letter);
    EXPECT_EQ(fault(Identifier::nie, L"K1234567L"), IdentifierFault::first_letter);
    EXPECT_EQ(fault(Identifier::nie, L"XA234567L"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::nie, L"X123456AL"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::personal_nif, L"K1234567R"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::personal_nif, L"J1234567L"), IdentifierFault::first_letter);
    EXPECT_EQ(fault(Identifier::personal_nif, L"N1234567L"), IdentifierFault::first_letter);
    EXPECT_EQ(fault(Identifier::personal_nif, L"X1234567L"), IdentifierFault::first_letter);
    EXPECT_EQ(fault(Identifier::personal_nif, L"M12345678"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::nif, L"M1234567R"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::nif, L"Z1234567L"), IdentifierFault::control);
    // The control that the published check takes for K, L and M, that of a CIF, is wrong.
    EXPECT_EQ(fault(Identifier::nif, L"K1234567D"), IdentifierFault::control);
}

// The control of 1234567 is 4 or D, that of 0012345 is 5 or E.
TEST(Nif, TheControlOfAnEntityIsADigitALetterOrEither) {
    const auto is_right = [](wchar_t first, std::wstring_view rest) {
        const std::wstring text = first + std::wstring(rest);
        const auto found = identifier_fault(Identifier::entity_nif, text);
        EXPECT_EQ(identifier_fault(Identifier::nif, text), found) << shown(text);
        EXPECT_TRUE(found == IdentifierFault::none || found == IdentifierFault::control)
            << shown(text);
        return found == IdentifierFault::none;
    };
    ASSERT_EQ(cif_control(L"A1234567"), L"D ó 4");
    ASSERT_EQ(cif_control(L"A0012345"), L"E ó 5");
    ASSERT_EQ(cif_control(L"A0112345"), L"D ó 4");
    ASSERT_EQ(cif_control(L"A1012345"), L"C ó 3");
    for (const wchar_t first : std::wstring_view(L"ABEH")) {
        EXPECT_TRUE(is_right(first, L"12345674")) << shown(first);
        EXPECT_FALSE(is_right(first, L"1234567D")) << shown(first);
    }
    for (const wchar_t first : std::wstring_view(L"NPQRSW")) {
        EXPECT_FALSE(is_right(first, L"12345674")) << shown(first);
        EXPECT_TRUE(is_right(first, L"1234567D")) << shown(first);
    }
    for (const wchar_t first : std::wstring_view(L"CDFGJUV")) {
        EXPECT_TRUE(is_right(first, L"12345674")) << shown(first);
        EXPECT_TRUE(is_right(first, L"1234567D")) << shown(first);
    }
    for (const wchar_t first : std::wstring_view(L"ABCDEFGHJNPQRSUVW")) {
        EXPECT_FALSE(is_right(first, L"12345673")) << shown(first);
        EXPECT_FALSE(is_right(first, L"1234567C")) << shown(first);
        // After the figures 00 only the letter; 0 and another figure mean nothing.
        EXPECT_FALSE(is_right(first, L"00123455")) << shown(first);
        EXPECT_TRUE(is_right(first, L"0012345E")) << shown(first);
        const bool takes_digit =
            std::wstring_view(L"NPQRSW").find(first) == std::wstring_view::npos;
        EXPECT_EQ(is_right(first, L"01123454"), takes_digit) << shown(first);
        EXPECT_EQ(is_right(first, L"10123453"), takes_digit) << shown(first);
    }
}

TEST(Nif, FaultsOfAnEntity) {
    for (const wchar_t first : std::wstring_view(L"IKLMOTXYZ1")) {
        EXPECT_EQ(fault(Identifier::entity_nif, first + std::wstring(L"12345674")),
                  IdentifierFault::first_letter)
            << shown(first);
    }
    for (const wchar_t first : std::wstring_view(L"IOT")) {
        EXPECT_EQ(fault(Identifier::nif, first + std::wstring(L"12345674")),
                  IdentifierFault::first_letter);
    }
    EXPECT_EQ(fault(Identifier::entity_nif, L"A2801586"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::entity_nif, L"A280158655"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::entity_nif, L"AB8015865"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::entity_nif, L"A280158B5"), IdentifierFault::characters);
}

TEST(Nif, ANumberThatLostItsZerosGetsThemBack) {
    for (const Identifier kind : {Identifier::dni, Identifier::nif}) {
        EXPECT_EQ(normalized_identifier(kind, L"1.234.567-l"), L"01234567L");
        EXPECT_EQ(normalized_identifier(kind, L"1r"), L"00000001R");
        EXPECT_EQ(normalized_identifier(kind, L"1"), L"00000001");
        EXPECT_EQ(normalized_identifier(kind, L"1234567"), L"01234567");
        EXPECT_EQ(normalized_identifier(kind, L"12345678"), L"12345678");
        EXPECT_EQ(normalized_identifier(kind, L"123456789"), L"123456789");
        for (const auto* other : {L"Z", L"X123456L", L"1*", L"12A4567L", L"A", L"AB", L"1\u00D1"}) {
            EXPECT_EQ(normalized_identifier(kind, other), other);
        }
        EXPECT_EQ(formatted_identifier(kind, L"1234567L"), L"01234567-L");
        EXPECT_EQ(corrected(kind, L"1234567L"), L"01234567L");
    }
    EXPECT_EQ(normalized_identifier(Identifier::nie, L"1234567L"), L"1234567L");
}

TEST(Nif, TheLetterIsCompletedOrMended) {
    for (const Identifier kind : {Identifier::dni, Identifier::nif}) {
        EXPECT_EQ(corrected(kind, L"12.345.678"), L"12345678Z");
        EXPECT_EQ(corrected(kind, L"12345678a"), L"12345678Z");
        EXPECT_EQ(corrected(kind, L"1234567"), L"01234567L");
        EXPECT_EQ(corrected(kind, L"1234567A"), L"01234567L");
        EXPECT_EQ(corrected(kind, L"1"), L"00000001R");
        EXPECT_EQ(corrected(kind, L"123456789"), std::nullopt);  // another number
        EXPECT_EQ(corrected(kind, L"1234A678Z"), std::nullopt);
        EXPECT_EQ(corrected(kind, L"12345678ZZ"), std::nullopt);
        // What the data protection authority's rules hide is not made up.
        EXPECT_EQ(corrected(kind, L"***4567**"), std::nullopt);
    }
    EXPECT_EQ(corrected(Identifier::dni, L"X1234567"), std::nullopt);
    for (const Identifier kind : {Identifier::nie, Identifier::nif}) {
        EXPECT_EQ(corrected(kind, L"x-1234567"), L"X1234567L");
        EXPECT_EQ(corrected(kind, L"Y1234567L"), L"Y1234567X");
        EXPECT_EQ(corrected(kind, L"X12345678"), std::nullopt);
        EXPECT_EQ(corrected(kind, L"X123456"), std::nullopt);
    }
    EXPECT_EQ(corrected(Identifier::personal_nif, L"M1234567"), L"M1234567L");
    EXPECT_EQ(corrected(Identifier::nif, L"K1234567D"), L"K1234567L");
}

TEST(Nif, TheControlOfAnEntityIsCompletedOrMended) {
    for (const Identifier kind : {Identifier::entity_nif, Identifier::nif}) {
        EXPECT_EQ(corrected(kind, L"b-1234567"), L"B12345674");
        EXPECT_EQ(corrected(kind, L"B12345670"), L"B12345674");
        EXPECT_EQ(corrected(kind, L"B1234567D"), L"B12345674");
        EXPECT_EQ(corrected(kind, L"P1234567"), L"P1234567D");
        EXPECT_EQ(corrected(kind, L"P12345674"), L"P1234567D");
        EXPECT_EQ(corrected(kind, L"G1234567"), L"G12345674");
        EXPECT_EQ(corrected(kind, L"G12345670"), L"G12345674");
        EXPECT_EQ(corrected(kind, L"G1234567A"), L"G1234567D");
        EXPECT_EQ(corrected(kind, L"G1234567D"), L"G1234567D");
        EXPECT_EQ(corrected(kind, L"A00123455"), L"A0012345E");
        EXPECT_EQ(corrected(kind, L"I1234567"), std::nullopt);
        EXPECT_EQ(corrected(kind, L"B123456"), std::nullopt);
        EXPECT_EQ(corrected(kind, L"B1234A67"), std::nullopt);
        EXPECT_EQ(corrected(kind, L"B123456744"), std::nullopt);
    }
}

TEST(Nif, NamesItsHolder) {
    EXPECT_EQ(holder_kind(L"12.345.678-z"), L"Persona física de nacionalidad española, con DNI");
    EXPECT_EQ(holder_kind(L"X2482300W"), L"Persona física de nacionalidad extranjera, con NIE");
    EXPECT_EQ(holder_kind(L"Y1234567X"), L"Persona física de nacionalidad extranjera, con NIE");
    EXPECT_EQ(holder_kind(L"Z1234567R"), L"Persona física de nacionalidad extranjera, con NIE");
    EXPECT_EQ(holder_kind(L"K1234567L"),
              L"Español menor de catorce años residente en España, sin DNI");
    EXPECT_EQ(holder_kind(L"L1234567L"), L"Español residente en el extranjero, sin DNI");
    EXPECT_EQ(holder_kind(L"M1234567L"), L"Persona física de nacionalidad extranjera, sin NIE");
    constexpr std::pair<std::wstring_view, std::wstring_view> entities[] = {
        {L"A12345674", L"Sociedad anónima"},
        {L"B12345674", L"Sociedad de responsabilidad limitada"},
        {L"C12345674", L"Sociedad colectiva"},
        {L"D12345674", L"Sociedad comanditaria"},
        {L"E12345674",
         L"Comunidad de bienes, herencia yacente u otra entidad carente de personalidad jurídica "
         L"no "
         L"incluida expresamente en otras claves"},
        {L"F12345674", L"Sociedad cooperativa"},
        {L"G12345674", L"Asociación"},
        {L"H12345674", L"Comunidad de propietarios en régimen de propiedad horizontal"},
        {L"J12345674", L"Sociedad civil"},
        {L"N1234567D", L"Entidad extranjera"},
        {L"P1234567D", L"Corporación Local"},
        {L"Q1234567D", L"Organismo público"},
        {L"R1234567D", L"Congregación o institución religiosa"},
        {L"S1234567D", L"Órgano de la Administración del Estado o de las Comunidades Autónomas"},
        {L"U12345674", L"Unión Temporal de Empresas"},
        {L"V12345674", L"Otro tipo no definido en el resto de claves"},
        {L"W1234567D", L"Establecimiento permanente de entidad no residente en territorio español"},
    };
    for (const auto& [nif, name] : entities) EXPECT_EQ(holder_kind(nif), name) << shown(nif);
    for (const auto* wrong : {L"", L"A", L"A12345675", L"I12345674", L"1234567L", L"ESA12345674"}) {
        EXPECT_EQ(holder_kind(wrong), L"") << wrong;
    }
}

TEST(Vat, FaultsAndMending) {
    EXPECT_EQ(fault(Identifier::vat, L"A28015865"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::vat, L"ESA2801586"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::vat, L"ESA280158655"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::vat, L"PTA28015865"), IdentifierFault::country);
    EXPECT_EQ(fault(Identifier::vat, L"EAA28015865"), IdentifierFault::country);
    EXPECT_EQ(fault(Identifier::vat, L"ESA28015866"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::vat, L"ESI28015865"), IdentifierFault::first_letter);
    EXPECT_EQ(fault(Identifier::vat, L"ESA2B015865"), IdentifierFault::characters);
    EXPECT_EQ(corrected(Identifier::vat, L"es-a28015866"), L"ESA28015865");
    EXPECT_EQ(corrected(Identifier::vat, L"ESA2801586"), L"ESA28015865");
    EXPECT_EQ(corrected(Identifier::vat, L"ES12345678"), L"ES12345678Z");
    EXPECT_EQ(corrected(Identifier::vat, L"A28015865"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::vat, L"PTA28015866"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::vat, L"ES"), std::nullopt);
}

}  // namespace
}  // namespace kovrel
