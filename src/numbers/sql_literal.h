// Values as literals of SQL texts, in the dialect that writes dates between "#" signs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/notice.h"

namespace kovrel {

/// A number text with a point in the place of its decimal separator, whatever that is: the last
/// `decimals` characters are the decimals and the one before them is dropped. A text too short to
/// have them is an invalid argument (failure 5).
[[nodiscard]] std::wstring sql_number(std::wstring_view rounded, std::size_t decimals);

/// A date between "#" signs, month first. The separator is always "/", which the dialect asks for.
[[nodiscard]] std::wstring sql_date(int year, int month, int day);

/// A text that is no date, unchanged between "#" signs.
[[nodiscard]] std::wstring sql_date(std::wstring_view text);

/// -1 for true, 0 for false.
[[nodiscard]] std::int16_t sql_boolean(bool value) noexcept;

/// A text between single quotes. Quotes inside it are not doubled: callers escape them themselves.
[[nodiscard]] std::wstring sql_string(std::wstring_view text);

/// What the user is told when the value is not a number: with the host's name as title for the
/// members of two decimals, and with no title of its own (absent) for the one of four.
[[nodiscard]] Notice sql_needs_a_number(std::optional<std::wstring> title);

}  // namespace kovrel
