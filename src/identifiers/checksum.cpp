#include "identifiers/checksum.h"

#include <array>
#include <cstddef>

#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr unsigned modulus = 97;

// The remainders of the powers of 10, which begin anew after 96.
constexpr auto powers_of_10 = [] {
    std::array<unsigned, modulus - 1> powers{};
    unsigned power = 1;
    for (unsigned& remainder : powers) {
        remainder = power;
        power = power * 10 % modulus;
    }
    return powers;
}();

}  // namespace

unsigned remainder_97(unsigned before, std::wstring_view text) noexcept {
    // From the right, each character by itself: one division at the end instead of one a few
    // digits.
    unsigned sum = 0;
    std::size_t place = 0;
    for (std::size_t left = text.size(); left-- > 0;) {
        const wchar_t character = text[left];
        const bool is_letter = !is_digit(character);
        const auto value = static_cast<unsigned>(character - (is_letter ? L'A' - 10 : L'0'));
        sum += value * powers_of_10[place];
        place += is_letter ? 2 : 1;
        if (place >= powers_of_10.size()) place -= powers_of_10.size();
    }
    return (sum + before * powers_of_10[place]) % modulus;
}

std::wstring controls_97(std::wstring_view text) {
    return two_digits(98 - remainder_97(remainder_97(0, text), L"00"));
}

bool has_right_controls_97(std::wstring_view text, std::size_t body) noexcept {
    const int controls = (text[2] - L'0') * 10 + (text[3] - L'0');
    if (controls < 2 || controls > 98) return false;
    return remainder_97(remainder_97(0, text.substr(body)), text.substr(0, 4)) == 1;
}

std::wstring two_digits(unsigned number) {
    return with_leading_zeros(decimal_text(number), 2);
}

}  // namespace kovrel
