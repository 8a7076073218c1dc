// The Spanish bank account code (CCC). Its weights stand in taxid/bank_account.
#include <algorithm>

#include "identifiers/rules.h"
#include "runtime/text.h"
#include "taxid/bank_account.h"

namespace kovrel {
namespace {

constexpr std::size_t full_length = 20;
constexpr std::size_t controls = 8;  // their index
constexpr std::size_t account = 10;  // the account's index

}  // namespace

IdentifierFault bank_account_fault(Characters text) noexcept {
    if (!text.are_all_digits()) return IdentifierFault::characters;
    if (text.size() != full_length) return IdentifierFault::length;
    // No entity of the register of the Banco de España has the number 0; twenty zeros, whose
    // controls are right, are what forms leave in an empty field.
    const std::wstring_view digits = text.view();
    const std::wstring_view bank = digits.substr(0, 4);
    if (std::all_of(bank.begin(), bank.end(), [](wchar_t digit) { return digit == L'0'; })) {
        return IdentifierFault::value;
    }
    const bool are_right = digits[controls] == bank_control_digit(digits.substr(0, controls)) &&
                           digits[controls + 1] == account_control_digit(digits.substr(account));
    return are_right ? IdentifierFault::none : IdentifierFault::control;
}

std::wstring mended_bank_account(std::wstring_view text) {
    const bool lacks_controls = text.size() + 2 == full_length;
    if (!lacks_controls && text.size() != full_length) return {};
    const std::wstring_view bank = text.substr(0, controls);
    const std::wstring_view number = text.substr(lacks_controls ? controls : account);
    return concat({bank, control_digits(bank, L"", number), number});
}

}  // namespace kovrel
