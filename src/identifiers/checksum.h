// Check sums that several identifiers share.
#pragma once

#include <string>
#include <string_view>

namespace kovrel {

/// The remainder by 97 of the number that `before` and the characters make, a letter standing for
/// two digits: A is 10, Z is 35 (ISO 7064, as ISO 13616-1 uses it). Of some hundred characters at
/// most.
[[nodiscard]] unsigned remainder_97(unsigned before, std::wstring_view text) noexcept;

/// The two control digits, 02 to 98, that ISO 7064 MOD 97-10 gives `text`, which they follow.
[[nodiscard]] std::wstring controls_97(std::wstring_view text);

/// Whether the controls of a text with a country and its two control digits in front are right for
/// what follows from `body` on. Right controls lie between 02 and 98: 00, 01 and 99 leave the
/// same remainders as 97, 98 and 02, but nothing issues them.
[[nodiscard]] bool has_right_controls_97(std::wstring_view text, std::size_t body) noexcept;

/// Two decimal digits.
[[nodiscard]] std::wstring two_digits(unsigned number);

}  // namespace kovrel
