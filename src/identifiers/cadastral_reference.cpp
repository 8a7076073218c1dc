// The cadastral reference of a property: 20 letters and digits (texto refundido de la Ley del
// Catastro Inmobiliario, Real Decreto Legislativo 1/2004 of 5 March, article 6), of town or
// country. The last two are control letters, as the Dirección General del Catastro computes them:
// each weighs 7 of the first 14 characters, and both the 4 of the property in the parcel. A letter
// counts by its place in the Spanish alphabet, Ñ included. Those of Navarre and the Basque
// provinces, which keep cadastres of their own, are other codes.
#include <array>

#include "identifiers/rules.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::size_t half = 7;
constexpr std::size_t property = 2 * half;      // the index of the property in the parcel
constexpr std::size_t controls = property + 4;  // the index of the control letters
constexpr std::size_t full_length = controls + 2;
constexpr std::array<unsigned, half> half_weights{13, 15, 12, 5, 4, 17, 9};
constexpr std::array<unsigned, 4> property_weights{21, 3, 7, 1};
constexpr wchar_t enye = 0xD1;

unsigned value_of(wchar_t character) noexcept {
    if (is_digit(character)) return static_cast<unsigned>(character - L'0');
    if (character == enye) return 15;
    return static_cast<unsigned>(character - L'A' + (character > L'N' ? 2 : 1));
}

// The control letter of the half that starts at an index.
wchar_t control_of(std::wstring_view text, std::size_t start) noexcept {
    unsigned sum = 0;
    for (std::size_t i = 0; i < half; ++i) sum += half_weights[i] * value_of(text[start + i]);
    for (std::size_t i = 0; i < property_weights.size(); ++i) {
        sum += property_weights[i] * value_of(text[property + i]);
    }
    return std::wstring_view(L"MQWERTYUIOPASDFGHJKLBZX")[sum % 23];
}

}  // namespace

IdentifierFault cadastral_reference_fault(Characters text) noexcept {
    if (text.size() != full_length) return IdentifierFault::length;
    const std::wstring_view view = text.view();
    const bool are_right =
        view[controls] == control_of(view, 0) && view[controls + 1] == control_of(view, half);
    return are_right ? IdentifierFault::none : IdentifierFault::control;
}

std::wstring mended_cadastral_reference(std::wstring_view text) {
    const std::wstring_view body = text.substr(0, controls);
    if (body.size() < controls || (text.size() != controls && text.size() != full_length))
        return {};
    std::wstring mended(body);
    mended += control_of(body, 0);
    mended += control_of(body, half);
    return mended;
}

}  // namespace kovrel
