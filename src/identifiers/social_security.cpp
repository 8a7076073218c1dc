// The numbers of the Spanish Social Security: a person's (número de afiliación, NAF or NUSS: 2
// digits of the province, 8 of the number, 2 of control) and an employer's account (código de
// cuenta de cotización: 2, 7 and 2). The control is the remainder by 97 of province and number, as
// the Tesorería General de la Seguridad Social computes it in the RED system: numbers had one digit
// fewer before 1998 and kept their controls, so that one below 10,000,000 (an account's below
// 1,000,000) joins the province without its first zero.
//
// Of the province only 00 is refused. The Tesorería has codes of its own beyond the 52 provinces.
#include "identifiers/checksum.h"
#include "identifiers/rules.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::size_t province_length = 2;
constexpr std::size_t control_length = 2;
constexpr std::size_t person_length = 12;
constexpr std::size_t account_length = 11;

// Of province and number, without the control.
unsigned remainder_of(std::wstring_view digits) noexcept {
    const std::wstring_view number = digits.substr(province_length);
    const bool is_short = number.front() == L'0';
    return remainder_97(remainder_97(0, digits.substr(0, province_length)),
                        number.substr(is_short ? 1 : 0));
}

IdentifierFault fault_of(Characters text, std::size_t length) noexcept {
    if (!text.are_all_digits()) return IdentifierFault::characters;
    if (text.size() != length) return IdentifierFault::length;
    if (text[0] == L'0' && text[1] == L'0') return IdentifierFault::value;
    const std::size_t control = length - control_length;
    const unsigned typed = text.digit(control) * 10 + text.digit(control + 1);
    return typed == remainder_of(text.view().substr(0, control)) ? IdentifierFault::none
                                                                 : IdentifierFault::control;
}

std::wstring mended(std::wstring_view text, std::size_t length) {
    if (text.size() + 1 == length) {  // as it was issued before it got its zero
        return concat({text.substr(0, province_length), L"0", text.substr(province_length)});
    }
    const std::wstring_view body = text.substr(0, length - control_length);
    const bool is_known = text.size() == length || text.size() == body.size();
    if (!is_known || body.size() != length - control_length) return {};
    return concat({body, two_digits(remainder_of(body))});
}

}  // namespace

IdentifierFault social_security_fault(Characters text) noexcept {
    return fault_of(text, person_length);
}

IdentifierFault contribution_account_fault(Characters text) noexcept {
    return fault_of(text, account_length);
}

std::wstring mended_social_security(std::wstring_view text) {
    return mended(text, person_length);
}

std::wstring mended_contribution_account(std::wstring_view text) {
    return mended(text, account_length);
}

}  // namespace kovrel
