#include "identifiers/normal_text.h"

namespace kovrel {
namespace {

// What stands for a character: nothing for a separator or for one of the others, else its capital.
constexpr std::uint8_t other = 0;
constexpr std::uint8_t separator = 1;
constexpr std::uint8_t capital_enye = 0xD1;

constexpr std::array<std::uint8_t, 128> ascii = [] {
    std::array<std::uint8_t, 128> table{};
    for (const char character : {'\t', '\n', '\r', ' ', '-', '.', '/'}) {
        table[static_cast<std::size_t>(character)] = separator;
    }
    for (std::uint8_t digit = '0'; digit <= '9'; ++digit) table[digit] = digit;
    for (std::uint8_t letter = 'A'; letter <= 'Z'; ++letter) {
        table[letter] = letter;
        table[letter + ('a' - 'A')] = letter;
    }
    return table;
}();

// Only the letters named here have a capital: others whose capital is an ASCII letter, such as the
// dotless i, belong to no identifier.
std::uint8_t beyond_ascii(std::uint32_t code) noexcept {
    if (code == 0xD1 || code == 0xF1) return capital_enye;
    // What text processors and web pages write for a blank or a hyphen: no-break blank, narrow
    // no-break blank, and from hyphen to dash.
    const bool separates = code == 0xA0 || code == 0x202F || (code >= 0x2010 && code <= 0x2013);
    return separates ? separator : other;
}

std::uint8_t meaning_of(wchar_t character) noexcept {
    const auto code = static_cast<std::uint32_t>(character);
    return code < ascii.size() ? ascii[code] : beyond_ascii(code);
}

}  // namespace

NormalText::NormalText(std::wstring_view text) noexcept {
    std::size_t size = 0;
    std::uint64_t digits = 0;
    std::uint64_t letters = 0;
    for (const wchar_t character : text) {
        const std::uint8_t meaning = meaning_of(character);
        if (meaning == separator) continue;
        if (meaning == other || size == capacity) {
            has_others_ = meaning == other;
            is_too_long_ = !has_others_;
            break;
        }
        digits |= std::uint64_t{meaning <= '9'} << size;
        letters |= std::uint64_t{meaning >= 'A' && meaning <= 'Z'} << size;
        characters_[size++] = static_cast<wchar_t>(meaning);
    }
    size_ = size;
    digits_ = digits;
    letters_ = letters;
}

std::wstring without_separators(std::wstring_view text) {
    std::wstring result;
    result.reserve(text.size());
    for (const wchar_t character : text) {
        const std::uint8_t meaning = meaning_of(character);
        if (meaning == separator) continue;
        result += meaning == other ? character : static_cast<wchar_t>(meaning);
    }
    return result;
}

}  // namespace kovrel
