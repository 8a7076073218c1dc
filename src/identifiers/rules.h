// The rules behind identifier.h, two functions a kind.
//
// `x_fault` takes what was read of a text, plain letters and digits (but for the cadastral
// reference, where Ñ may stand as well), at least one. `mended_x` takes a normalized text that has
// a fault and returns what it may have meant, which need not be right; nothing when that is
// unknown.
#pragma once

#include <string>
#include <string_view>

#include "identifiers/identifier.h"
#include "identifiers/normal_text.h"

namespace kovrel {

// spanish_tax.cpp
[[nodiscard]] IdentifierFault nif_fault(Characters text) noexcept;
[[nodiscard]] IdentifierFault dni_fault(Characters text) noexcept;
[[nodiscard]] IdentifierFault nie_fault(Characters text) noexcept;
[[nodiscard]] IdentifierFault personal_nif_fault(Characters text) noexcept;
[[nodiscard]] IdentifierFault entity_nif_fault(Characters text) noexcept;
[[nodiscard]] IdentifierFault vat_fault(Characters text) noexcept;
[[nodiscard]] std::wstring mended_nif(std::wstring_view text);
[[nodiscard]] std::wstring mended_vat(std::wstring_view text);
/// With the zeros in front of a DNI of fewer than 8 digits, with or without its letter.
[[nodiscard]] std::wstring with_dni_zeros(std::wstring text);

// spanish_account.cpp
[[nodiscard]] IdentifierFault bank_account_fault(Characters text) noexcept;
[[nodiscard]] std::wstring mended_bank_account(std::wstring_view text);

// iban.cpp
[[nodiscard]] IdentifierFault iban_fault(Characters text) noexcept;
[[nodiscard]] std::wstring mended_iban(std::wstring_view text);
/// The length of the word "IBAN" as often as it stands in front.
[[nodiscard]] std::size_t iban_word_length(std::wstring_view text) noexcept;

// bic.cpp
[[nodiscard]] IdentifierFault bic_fault(Characters text) noexcept;

// creditor.cpp
[[nodiscard]] IdentifierFault creditor_fault(Characters text) noexcept;
[[nodiscard]] std::wstring mended_creditor(std::wstring_view text);

// social_security.cpp
[[nodiscard]] IdentifierFault social_security_fault(Characters text) noexcept;
[[nodiscard]] IdentifierFault contribution_account_fault(Characters text) noexcept;
[[nodiscard]] std::wstring mended_social_security(std::wstring_view text);
[[nodiscard]] std::wstring mended_contribution_account(std::wstring_view text);

// postal_code.cpp
[[nodiscard]] IdentifierFault postal_code_fault(Characters text) noexcept;
/// With the zero in front of a code of 4 digits.
[[nodiscard]] std::wstring with_postal_zero(std::wstring text);

// cups.cpp
[[nodiscard]] IdentifierFault cups_fault(Characters text) noexcept;
[[nodiscard]] std::wstring mended_cups(std::wstring_view text);

// cadastral_reference.cpp
[[nodiscard]] IdentifierFault cadastral_reference_fault(Characters text) noexcept;
[[nodiscard]] std::wstring mended_cadastral_reference(std::wstring_view text);

// trade_numbers.cpp
[[nodiscard]] IdentifierFault payment_card_fault(Characters text) noexcept;
[[nodiscard]] IdentifierFault ean13_fault(Characters text) noexcept;
[[nodiscard]] std::wstring mended_ean13(std::wstring_view text);

}  // namespace kovrel
