#include "validation/keystroke.h"

#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::int16_t backspace = 8;
constexpr std::int16_t tab = 9;
constexpr std::int16_t escape = 27;
constexpr std::int16_t comma = 44;
constexpr std::int16_t minus = 45;
constexpr std::int16_t point = 46;
constexpr std::int16_t slash = 47;

constexpr FilteredKey discarded{0, 0};

std::uint8_t single_byte(std::int16_t key) {
    if (key < 0 || key > 0xFF) throw Failure(FailureNumber::invalid_argument);
    return static_cast<std::uint8_t>(key);
}

// Digits have the same codes in every ANSI code page.
FilteredKey digit_or_discarded(std::int16_t key) {
    return is_digit(static_cast<wchar_t>(single_byte(key))) ? FilteredKey{key, key} : discarded;
}

}  // namespace

FilteredKey filter_number_key(std::int16_t key, bool positive_only, bool point_to_comma) {
    switch (key) {
        case minus:
            return positive_only ? discarded : FilteredKey{key, key};
        case point:
            return {point_to_comma ? comma : point, point};
        case backspace:
        case tab:
        case escape:
        case comma:
            return {key, key};
        default:
            return digit_or_discarded(key);
    }
}

FilteredKey filter_date_key(std::int16_t key) {
    if (key == backspace || key == slash || key == minus) return {key, key};
    return digit_or_discarded(key);
}

std::int16_t capital_key(std::int16_t key, const AnsiCodePage& code_page,
                         const Regional& regional) {
    const wchar_t character = code_page.character(single_byte(key));
    const std::wstring capital = regional.capitals({&character, 1});
    return code_page.code(capital.front()).value_or(single_byte(key));
}

}  // namespace kovrel
