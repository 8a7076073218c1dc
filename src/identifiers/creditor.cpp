// The SEPA creditor identifier (AT-02 of the direct debit schemes, EPC262-08): country, two control
// digits (ISO 7064 MOD 97-10 over the national identifier and the country), 3 characters of the
// creditor's business, which do not count, and a national identifier, in Spain the creditor's NIF.
// The lengths that other countries give theirs are not checked.
#include "identifiers/checksum.h"
#include "identifiers/country.h"
#include "identifiers/rules.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::size_t national_start = 7;
constexpr std::size_t most = 35;

}  // namespace

IdentifierFault creditor_fault(Characters text) noexcept {
    if (text.size() <= national_start || text.size() > most) return IdentifierFault::length;
    if (!is_sepa_country(text[0], text[1])) return IdentifierFault::country;
    const Characters national = text.from(national_start);
    if (text.are_spanish() && national.size() != 9) return IdentifierFault::length;
    if (!text.are_digits(2, 2)) return IdentifierFault::characters;
    if (!has_right_controls_97(text.view(), national_start)) return IdentifierFault::control;
    return text.are_spanish() ? nif_fault(national) : IdentifierFault::none;
}

std::wstring mended_creditor(std::wstring_view text) {
    if (text.size() <= national_start) return {};
    const std::wstring_view country = text.substr(0, 2);
    if (country != L"ES" && text.substr(2, 2) != L"00") return {};
    return concat(
        {country, controls_97(concat({text.substr(national_start), country})), text.substr(4)});
}

}  // namespace kovrel
