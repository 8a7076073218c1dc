// Identifiers for the tests: right ones from public documents, and texts of every sort.
#pragma once

#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "identifiers/identifier.h"

namespace kovrel {

inline std::ostream& operator<<(std::ostream& out, Identifier kind) {
    return out << "kind " << static_cast<int>(kind);
}
inline std::ostream& operator<<(std::ostream& out, IdentifierFault fault) {
    return out << "fault " << static_cast<int>(fault);
}

namespace testing_support {

inline IdentifierFault fault(Identifier kind, std::wstring_view text) {
    return identifier_fault(kind, text);
}

inline std::optional<std::wstring> corrected(Identifier kind, std::wstring_view text) {
    return corrected_identifier(kind, text);
}

struct RightIdentifier {
    Identifier kind;
    std::wstring_view text;
    std::wstring_view formatted;
};

/// Of each kind, by its own kind (a NIF is one of the four kinds of NIF).
inline constexpr RightIdentifier right_identifiers[] = {
    // The DNI of Orden INT/2058/2008's formula, with other numbers.
    {Identifier::dni, L"12345678Z", L"12345678-Z"},
    {Identifier::dni, L"00000000T", L"00000000-T"},
    {Identifier::dni, L"54362315K", L"54362315-K"},
    {Identifier::nie, L"X2482300W", L"X-2482300-W"},
    {Identifier::nie, L"Y1234567X", L"Y-1234567-X"},
    {Identifier::nie, L"Z1234567R", L"Z-1234567-R"},
    {Identifier::personal_nif, L"K1234567L", L"K-1234567-L"},
    {Identifier::personal_nif, L"L1234567L", L"L-1234567-L"},
    {Identifier::personal_nif, L"M1234567L", L"M-1234567-L"},
    // Telefónica, El Corte Inglés, the Agencia Tributaria, the city of Madrid.
    {Identifier::entity_nif, L"A28015865", L"A-28015865"},
    {Identifier::entity_nif, L"A28017895", L"A-28017895"},
    {Identifier::entity_nif, L"Q2826000H", L"Q-2826000H"},
    {Identifier::entity_nif, L"P2807900B", L"P-2807900B"},
    // The account of the Spanish example in the IBAN registry.
    {Identifier::bank_account, L"21000418450200051332", L"2100 0418 45 0200051332"},
    {Identifier::iban, L"ES9121000418450200051332", L"ES91 2100 0418 4502 0005 1332"},
    {Identifier::iban, L"GB29NWBK60161331926819", L"GB29 NWBK 6016 1331 9268 19"},
    {Identifier::bic, L"CAIXESBBXXX", L"CAIXESBBXXX"},
    {Identifier::bic, L"DEUTDEFF", L"DEUTDEFF"},
    // The examples of EPC262-08 for Germany and Austria.
    {Identifier::creditor, L"DE98ZZZ09999999999", L"DE98ZZZ09999999999"},
    {Identifier::creditor, L"AT61ZZZ01234567890", L"AT61ZZZ01234567890"},
    {Identifier::creditor, L"ES11000B12345674", L"ES11000B12345674"},
    {Identifier::vat, L"ESA28015865", L"ESA28015865"},
    {Identifier::vat, L"ESX2482300W", L"ESX2482300W"},
    {Identifier::social_security, L"281234567840", L"28/12345678/40"},
    {Identifier::contribution_account, L"28123456742", L"28/1234567/42"},
    {Identifier::cups, L"ES1234123456789012JY", L"ES 1234 1234 5678 9012 JY"},
    {Identifier::cups, L"ES1234123456789012JY1F", L"ES 1234 1234 5678 9012 JY 1F"},
    // The Catastro's own example, a town hall, and a parcel of country.
    {Identifier::cadastral_reference, L"9872023VH5797S0001WX", L"9872023 VH5797S 0001 W X"},
    {Identifier::cadastral_reference, L"7837301VG8173B0001TT", L"7837301 VG8173B 0001 T T"},
    {Identifier::cadastral_reference, L"28144A001000940000RB", L"28144A0 0100094 0000 R B"},
    {Identifier::postal_code, L"28013", L"28013"},
    {Identifier::postal_code, L"01001", L"01001"},
    {Identifier::postal_code, L"52006", L"52006"},
    {Identifier::payment_card, L"4111111111111111", L"4111 1111 1111 1111"},
    {Identifier::payment_card, L"378282246310005", L"3782 8224 6310 005"},
    {Identifier::ean13, L"9780131103627", L"9 780131 103627"},
    {Identifier::ean13, L"4006381333931", L"4 006381 333931"},
};

/// A text, or a character, as a test's message can show it.
inline std::wstring shown(std::wstring_view text) {
    return std::wstring(text);
}
inline std::wstring shown(wchar_t character) {
    return std::wstring(1, character);
}

inline bool is_nif(Identifier kind) {
    return kind >= Identifier::dni && kind <= Identifier::entity_nif;
}

inline std::vector<Identifier> all_kinds() {
    std::vector<Identifier> kinds;
    for (int kind = 1; kind <= static_cast<int>(Identifier::ean13); ++kind) {
        kinds.push_back(static_cast<Identifier>(kind));
    }
    return kinds;
}

/// Texts that are right, nearly right and rubbish, the same in every run.
class RandomTexts {
 public:
    std::wstring next() {
        std::wstring text(pick(right_identifiers).text);
        switch (below(8)) {
            case 0:
                return anything(below(24));
            case 1:
                text[below(text.size())] = pick(characters);
                break;
            case 2:
                text.erase(below(text.size()), 1 + below(2));
                break;
            case 3:
                text.insert(below(text.size()), 1 + below(2), pick(characters));
                break;
            case 4:
                for (wchar_t& character : text) {
                    if (character >= L'0' && character <= L'9' && below(3) == 0) {
                        character = static_cast<wchar_t>(L'0' + below(10));
                    }
                }
                break;
            case 5:
                for (std::size_t i = below(4); i < text.size(); i += 1 + below(4)) {
                    text.insert(i, 1, pick(separators));
                }
                break;
            case 6:
                for (wchar_t& character : text) {
                    if (character >= L'A' && character <= L'Z') character += L'a' - L'A';
                }
                break;
            default:
                break;
        }
        return text;
    }

 private:
    static constexpr std::wstring_view separators = L" -./\t\u00A0\u202F\u2011\u2013";
    static constexpr std::wstring_view characters =
        L"0123456789012345678901234567890123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcxyz -./*\u00D1\u00F1"
        L"\u0131\u0130\u017F\u212A\u0660\uFF11\u00DF";

    std::size_t below(std::size_t limit) { return engine_() % limit; }
    template <class Range>
    std::remove_cvref_t<decltype(std::declval<Range>()[0])> pick(const Range& range) {
        return range[below(std::size(range))];
    }
    std::wstring anything(std::size_t length) {
        std::wstring text;
        while (text.size() < length) text += pick(characters);
        return text;
    }

    std::mt19937 engine_{20080214};
};

}  // namespace testing_support
}  // namespace kovrel
