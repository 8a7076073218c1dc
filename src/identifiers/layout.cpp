// How people read each kind of identifier.
#include <algorithm>
#include <array>
#include <cstdint>

#include "identifiers/identifier.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

/// The widths of the groups, up to the first 0; the last one is repeated to the end of the text.
struct Layout {
    wchar_t separator;
    std::array<std::uint8_t, 7> widths;
};

// The Agencia Tributaria prints a NIF in one piece; in writing its letters are set off by hyphens.
constexpr Layout dni_layout{L'-', {8}};
constexpr Layout lettered_layout{L'-', {1, 7}};
constexpr Layout entity_layout{L'-', {1, 8}};
constexpr Layout account_layout{L' ', {4, 4, 2, 10}};      // as banks printed it
constexpr Layout in_fours{L' ', {4}};                      // ISO 13616-1, and on cards
constexpr Layout social_security_layout{L'/', {2, 8, 2}};  // on the Tesorería's documents
constexpr Layout contribution_layout{L'/', {2, 7, 2}};
constexpr Layout cups_layout{L' ', {2, 4, 4, 4, 4, 2}};
constexpr Layout cadastral_layout{L' ', {7, 7, 4, 1}};  // on the tax bills
constexpr Layout ean_layout{L' ', {1, 6}};              // as under the bars
constexpr Layout in_one_piece{L' ', {64}};

const Layout& nif_layout(wchar_t first) noexcept {
    if (is_digit(first)) return dni_layout;
    const bool is_person = std::wstring_view(L"KLMXYZ").find(first) != std::wstring_view::npos;
    return is_person ? lettered_layout : entity_layout;
}

const Layout& layout_of(Identifier kind, wchar_t first) noexcept {
    switch (kind) {
        case Identifier::nif:
        case Identifier::dni:
        case Identifier::nie:
        case Identifier::personal_nif:
        case Identifier::entity_nif:
            return nif_layout(first);
        case Identifier::bank_account:
            return account_layout;
        case Identifier::iban:
        case Identifier::payment_card:
            return in_fours;
        case Identifier::social_security:
            return social_security_layout;
        case Identifier::contribution_account:
            return contribution_layout;
        case Identifier::cups:
            return cups_layout;
        case Identifier::cadastral_reference:
            return cadastral_layout;
        case Identifier::ean13:
            return ean_layout;
        default:
            return in_one_piece;
    }
}

std::wstring grouped(std::wstring_view text, const Layout& layout) {
    std::wstring result;
    std::size_t group = 0;
    while (!text.empty()) {
        if (!result.empty()) result += layout.separator;
        const std::size_t width = layout.widths[group];
        result += text.substr(0, width);
        text.remove_prefix(std::min(width, text.size()));
        if (group + 1 < layout.widths.size() && layout.widths[group + 1] != 0) ++group;
    }
    return result;
}

}  // namespace

std::wstring formatted_identifier(Identifier kind, std::wstring_view text) {
    std::wstring normal = normalized_identifier(kind, text);
    if (identifier_fault(kind, normal) != IdentifierFault::none) return normal;
    return grouped(normal, layout_of(kind, normal.front()));
}

}  // namespace kovrel
