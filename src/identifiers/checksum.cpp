#include "identifiers/checksum.h"

#include <cstdint>

#include "runtime/text.h"

namespace kovrel {

unsigned remainder_97(unsigned before, std::wstring_view text) noexcept {
    // Divided when two more digits might not fit.
    constexpr std::uint64_t most = UINT64_MAX / 100 - 1;
    std::uint64_t number = before;
    for (const wchar_t character : text) {
        if (number > most) number %= 97;
        number = is_digit(character) ? number * 10 + static_cast<unsigned>(character - L'0')
                                     : number * 100 + static_cast<unsigned>(character - L'A' + 10);
    }
    return static_cast<unsigned>(number % 97);
}

std::wstring controls_97(std::wstring_view text) {
    return two_digits(98 - remainder_97(remainder_97(0, text), L"00"));
}

bool has_right_controls_97(std::wstring_view text, std::size_t body) noexcept {
    const std::wstring_view controls = text.substr(2, 2);
    if (controls == L"00" || controls == L"01" || controls == L"99") return false;
    return remainder_97(remainder_97(0, text.substr(body)), text.substr(0, 4)) == 1;
}

std::wstring two_digits(unsigned number) {
    return with_leading_zeros(decimal_text(number), 2);
}

}  // namespace kovrel
