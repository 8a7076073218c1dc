// Every kind of identifier out of any text: nothing fails, what is corrected is right, what is
// normalized stays as it is, and what is formatted is read back.
#include "identifiers/identifier.h"
#include "tests/fuzz/fuzz_text.h"

namespace kovrel {
namespace {

void check(Identifier kind, const std::wstring& text) {
    const bool is_right = identifier_fault(kind, text) == IdentifierFault::none;
    const std::wstring normal = normalized_identifier(kind, text);
    fuzz::require(normalized_identifier(kind, normal) == normal);
    const std::wstring formatted = formatted_identifier(kind, text);
    fuzz::require(normalized_identifier(kind, formatted) == normal);
    if (is_right) fuzz::require(identifier_fault(kind, formatted) == IdentifierFault::none);
    const auto corrected = corrected_identifier(kind, text);
    if (is_right) fuzz::require(corrected == normal);
    if (corrected) fuzz::require(identifier_fault(kind, *corrected) == IdentifierFault::none);
}

}  // namespace
}  // namespace kovrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kovrel;
    const auto text = fuzz::Texts(data, size).until('\n');
    // One number below and one above the list too.
    for (int kind = 0; kind <= static_cast<int>(Identifier::ean13) + 1; ++kind) {
        check(static_cast<Identifier>(kind), text);
    }
    const Identifier found = identifier_kind(text);
    const bool is_known = found != Identifier::none;
    fuzz::require(!is_known || identifier_fault(found, text) == IdentifierFault::none);
    const bool is_nif = identifier_fault(Identifier::nif, text) == IdentifierFault::none;
    fuzz::require(holder_kind(text).empty() != is_nif);
    const auto iban = iban_of_account(text);
    fuzz::require(!iban ||
                  account_of_iban(*iban) == normalized_identifier(Identifier::bank_account, text));
    return 0;
}
