// The province of a Spanish postal code: the number that its first two digits give.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "runtime/notice.h"
#include "runtime/regional.h"

namespace kovrel {

/// What the user is told about a code of more than five characters; nothing for any other.
[[nodiscard]] std::optional<Notice> postal_code_notice(std::wstring_view postal_code);

/// The number of the province, 0 to 99 for digits, not checked further. A code of fewer than five
/// characters is a number, filled up with zeros on the left. Failure 6 (overflow) for a code of
/// more than five characters, and for a short code or a first pair outside 16 and 8 bits; failure
/// 13 (type mismatch) for one that is no number.
[[nodiscard]] std::uint8_t province_of(std::wstring_view postal_code, const Regional& regional);

}  // namespace kovrel
