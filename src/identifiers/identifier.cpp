#include "identifiers/identifier.h"

#include <array>
#include <cstddef>
#include <utility>

#include "identifiers/rules.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

using Check = IdentifierFault (*)(Characters) noexcept;
using Mend = std::wstring (*)(std::wstring_view);

struct Rule {
    Check fault;
    Mend mended;  ///< none for a kind that has no control, or whose texts are not to be made up
};

constexpr std::size_t rule_count = static_cast<std::size_t>(Identifier::ean13) + 1;

// By kind. The kinds of NIF are mended alike: what comes back is checked as the kind asked for.
constexpr std::array<Rule, rule_count> rules{{
    {nullptr, nullptr},
    {nif_fault, mended_nif},
    {dni_fault, mended_nif},
    {nie_fault, mended_nif},
    {personal_nif_fault, mended_nif},
    {entity_nif_fault, mended_nif},
    {bank_account_fault, mended_bank_account},
    {iban_fault, mended_iban},
    {bic_fault, nullptr},
    {creditor_fault, mended_creditor},
    {vat_fault, mended_vat},
    {social_security_fault, mended_social_security},
    {contribution_account_fault, mended_contribution_account},
    {postal_code_fault, nullptr},
    {cups_fault, mended_cups},
    {cadastral_reference_fault, mended_cadastral_reference},
    {payment_card_fault, nullptr},
    {ean13_fault, mended_ean13},
}};

const Rule& rule_of(Identifier kind) noexcept {
    const auto index = static_cast<std::size_t>(kind);
    return rules[index < rule_count ? index : 0];
}

// Without the "**" that people write for controls they do not know. Elsewhere asterisks hide
// digits.
std::wstring without_control_marks(Identifier kind, std::wstring normal) {
    constexpr std::wstring_view marks = L"**";
    const bool is_iban = kind == Identifier::iban;
    const std::size_t place = is_iban ? 2 : 8;
    const bool has_marks =
        (is_iban || kind == Identifier::bank_account) && normal.find(marks, place) == place;
    return has_marks ? normal.replace(place, marks.size(), is_iban ? L"00" : L"") : normal;
}

// Of a text that was read to its end.
IdentifierFault fault_of(Identifier kind, Characters text) noexcept {
    const Check fault = rule_of(kind).fault;
    if (fault == nullptr) return IdentifierFault::value;
    // Only cadastral references know Ñ.
    if (kind != Identifier::cadastral_reference && !text.are_all_plain()) {
        return IdentifierFault::characters;
    }
    if (kind == Identifier::iban) {
        const std::size_t word = iban_word_length(text.view());
        if (word == text.size()) return IdentifierFault::empty;
        text = text.from(word);
    }
    return fault(text);
}

}  // namespace

IdentifierFault identifier_fault(Identifier kind, std::wstring_view text) noexcept {
    const NormalText normal(text);
    if (normal.empty()) return IdentifierFault::empty;
    if (normal.has_others()) return IdentifierFault::characters;
    if (normal.is_too_long()) return IdentifierFault::length;
    return fault_of(kind, normal.characters());
}

std::wstring normalized_identifier(Identifier kind, std::wstring_view text) {
    std::wstring normal = without_separators(text);
    switch (kind) {
        case Identifier::nif:
        case Identifier::dni:
            return with_dni_zeros(std::move(normal));
        case Identifier::iban:
            return normal.erase(0, iban_word_length(normal));
        case Identifier::postal_code:
            return with_postal_zero(std::move(normal));
        default:
            return normal;
    }
}

std::optional<std::wstring> corrected_identifier(Identifier kind, std::wstring_view text) {
    const auto is_right = [=](std::wstring_view candidate) {
        return identifier_fault(kind, candidate) == IdentifierFault::none;
    };
    std::wstring normal = normalized_identifier(kind, text);
    if (is_right(normal)) return normal;
    normal = without_control_marks(kind, std::move(normal));
    const NormalText readable(normal);
    const Mend mend = rule_of(kind).mended;
    if (mend == nullptr || readable.has_others() || readable.is_too_long()) return std::nullopt;
    std::wstring mended = mend(normal);
    if (!is_right(mended)) return std::nullopt;
    return mended;
}

Identifier identifier_kind(std::wstring_view text) noexcept {
    using enum Identifier;
    constexpr std::array order{dni,
                               nie,
                               personal_nif,
                               entity_nif,
                               vat,
                               postal_code,
                               bank_account,
                               iban,
                               creditor,
                               cups,
                               cadastral_reference,
                               social_security,
                               contribution_account,
                               ean13,
                               payment_card,
                               bic};
    const NormalText normal(text);
    if (normal.empty() || normal.has_others() || normal.is_too_long()) return none;
    for (const Identifier kind : order) {
        if (fault_of(kind, normal.characters()) == IdentifierFault::none) return kind;
    }
    return none;
}

std::wstring_view kind_text(Identifier kind) noexcept {
    switch (kind) {
        case Identifier::none:
            break;
        case Identifier::nif:
            return L"NIF";
        case Identifier::dni:
            return L"DNI";
        case Identifier::nie:
            return L"NIE";
        case Identifier::personal_nif:
            return L"NIF de persona física sin DNI ni NIE";
        case Identifier::entity_nif:
            return L"NIF de entidad";
        case Identifier::bank_account:
            return L"Código de cuenta cliente";
        case Identifier::iban:
            return L"IBAN";
        case Identifier::bic:
            return L"BIC";
        case Identifier::creditor:
            return L"Identificador de acreedor SEPA";
        case Identifier::vat:
            return L"NIF-IVA";
        case Identifier::social_security:
            return L"Número de la Seguridad Social";
        case Identifier::contribution_account:
            return L"Código de cuenta de cotización";
        case Identifier::postal_code:
            return L"Código postal";
        case Identifier::cups:
            return L"CUPS";
        case Identifier::cadastral_reference:
            return L"Referencia catastral";
        case Identifier::payment_card:
            return L"Tarjeta de pago";
        case Identifier::ean13:
            return L"EAN-13";
    }
    return {};
}

std::wstring_view fault_text(IdentifierFault fault) noexcept {
    switch (fault) {
        case IdentifierFault::none:
            return L"El dato es correcto.";
        case IdentifierFault::empty:
            return L"El dato está vacío.";
        case IdentifierFault::characters:
            return L"El dato tiene caracteres que no le corresponden.";
        case IdentifierFault::length:
            return L"El número de caracteres del dato no es el que le corresponde.";
        case IdentifierFault::first_letter:
            return L"La primera letra del dato no es válida.";
        case IdentifierFault::control:
            return L"Los caracteres de control no corresponden al resto del dato.";
        case IdentifierFault::value:
            return L"El dato está bien escrito, pero su valor no puede existir.";
        case IdentifierFault::country:
            return L"El país del dato no es válido.";
        case IdentifierFault::inner_account:
            return L"La cuenta española que contiene el IBAN no es correcta.";
    }
    return {};
}

}  // namespace kovrel
