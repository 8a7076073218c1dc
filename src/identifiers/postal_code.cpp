// The Spanish postal code: 5 digits, of which the first two are the province, 01 to 52 (Real
// Decreto 1829/1999, Reglamento de los servicios postales; codes in use since 1984).
#include <algorithm>

#include "identifiers/rules.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::size_t full_length = 5;
constexpr unsigned last_province = 52;

}  // namespace

IdentifierFault postal_code_fault(Characters text) noexcept {
    if (!text.are_all_digits()) return IdentifierFault::characters;
    if (text.size() != full_length) return IdentifierFault::length;
    const unsigned province = text.digit(0) * 10 + text.digit(1);
    return province >= 1 && province <= last_province ? IdentifierFault::none
                                                      : IdentifierFault::value;
}

std::wstring with_postal_zero(std::wstring text) {
    const bool lost_zero =
        text.size() + 1 == full_length && std::all_of(text.begin(), text.end(), is_digit);
    return lost_zero ? with_leading_zeros(std::move(text), full_length) : text;
}

}  // namespace kovrel
