// The business identifier code of a bank (BIC, ISO 9362:2022): 4 characters of the party, which are
// letters in all codes issued so far though digits are allowed since ISO 9362:2014, country, 2
// characters of the party's suffix and, if any, 3 of its branch. It has no control.
#include "identifiers/country.h"
#include "identifiers/rules.h"

namespace kovrel {

IdentifierFault bic_fault(Characters text) noexcept {
    if (text.size() != 8 && text.size() != 11) return IdentifierFault::length;
    if (!text.are_letters(4, 2)) return IdentifierFault::characters;
    return is_country(text[4], text[5]) ? IdentifierFault::none : IdentifierFault::country;
}

}  // namespace kovrel
