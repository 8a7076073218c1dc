#include "identifiers/typed_account.h"

#include <algorithm>

#include "identifiers/identifier.h"
#include "runtime/text.h"

namespace kovrel {

std::optional<std::wstring> typed_account(std::wstring_view text) {
    constexpr std::wstring_view spain = L"ES";
    constexpr std::size_t account_length = 20;
    constexpr std::size_t digits_of_iban = 2 + account_length;
    const std::wstring normal = normalized_identifier(Identifier::iban, text);
    const bool has_country = normal.compare(0, spain.size(), spain) == 0;
    const std::wstring digits = has_country ? normal.substr(spain.size()) : normal;
    if (!std::all_of(digits.begin(), digits.end(), is_digit)) return std::nullopt;
    if (!has_country && digits.size() == account_length) return digits;
    if (digits.size() != digits_of_iban) return std::nullopt;
    // Two digits typed too many are no controls.
    if (!has_country &&
        identifier_fault(Identifier::iban, concat({spain, digits})) != IdentifierFault::none) {
        return std::nullopt;
    }
    return digits.substr(digits_of_iban - account_length);
}

}  // namespace kovrel
