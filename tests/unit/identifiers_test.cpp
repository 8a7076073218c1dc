// What holds for every kind of identifier.
#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <set>

#include "identifiers/identifier.h"
#include "tests/unit/identifiers_support.h"

namespace kovrel {
namespace {

using testing_support::shown;

using testing_support::all_kinds;
using testing_support::is_nif;
using testing_support::RandomTexts;
using testing_support::right_identifiers;

constexpr int random_texts = 20000;

TEST(Identifiers, RightOnesHaveNoFaultAndAreRecognised) {
    for (const auto& [kind, text, formatted] : right_identifiers) {
        EXPECT_EQ(identifier_fault(kind, text), IdentifierFault::none)
            << kind << ' ' << shown(text);
        EXPECT_EQ(identifier_kind(text), kind) << shown(text);
        if (is_nif(kind)) {
            EXPECT_EQ(identifier_fault(Identifier::nif, text), IdentifierFault::none)
                << shown(text);
        }
    }
}

TEST(Identifiers, AreReadInSmallLettersAndWithSeparators) {
    for (const auto& [kind, text, formatted] : right_identifiers) {
        std::wstring written;
        for (const wchar_t character : text) {
            const bool is_capital = character >= L'A' && character <= L'Z';
            written += L" -./\t\r\n\u00A0\u202F\u2010\u2011\u2012\u2013";
            written += is_capital ? static_cast<wchar_t>(character + (L'a' - L'A')) : character;
        }
        EXPECT_EQ(identifier_fault(kind, written), IdentifierFault::none)
            << kind << ' ' << shown(text);
        EXPECT_EQ(identifier_kind(written), kind) << shown(text);
        EXPECT_EQ(normalized_identifier(kind, written), text);
    }
}

TEST(Identifiers, OtherBlanksAndDashesAreNoSeparators) {
    for (const wchar_t character :
         std::wstring_view(L"_,;:\v\f\u200B\u200F\u2014\u2009\u3000\u00AD")) {
        const std::wstring written = L"12345678" + std::wstring(1, character) + L"Z";
        EXPECT_EQ(identifier_fault(Identifier::dni, written), IdentifierFault::characters)
            << static_cast<int>(character);
    }
}

TEST(Identifiers, AreFormattedInGroups) {
    for (const auto& [kind, text, formatted] : right_identifiers) {
        EXPECT_EQ(formatted_identifier(kind, text), formatted);
        EXPECT_EQ(normalized_identifier(kind, formatted), text);
        if (is_nif(kind)) {
            EXPECT_EQ(formatted_identifier(Identifier::nif, text), formatted);
        }
    }
}

TEST(Identifiers, AWrongOneIsFormattedWithoutGroups) {
    EXPECT_EQ(formatted_identifier(Identifier::iban, L"es92 2100 0418 4502 0005 1332"),
              L"ES9221000418450200051332");
    EXPECT_EQ(formatted_identifier(Identifier::dni, L"12.345.678-a"), L"12345678A");
    EXPECT_EQ(formatted_identifier(Identifier::dni, L""), L"");
    EXPECT_EQ(formatted_identifier(Identifier::none, L"12 34"), L"1234");
}

TEST(Identifiers, NothingAndSeparatorsAreEmpty) {
    for (const Identifier kind : all_kinds()) {
        for (const auto* text : {L"", L" ", L" -./\t\u00A0"}) {
            EXPECT_EQ(identifier_fault(kind, text), IdentifierFault::empty) << kind;
            EXPECT_EQ(normalized_identifier(kind, text), L"") << kind;
            EXPECT_EQ(corrected_identifier(kind, text), std::nullopt) << kind;
            EXPECT_EQ(identifier_kind(text), Identifier::none) << kind;
        }
        EXPECT_EQ(identifier_fault(kind, std::wstring(100'000, L' ')), IdentifierFault::empty);
    }
}

TEST(Identifiers, AKindThatIsNotInTheListHasNoRightTexts) {
    for (const int number : {0, -1, 18, 1000, std::numeric_limits<int>::min()}) {
        const auto kind = static_cast<Identifier>(number);
        EXPECT_EQ(identifier_fault(kind, L"12345678Z"), IdentifierFault::value);
        EXPECT_EQ(identifier_fault(kind, L""), IdentifierFault::empty);
        EXPECT_EQ(corrected_identifier(kind, L"12345678"), std::nullopt);
        EXPECT_EQ(normalized_identifier(kind, L"1-a"), L"1A");
    }
}

TEST(Identifiers, CharactersOfOtherScriptsAreAFault) {
    // Digits of other scripts, letters whose capital is an ASCII letter, halves of pairs, a null.
    const std::wstring others = L"\u0661\uFF11\u0131\u0130\u017F\u212A\u00DF" +
                                std::wstring{wchar_t{0xD800}, wchar_t{0xDFFF}, L'\0'};
    for (const Identifier kind : all_kinds()) {
        for (const wchar_t other : others) {
            for (const auto& right : right_identifiers) {
                std::wstring text(right.text);
                text.back() = other;
                EXPECT_EQ(identifier_fault(kind, text), IdentifierFault::characters)
                    << kind << ' ' << static_cast<int>(other);
                EXPECT_EQ(identifier_kind(text), Identifier::none);
                EXPECT_EQ(corrected_identifier(kind, text), std::nullopt);
                EXPECT_EQ(normalized_identifier(kind, text), text);
            }
        }
    }
}

TEST(Identifiers, OnlyCadastralReferencesKnowEnye) {
    for (const Identifier kind : all_kinds()) {
        const bool is_cadastral = kind == Identifier::cadastral_reference;
        EXPECT_EQ(identifier_fault(kind, L"1\u00F1"),
                  is_cadastral ? IdentifierFault::length : IdentifierFault::characters)
            << kind;
    }
    EXPECT_EQ(normalized_identifier(Identifier::cadastral_reference, L"\u00F1 a"), L"\u00D1A");
}

TEST(Identifiers, LongTextsAreTooLong) {
    for (const Identifier kind : all_kinds()) {
        const auto length_fault = [=](const std::wstring& text) {
            return identifier_fault(kind, text) == IdentifierFault::length ||
                   identifier_fault(kind, text) == IdentifierFault::country ||
                   identifier_fault(kind, text) == IdentifierFault::characters;
        };
        for (const std::size_t size : {36U, 63U, 64U}) {
            EXPECT_TRUE(length_fault(std::wstring(size, L'1'))) << kind << ' ' << size;
            EXPECT_TRUE(length_fault(std::wstring(size, L'A'))) << kind << ' ' << size;
        }
        for (const std::size_t size : {65U, 66U, 1000U, 1'000'000U}) {
            const std::wstring text(size, L'1');
            EXPECT_EQ(identifier_fault(kind, text), IdentifierFault::length) << kind << ' ' << size;
            EXPECT_EQ(identifier_kind(text), Identifier::none);
            EXPECT_EQ(normalized_identifier(kind, text), text);
            EXPECT_EQ(corrected_identifier(kind, text), std::nullopt);
        }
        EXPECT_EQ(identifier_fault(kind, std::wstring(64, L'1') + L"*"),
                  IdentifierFault::characters);
        // The rest of a text that is too long is not looked at.
        EXPECT_EQ(identifier_fault(kind, std::wstring(65, L'1') + L"*"), IdentifierFault::length);
    }
}

TEST(Identifiers, WhatIsCorrectedIsRight) {
    RandomTexts texts;
    int corrected_count = 0;
    for (int i = 0; i < random_texts; ++i) {
        const std::wstring text = texts.next();
        for (const Identifier kind : all_kinds()) {
            const auto corrected = corrected_identifier(kind, text);
            const bool is_right = identifier_fault(kind, text) == IdentifierFault::none;
            if (is_right) {
                EXPECT_EQ(corrected, normalized_identifier(kind, text)) << shown(text);
            }
            if (!corrected) continue;
            ++corrected_count;
            EXPECT_EQ(identifier_fault(kind, *corrected), IdentifierFault::none)
                << kind << ' ' << shown(text) << ' ' << *corrected;
            EXPECT_EQ(normalized_identifier(kind, *corrected), *corrected);
        }
    }
    EXPECT_GT(corrected_count, random_texts / 4);
}

TEST(Identifiers, NormalizedStaysAsItIsAndFormattedIsReadBack) {
    RandomTexts texts;
    for (int i = 0; i < random_texts; ++i) {
        const std::wstring text = texts.next();
        for (const Identifier kind : all_kinds()) {
            const std::wstring normal = normalized_identifier(kind, text);
            EXPECT_EQ(normalized_identifier(kind, normal), normal) << kind << ' ' << shown(text);
            const std::wstring formatted = formatted_identifier(kind, text);
            EXPECT_EQ(normalized_identifier(kind, formatted), normal) << kind << ' ' << shown(text);
            if (identifier_fault(kind, text) == IdentifierFault::none) {
                EXPECT_EQ(identifier_fault(kind, formatted), IdentifierFault::none) << shown(text);
            }
        }
    }
}

TEST(Identifiers, TheKindOfATextIsOneAsWhichItIsRight) {
    RandomTexts texts;
    std::set<Identifier> met;
    for (int i = 0; i < random_texts; ++i) {
        const std::wstring text = texts.next();
        const Identifier found = identifier_kind(text);
        met.insert(found);
        const auto kinds = all_kinds();
        const bool is_any = std::any_of(kinds.begin(), kinds.end(), [&](Identifier kind) {
            return identifier_fault(kind, text) == IdentifierFault::none;
        });
        EXPECT_EQ(found != Identifier::none, is_any) << shown(text);
        if (is_any) {
            EXPECT_EQ(identifier_fault(found, text), IdentifierFault::none) << shown(text);
        }
    }
    EXPECT_EQ(met.size(), all_kinds().size());  // all but `nif`, and none
}

TEST(Identifiers, OfTwoKindsTheFirstOfTheOrderCounts) {
    // A Social Security number whose last digit is that of a card too.
    EXPECT_EQ(identifier_fault(Identifier::payment_card, L"281234568042"), IdentifierFault::none);
    EXPECT_EQ(identifier_kind(L"281234568042"), Identifier::social_security);
    EXPECT_EQ(identifier_fault(Identifier::payment_card, L"4000000000006"), IdentifierFault::none);
    EXPECT_EQ(identifier_fault(Identifier::ean13, L"4000000000006"), IdentifierFault::none);
    EXPECT_EQ(identifier_kind(L"4000000000006"), Identifier::ean13);
}

// Where the rule promises it, no text with one digit changed is right.
TEST(Identifiers, EveryChangedDigitIsFound) {
    for (const auto& [kind, text, formatted] : right_identifiers) {
        if (kind == Identifier::postal_code || kind == Identifier::bic) continue;
        for (std::size_t place = 0; place < text.size(); ++place) {
            // The business code of a creditor and the measuring point of a supply do not count.
            const bool counts = !(kind == Identifier::creditor && place >= 4 && place < 7) &&
                                !(kind == Identifier::cups && place >= 20);
            if (!counts || text[place] < L'0' || text[place] > L'9') continue;
            for (wchar_t digit = L'0'; digit <= L'9'; ++digit) {
                if (digit == text[place]) continue;
                std::wstring changed(text);
                changed[place] = digit;
                EXPECT_NE(identifier_fault(kind, changed), IdentifierFault::none) << changed;
            }
        }
    }
}

TEST(Identifiers, EveryKindHasAName) {
    EXPECT_EQ(kind_text(Identifier::none), L"");
    EXPECT_EQ(kind_text(Identifier::nif), L"NIF");
    EXPECT_EQ(kind_text(Identifier::dni), L"DNI");
    EXPECT_EQ(kind_text(Identifier::nie), L"NIE");
    EXPECT_EQ(kind_text(Identifier::personal_nif), L"NIF de persona física sin DNI ni NIE");
    EXPECT_EQ(kind_text(Identifier::entity_nif), L"NIF de entidad");
    EXPECT_EQ(kind_text(Identifier::bank_account), L"Código de cuenta cliente");
    EXPECT_EQ(kind_text(Identifier::iban), L"IBAN");
    EXPECT_EQ(kind_text(Identifier::bic), L"BIC");
    EXPECT_EQ(kind_text(Identifier::creditor), L"Identificador de acreedor SEPA");
    EXPECT_EQ(kind_text(Identifier::vat), L"NIF-IVA");
    EXPECT_EQ(kind_text(Identifier::social_security), L"Número de la Seguridad Social");
    EXPECT_EQ(kind_text(Identifier::contribution_account), L"Código de cuenta de cotización");
    EXPECT_EQ(kind_text(Identifier::postal_code), L"Código postal");
    EXPECT_EQ(kind_text(Identifier::cups), L"CUPS");
    EXPECT_EQ(kind_text(Identifier::cadastral_reference), L"Referencia catastral");
    EXPECT_EQ(kind_text(Identifier::payment_card), L"Tarjeta de pago");
    EXPECT_EQ(kind_text(Identifier::ean13), L"EAN-13");
    EXPECT_EQ(kind_text(static_cast<Identifier>(18)), L"");
}

TEST(Identifiers, EveryFaultHasASentence) {
    std::set<std::wstring_view> sentences;
    for (int fault = 0; fault <= static_cast<int>(IdentifierFault::inner_account); ++fault) {
        const auto sentence = fault_text(static_cast<IdentifierFault>(fault));
        ASSERT_FALSE(sentence.empty()) << fault;
        EXPECT_EQ(sentence.back(), L'.');
        EXPECT_TRUE(sentences.insert(sentence).second) << fault;
    }
    EXPECT_EQ(fault_text(IdentifierFault::none), L"El dato es correcto.");
    EXPECT_EQ(fault_text(IdentifierFault::empty), L"El dato está vacío.");
    EXPECT_EQ(fault_text(IdentifierFault::characters),
              L"El dato tiene caracteres que no le corresponden.");
    EXPECT_EQ(fault_text(IdentifierFault::length),
              L"El número de caracteres del dato no es el que le corresponde.");
    EXPECT_EQ(fault_text(IdentifierFault::first_letter),
              L"La primera letra del dato no es válida.");
    EXPECT_EQ(fault_text(IdentifierFault::control),
              L"Los caracteres de control no corresponden al resto del dato.");
    EXPECT_EQ(fault_text(IdentifierFault::value),
              L"El dato está bien escrito, pero su valor no puede existir.");
    EXPECT_EQ(fault_text(IdentifierFault::country), L"El país del dato no es válido.");
    EXPECT_EQ(fault_text(IdentifierFault::inner_account),
              L"La cuenta española que contiene el IBAN no es correcta.");
    EXPECT_EQ(fault_text(static_cast<IdentifierFault>(9)), L"");
    EXPECT_EQ(fault_text(static_cast<IdentifierFault>(-1)), L"");
}

}  // namespace
}  // namespace kovrel
