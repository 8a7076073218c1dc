// Filters for single keystrokes: a key code is a character code of the system's ANSI code page,
// and 0 is a discarded key.
#pragma once

#include <cstdint>
#include <optional>

#include "runtime/regional.h"

namespace kovrel {

/// What a filter gives back: the key for the caller's variable, and the function's own result.
struct FilteredKey {
    std::int16_t key;
    std::int16_t result;

    bool operator==(const FilteredKey&) const = default;
};

/// The system's ANSI code page, which the caller supplies.
struct AnsiCodePage {
    wchar_t (*character)(std::uint8_t code);
    /// Absent for a character that the page lacks.
    std::optional<std::uint8_t> (*code)(wchar_t character);
};

/// For numeric fields: digits, backspace, tab, escape, comma, point and, unless only positive
/// numbers are allowed, minus. With `point_to_comma` a point becomes a comma in the key alone: the
/// result stays the point. Failure 5 for a code outside 0 to 255.
[[nodiscard]] FilteredKey filter_number_key(std::int16_t key, bool positive_only,
                                            bool point_to_comma);

/// For date fields: digits, backspace, slash and minus. Failure 5 for a code outside 0 to 255.
[[nodiscard]] FilteredKey filter_date_key(std::int16_t key);

/// The code of the capital of a key's character; the key itself where the code page lacks that
/// capital. Failure 5 for a code outside 0 to 255.
[[nodiscard]] std::int16_t capital_key(std::int16_t key, const AnsiCodePage& code_page,
                                       const Regional& regional);

}  // namespace kovrel
