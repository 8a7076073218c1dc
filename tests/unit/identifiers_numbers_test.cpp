// Social Security, post, supplies, cadastre, cards and goods.
#include <gtest/gtest.h>

#include "identifiers/identifier.h"
#include "tests/unit/identifiers_support.h"

namespace kovrel {
namespace {

using testing_support::corrected;
using testing_support::fault;
using testing_support::shown;

TEST(SocialSecurity, Faults) {
    EXPECT_EQ(fault(Identifier::social_security, L"281234567841"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::social_security, L"281234567830"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::social_security, L"28123456784"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::social_security, L"2812345678400"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::social_security, L"28123456784A"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::social_security, L"001234567840"), IdentifierFault::value);
    EXPECT_EQ(fault(Identifier::contribution_account, L"28123456743"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::contribution_account, L"2812345674"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::contribution_account, L"281234567840"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::contribution_account, L"2812345674Z"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::contribution_account, L"00123456742"), IdentifierFault::value);
}

// 281234567 leaves 42 by 97 and 2801234567 another remainder.
TEST(SocialSecurity, AShortNumberJoinsItsProvinceWithoutItsFirstZero) {
    EXPECT_EQ(fault(Identifier::social_security, L"280123456742"), IdentifierFault::none);
    EXPECT_EQ(fault(Identifier::social_security, L"280012345681"), IdentifierFault::control);
    // 28 and 0012345, where only one zero goes: 280012345 leaves 20.
    EXPECT_EQ(corrected(Identifier::social_security, L"2800012345"), L"280001234520");
    EXPECT_EQ(corrected(Identifier::contribution_account, L"280123456"), L"28012345652");
    EXPECT_EQ(28'123'456 % 97, 52);
    EXPECT_EQ(280'012'345 % 97, 20);
}

TEST(SocialSecurity, ControlsAreCompletedOrMended) {
    EXPECT_EQ(corrected(Identifier::social_security, L"28/12345678"), L"281234567840");
    EXPECT_EQ(corrected(Identifier::social_security, L"28/12345678/41"), L"281234567840");
    // Issued with 7 digits: its zero is added where that makes it right.
    EXPECT_EQ(corrected(Identifier::social_security, L"28/1234567/42"), L"280123456742");
    EXPECT_EQ(corrected(Identifier::social_security, L"28/1234567/43"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::social_security, L"281234567"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::social_security, L"2812345678400"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::social_security, L"0012345678"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::social_security, L"28A2345678"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::social_security, L"28"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::contribution_account, L"281234567"), L"28123456742");
    EXPECT_EQ(corrected(Identifier::contribution_account, L"28123456799"), L"28123456742");
    EXPECT_EQ(corrected(Identifier::contribution_account, L"28/123456/52"), L"28012345652");
    EXPECT_EQ(corrected(Identifier::contribution_account, L"28/123456/53"), std::nullopt);
    // A control below 10 has its zero.
    EXPECT_EQ(corrected(Identifier::social_security, L"2810000089"), L"281000008908");
}

TEST(PostalCode, Faults) {
    for (const auto* text : {L"00001", L"53000", L"99999"}) {
        EXPECT_EQ(fault(Identifier::postal_code, text), IdentifierFault::value) << shown(text);
        EXPECT_EQ(identifier_kind(text), Identifier::none);
    }
    EXPECT_EQ(fault(Identifier::postal_code, L"01000"), IdentifierFault::none);
    EXPECT_EQ(fault(Identifier::postal_code, L"52999"), IdentifierFault::none);
    EXPECT_EQ(fault(Identifier::postal_code, L"8001"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::postal_code, L"280133"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::postal_code, L"2801A"), IdentifierFault::characters);
}

TEST(PostalCode, TheZeroThatANumberLostComesBack) {
    EXPECT_EQ(normalized_identifier(Identifier::postal_code, L"8.001"), L"08001");
    EXPECT_EQ(corrected(Identifier::postal_code, L"8001"), L"08001");
    EXPECT_EQ(formatted_identifier(Identifier::postal_code, L"8001"), L"08001");
    EXPECT_EQ(normalized_identifier(Identifier::postal_code, L"801"), L"801");
    EXPECT_EQ(normalized_identifier(Identifier::postal_code, L"800A"), L"800A");
    EXPECT_EQ(normalized_identifier(Identifier::postal_code, L"28013"), L"28013");
    EXPECT_EQ(corrected(Identifier::postal_code, L"0001"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::postal_code, L"53000"), std::nullopt);
}

TEST(Cups, Faults) {
    EXPECT_EQ(fault(Identifier::cups, L"ES1234123456789012JZ"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::cups, L"ES1234123456789012AY"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::cups, L"ES1234123456789012J"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::cups, L"ES1234123456789012JY1"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::cups, L"ES1234123456789012JY1FF"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::cups, L"PT1234123456789012JY"), IdentifierFault::country);
    EXPECT_EQ(fault(Identifier::cups, L"ESA234123456789012JY"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::cups, L"ES123412345678901AJY"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::cups, L"ES1234123456789012JYAF"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::cups, L"ES1234123456789012JY11"), IdentifierFault::characters);
    for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
        const bool is_point = std::wstring_view(L"FPRCXYZ").find(letter) != std::wstring_view::npos;
        EXPECT_EQ(fault(Identifier::cups, std::wstring(L"ES1234123456789012JY0") + letter),
                  is_point ? IdentifierFault::none : IdentifierFault::characters)
            << shown(letter);
    }
}

TEST(Cups, ControlsAreCompletedOrMended) {
    EXPECT_EQ(corrected(Identifier::cups, L"ES 1234 1234 5678 9012"), L"ES1234123456789012JY");
    EXPECT_EQ(corrected(Identifier::cups, L"ES1234123456789012AA"), L"ES1234123456789012JY");
    EXPECT_EQ(corrected(Identifier::cups, L"ES1234123456789012AA1F"), L"ES1234123456789012JY1F");
    EXPECT_EQ(corrected(Identifier::cups, L"ES9999999999999999"), L"ES9999999999999999SA");
    EXPECT_EQ(corrected(Identifier::cups, L"ES123412345678901"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::cups, L"ES1234123456789012JY1"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::cups, L"ES1234123456789012AA1A"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::cups, L"PT1234123456789012"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::cups, L"ES12341234567890A2"), std::nullopt);
}

TEST(CadastralReference, Faults) {
    constexpr auto kind = Identifier::cadastral_reference;
    EXPECT_EQ(fault(kind, L"9872023VH5797S0001WW"), IdentifierFault::control);
    EXPECT_EQ(fault(kind, L"9872023VH5797S0001XX"), IdentifierFault::control);
    EXPECT_EQ(fault(kind, L"9872023VH5797S0002WX"), IdentifierFault::control);
    EXPECT_EQ(fault(kind, L"9872023VH5797S0001W"), IdentifierFault::length);
    EXPECT_EQ(fault(kind, L"9872023VH5797S0001WXX"), IdentifierFault::length);
    EXPECT_EQ(fault(kind, L"9872023VH5797S"), IdentifierFault::length);
    EXPECT_EQ(fault(kind, L"9872023VH5797S0001W*"), IdentifierFault::characters);
}

// Each letter of the alphabet, Ñ among them, moves the first control by its weight, 13.
TEST(CadastralReference, LettersCountByTheirPlaceInTheSpanishAlphabet) {
    constexpr std::wstring_view alphabet = L"ABCDEFGHIJKLMN\u00D1OPQRSTUVWXYZ";
    constexpr std::wstring_view letters = L"MQWERTYUIOPASDFGHJKLBZX";
    for (std::size_t i = 0; i < alphabet.size(); ++i) {
        const std::wstring body = alphabet[i] + std::wstring(17, L'0');
        const auto right = corrected(Identifier::cadastral_reference, body);
        EXPECT_EQ(right, body + letters[(i + 1) * 13 % 23] + L'M') << i;
    }
}

TEST(CadastralReference, ControlsAreCompletedOrMended) {
    constexpr auto kind = Identifier::cadastral_reference;
    EXPECT_EQ(corrected(kind, L"9872023 VH5797S 0001"), L"9872023VH5797S0001WX");
    EXPECT_EQ(corrected(kind, L"9872023VH5797S0001AA"), L"9872023VH5797S0001WX");
    EXPECT_EQ(corrected(kind, L"9872023VH5797S"), std::nullopt);
    EXPECT_EQ(corrected(kind, L"9872023VH5797S0001W"), std::nullopt);
    EXPECT_EQ(corrected(kind, L"9872023VH5797S0001WXX"), std::nullopt);
}

TEST(PaymentCard, Faults) {
    EXPECT_EQ(fault(Identifier::payment_card, L"4111111111111112"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::payment_card, L"411111111111111A"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::payment_card, L"00000000018"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::payment_card, L"000000000018"), IdentifierFault::none);
    EXPECT_EQ(fault(Identifier::payment_card, L"0000000000000000018"), IdentifierFault::none);
    EXPECT_EQ(fault(Identifier::payment_card, L"00000000000000000018"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::payment_card, L"0000000000000000"), IdentifierFault::value);
    EXPECT_EQ(corrected(Identifier::payment_card, L"4111 1111-11111111"), L"4111111111111111");
    EXPECT_EQ(corrected(Identifier::payment_card, L"4111111111111112"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::payment_card, L"411111111111111"), std::nullopt);
}

TEST(Ean13, FaultsAndMending) {
    EXPECT_EQ(fault(Identifier::ean13, L"9780131103628"), IdentifierFault::control);
    EXPECT_EQ(fault(Identifier::ean13, L"978013110362A"), IdentifierFault::characters);
    EXPECT_EQ(fault(Identifier::ean13, L"978013110362"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::ean13, L"97801311036270"), IdentifierFault::length);
    EXPECT_EQ(fault(Identifier::ean13, L"0000000000000"), IdentifierFault::value);
    EXPECT_EQ(fault(Identifier::ean13, L"96385074"), IdentifierFault::length);  // EAN-8
    EXPECT_EQ(corrected(Identifier::ean13, L"978013110362"), L"9780131103627");
    EXPECT_EQ(corrected(Identifier::ean13, L"9780131103620"), L"9780131103627");
    EXPECT_EQ(corrected(Identifier::ean13, L"400638133393"), L"4006381333931");
    EXPECT_EQ(corrected(Identifier::ean13, L"036000291452"), std::nullopt);  // a whole UPC-A
    EXPECT_EQ(corrected(Identifier::ean13, L"97801311036"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::ean13, L"97801311036270"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::ean13, L"97801311036A"), std::nullopt);
    EXPECT_EQ(corrected(Identifier::ean13, L"000000000000"), std::nullopt);
}

}  // namespace
}  // namespace kovrel
