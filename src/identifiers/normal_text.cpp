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
    for (const wchar_t character : text) {
        const std::uint8_t meaning = meaning_of(character);
        if (meaning == separator) continue;
        if (meaning == other) {
            has_others_ = true;
            return;
        }
        if (size_ == capacity) {
            is_too_long_ = true;
            return;
        }
        const std::uint64_t position = std::uint64_t{1} << size_;
        digits_ |= meaning <= '9' ? position : 0;
        letters_ |= meaning >= 'A' && meaning <= 'Z' ? position : 0;
        characters_[size_++] = static_cast<wchar_t>(meaning);
    }
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
