// The numbers of payment cards (ISO/IEC 7812-1:2017, the control digit by Luhn's rule; 12 to 19
// digits are what issuers use) and of goods (EAN-13, the GTIN-13 of the GS1 General
// Specifications).
#include "identifiers/rules.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::size_t ean_length = 13;

// The sum of the digits, each weighed from the right: the last counts once, the one before it three
// times, and so on.
unsigned ean_sum(std::wstring_view digits) noexcept {
    unsigned sum = 0;
    unsigned weight = 1;
    for (std::size_t left = digits.size(); left-- > 0;) {
        sum += static_cast<unsigned>(digits[left] - L'0') * weight;
        weight = 4 - weight;
    }
    return sum;
}

// The sum of the digits, every second one from the right doubled, with 9 taken off what is above 9.
unsigned luhn_sum(std::wstring_view digits) noexcept {
    constexpr std::wstring_view doubled = L"0246813579";
    unsigned sum = 0;
    bool is_doubled = false;
    for (std::size_t left = digits.size(); left-- > 0;) {
        const wchar_t digit = digits[left];
        const wchar_t counted =
            is_doubled ? doubled[static_cast<std::size_t>(digit - L'0')] : digit;
        sum += static_cast<unsigned>(counted - L'0');
        is_doubled = !is_doubled;
    }
    return sum;
}

// Zeros alone have right controls by any rule, and are what programs leave in an empty field.
bool are_all_zeros(std::wstring_view digits) noexcept {
    return digits.find_first_not_of(L'0') == std::wstring_view::npos;
}

IdentifierFault control_fault(std::wstring_view digits, unsigned sum) noexcept {
    if (are_all_zeros(digits)) return IdentifierFault::value;
    return sum % 10 == 0 ? IdentifierFault::none : IdentifierFault::control;
}

}  // namespace

IdentifierFault payment_card_fault(Characters text) noexcept {
    if (!text.are_all_digits()) return IdentifierFault::characters;
    if (text.size() < 12 || text.size() > 19) return IdentifierFault::length;
    return control_fault(text.view(), luhn_sum(text.view()));
}

IdentifierFault ean13_fault(Characters text) noexcept {
    if (!text.are_all_digits()) return IdentifierFault::characters;
    if (text.size() != ean_length) return IdentifierFault::length;
    return control_fault(text.view(), ean_sum(text.view()));
}

std::wstring mended_ean13(std::wstring_view text) {
    const std::wstring_view body = text.substr(0, ean_length - 1);
    if (body.size() + 1 < ean_length || text.size() > ean_length) return {};
    if (body.find_first_not_of(L"0123456789") != std::wstring_view::npos) return {};
    // Twelve digits may also be a complete UPC-A, whose EAN-13 has a zero in front.
    if (text.size() < ean_length && ean_sum(body) % 10 == 0) return {};
    std::wstring mended(body);
    mended += L'0';
    mended.back() = static_cast<wchar_t>(L'0' + (10 - ean_sum(mended) % 10) % 10);
    return mended;
}

}  // namespace kovrel
