// The Spanish bank account code (CCC, "Código Cuenta Cliente"): 4 digits of the bank, 4 of the
// branch, 2 control digits, 10 of the account. Weights and control digits as the Consejo Superior
// Bancario published them (modulo 11). Nothing checks that a code is 20 characters, or digits.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "runtime/notice.h"

namespace kovrel {

/// The pieces of a code; shorter, or empty, where the code ends before.
[[nodiscard]] std::wstring_view bank_of(std::wstring_view code) noexcept;
[[nodiscard]] std::wstring_view branch_of(std::wstring_view code) noexcept;
[[nodiscard]] std::wstring_view control_digits_of(std::wstring_view code) noexcept;
[[nodiscard]] std::wstring_view account_of(std::wstring_view code) noexcept;

/// The two control digits. The first 8 characters of bank and branch together and the first 10 of
/// the account count; what is missing or is no digit counts as 0.
[[nodiscard]] std::wstring control_digits(std::wstring_view bank, std::wstring_view branch,
                                          std::wstring_view account);

/// The control digit of bank and branch together, and that of the account, by the same rules.
[[nodiscard]] wchar_t bank_control_digit(std::wstring_view bank_and_branch) noexcept;
[[nodiscard]] wchar_t account_control_digit(std::wstring_view account) noexcept;

/// What the user must be told when the control digits in a code are not the `right` two digits;
/// nothing when they are. `reveal` shows the right digits; otherwise the notice says in which part
/// of the code the error lies.
[[nodiscard]] std::optional<Notice> bank_account_notice(std::wstring_view code,
                                                        std::wstring_view right, bool reveal);

}  // namespace kovrel
