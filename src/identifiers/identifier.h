// Identifiers of today's data: what is right, what is wrong with a text, and how it is stored, read
// and completed. Strict: a text is right or has one fault. Nothing here throws for a wrong text.
//
// Every text may be written in small letters and with separators (normal_text.h lists them).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kovrel {

/// The values are for ever: programs store them.
enum class Identifier : std::int32_t {
    none = 0,
    nif,                   ///< of any holder: one of the next four
    dni,                   ///< 8 digits and a letter
    nie,                   ///< X, Y or Z, 7 digits and a letter
    personal_nif,          ///< K, L or M, 7 digits and a letter: persons without DNI or NIE
    entity_nif,            ///< a letter, 7 digits and a control, of legal persons and entities
    bank_account,          ///< the Spanish bank account code (CCC): 20 digits
    iban,                  ///< of any country of the registry
    bic,                   ///< 8 or 11 characters
    creditor,              ///< the SEPA creditor identifier
    vat,                   ///< ES and a NIF
    social_security,       ///< a person's number: 12 digits
    contribution_account,  ///< an employer's account with the Social Security: 11 digits
    postal_code,           ///< 5 digits
    cups,                  ///< of a supply of electricity or gas: 20 or 22 characters
    cadastral_reference,   ///< 20 characters
    payment_card,          ///< 12 to 19 digits
    ean13,                 ///< 13 digits
};

/// Why a text is not an identifier: the first of the faults that it has, roughly in this order. The
/// values are for ever.
enum class IdentifierFault : std::int32_t {
    none = 0,
    empty,          ///< nothing, or separators only
    characters,     ///< a character that does not belong there
    length,         ///< too few or too many characters
    first_letter,   ///< the first character belongs to no such identifier
    control,        ///< control characters that are not those of the rest
    value,          ///< well formed, but no such thing can exist
    country,        ///< a country that is not known, or that does not use this identifier
    inner_account,  ///< a Spanish IBAN whose own controls are right around a wrong CCC
};

/// What is wrong with a text as an identifier of a kind. A kind that is not in the list has no
/// right texts: its fault is `value`. Allocates nothing.
[[nodiscard]] IdentifierFault identifier_fault(Identifier kind, std::wstring_view text) noexcept;

/// The text as databases store it: in capitals and without separators. An IBAN loses the word
/// "IBAN" in front. What a numeric column dropped comes back: the zeros in front of a DNI, with or
/// without its letter, and the one in front of a postal code. Wrong texts are treated in the same
/// way; characters that belong to no identifier stay as they are.
[[nodiscard]] std::wstring normalized_identifier(Identifier kind, std::wstring_view text);

/// The text as people read it, in groups where it is usual; a text that is not right once
/// normalized is returned normalized.
[[nodiscard]] std::wstring formatted_identifier(Identifier kind, std::wstring_view text);

/// The normalized text, with its control completed or mended where that is needed; nothing when the
/// right text cannot be known. What comes back has no fault.
///
/// A wrong control is replaced where the rest is well formed, since nobody can tell which of both
/// is wrong: show the user what changed. More care is taken of what money is sent by: of an IBAN or
/// a creditor identifier the account or the NIF must be right by its own controls, which only
/// Spanish ones have; others are completed where they have 00, or an IBAN "**", for controls, and
/// never mended. A CCC may have "**" for its controls, or leave them out. BICs and postal codes
/// have nothing to mend, and a payment card's digit is printed on it.
[[nodiscard]] std::optional<std::wstring> corrected_identifier(Identifier kind,
                                                               std::wstring_view text);

/// The kind of a text that is right, `none` for any other. Never `nif`: the kind of NIF.
///
/// Where a text is right as two kinds, the first of this order counts:
/// - the kinds of NIF, the VAT number, the postal code and the CCC, whose forms no other kind
/// shares;
/// - IBAN, then creditor identifier: both have a country and controls in front, but an IBAN has the
///   length and the structure of its country;
/// - CUPS before cadastral reference: the former is also well formed as the latter;
/// - Social Security number before payment card: no card of 12 digits is in use, and two control
///   digits say more than one;
/// - EAN-13 before payment card: hardly any card of 13 digits is left;
/// - BIC last, which has no control.
[[nodiscard]] Identifier identifier_kind(std::wstring_view text) noexcept;

/// The holder that the first character of a right NIF names, in Spanish and in the words of the
/// law; empty for any other text.
[[nodiscard]] std::wstring_view holder_kind(std::wstring_view nif) noexcept;

/// The IBAN of a Spanish account; nothing when the account is wrong.
[[nodiscard]] std::optional<std::wstring> iban_of_account(std::wstring_view account);

/// The account in a Spanish IBAN; nothing when the IBAN is wrong or of another country.
[[nodiscard]] std::optional<std::wstring> account_of_iban(std::wstring_view iban);

/// What the kind is called in Spanish; empty for `none` and for a number that is no kind.
[[nodiscard]] std::wstring_view kind_text(Identifier kind) noexcept;

/// A sentence in Spanish for the user; empty for a number that is no fault.
[[nodiscard]] std::wstring_view fault_text(IdentifierFault fault) noexcept;

}  // namespace kovrel
