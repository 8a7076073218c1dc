// What a user means who gives a field for Spanish accounts more than an account.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kovrel {

/// The 20 digits of the account in a text: the account itself, with or without separators; that of
/// a Spanish IBAN, which need not be right; or that of 22 digits which are right as a Spanish IBAN
/// without its country. Nothing for any other text.
[[nodiscard]] std::optional<std::wstring> typed_account(std::wstring_view text);

}  // namespace kovrel
