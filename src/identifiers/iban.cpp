// The international bank account number (IBAN, ISO 13616-1:2020): country, two control digits (ISO
// 7064 MOD 97-10 over what follows and the country), and the account as the country writes it. Of
// the controls that countries put into that account, only the Spanish ones are checked.
#include "identifiers/checksum.h"
#include "identifiers/iban_registry.h"
#include "identifiers/rules.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::size_t account_start = 4;

bool is_spanish(std::wstring_view text) noexcept {
    return text.substr(0, 2) == L"ES";
}

}  // namespace

std::size_t iban_word_length(std::wstring_view text) noexcept {
    // No country has the code IB. Repeated, so that a normalized text stays as it is.
    constexpr std::wstring_view word = L"IBAN";
    std::size_t length = 0;
    while (length < text.size() && text[length] == word.front() &&
           text.substr(length, word.size()) == word) {
        length += word.size();
    }
    return length;
}

IdentifierFault iban_fault(Characters text) noexcept {
    if (text.size() < 2) return IdentifierFault::length;
    const IbanForm* const form = iban_form(text[0], text[1]);
    if (form == nullptr) return IdentifierFault::country;
    if (text.size() != form->length) return IdentifierFault::length;
    if (!text.have_digits(form->digits) || !text.have_letters(form->letters)) {
        return IdentifierFault::characters;
    }
    if (!has_right_controls_97(text.view(), account_start)) return IdentifierFault::control;
    const bool has_wrong_account =
        text.are_spanish() && bank_account_fault(text.from(account_start)) != IdentifierFault::none;
    return has_wrong_account ? IdentifierFault::inner_account : IdentifierFault::none;
}

std::wstring mended_iban(std::wstring_view text) {
    const IbanForm* const form = text.size() < 2 ? nullptr : iban_form(text[0], text[1]);
    if (form == nullptr) return {};
    // A text that is two characters short may as well have lost its end: a Spanish account, in
    // which that would show, may do without controls, others need 00 in their place.
    const bool lacks_controls = is_spanish(text) && text.size() + 2 == form->length;
    const bool is_mendable = is_spanish(text) || text.substr(2, 2) == L"00";
    if (!is_mendable || (!lacks_controls && text.size() != form->length)) return {};
    const std::wstring_view country = text.substr(0, 2);
    const std::wstring_view account = text.substr(lacks_controls ? 2 : account_start);
    return concat({country, controls_97(concat({account, country})), account});
}

std::optional<std::wstring> iban_of_account(std::wstring_view account) {
    if (identifier_fault(Identifier::bank_account, account) != IdentifierFault::none) return {};
    return mended_iban(L"ES" + normalized_identifier(Identifier::bank_account, account));
}

std::optional<std::wstring> account_of_iban(std::wstring_view iban) {
    const bool is_right = identifier_fault(Identifier::iban, iban) == IdentifierFault::none;
    std::wstring text = normalized_identifier(Identifier::iban, iban);
    if (!is_right || !is_spanish(text)) return {};
    return text.substr(account_start);
}

}  // namespace kovrel
