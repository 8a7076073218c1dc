// The code of a supply of electricity or gas (CUPS, código universal del punto de suministro:
// Reales Decretos 1434/2002 and 1435/2002, both of 27 December; its form by the system operator's
// operating procedure P.O. 10.8): ES, 4 digits of the distributor, 12 of the supply and 2 control
// letters; if any, a digit and a letter of the measuring point. The control letters are quotient
// and remainder by 23 of what the 16 digits leave by 529, in the letters of the NIF.
#include <algorithm>

#include "identifiers/rules.h"
#include "runtime/text.h"
#include "taxid/tax_id.h"

namespace kovrel {
namespace {

constexpr std::size_t digits_start = 2;
constexpr std::size_t digit_count = 16;
constexpr std::size_t controls = digits_start + digit_count;  // their index
constexpr std::size_t full_length = controls + 2;
constexpr std::size_t length_with_point = full_length + 2;
// F border points and their substitutes, P main meters, R redundant, C checking, X, Y and Z others.
constexpr std::wstring_view point_letters = L"FPRCXYZ";

struct Controls {
    wchar_t first;
    wchar_t second;
};

Controls controls_of(std::wstring_view digits) noexcept {
    std::uint64_t number = 0;
    for (const wchar_t digit : digits) number = number * 10 + static_cast<unsigned>(digit - L'0');
    const auto remainder = static_cast<std::int32_t>(number % 529);
    return {nif_letter(remainder / 23), nif_letter(remainder % 23)};
}

}  // namespace

IdentifierFault cups_fault(Characters text) noexcept {
    if (text.size() != full_length && text.size() != length_with_point) {
        return IdentifierFault::length;
    }
    if (!text.are_spanish()) return IdentifierFault::country;
    if (!text.are_digits(digits_start, digit_count)) return IdentifierFault::characters;
    const bool has_wrong_point =
        text.size() == length_with_point &&
        (!text.are_digits(full_length, 1) ||
         point_letters.find(text[full_length + 1]) == std::wstring_view::npos);
    if (has_wrong_point) return IdentifierFault::characters;
    const Controls right = controls_of(text.view().substr(digits_start, digit_count));
    const bool are_right = text[controls] == right.first && text[controls + 1] == right.second;
    return are_right ? IdentifierFault::none : IdentifierFault::control;
}

std::wstring mended_cups(std::wstring_view text) {
    if (text.size() < controls) return {};
    const std::wstring_view digits = text.substr(digits_start, digit_count);
    if (digits.find_first_not_of(L"0123456789") != std::wstring_view::npos) return {};
    const Controls right = controls_of(digits);
    std::wstring mended(text);
    mended.resize(std::max(text.size(), full_length));
    mended[controls] = right.first;
    mended[controls + 1] = right.second;
    return mended;
}

}  // namespace kovrel
