// The Spanish tax identification number (NIF) of every holder, by the rules in force. The published
// checks of taxid/tax_id keep to older ones.
#include <algorithm>
#include <array>

#include "identifiers/rules.h"
#include "runtime/text.h"
#include "taxid/tax_id.h"

namespace kovrel {
namespace {

constexpr std::size_t full_length = 9;
constexpr std::size_t without_control = 8;

enum class Control : std::uint8_t { digit, letter, either };

struct Holder {
    wchar_t first;
    Control control;
    std::wstring_view name;
};

// Letters and names by Orden EHA/451/2008, of 20 February, articles 3 to 5, as Orden HAP/5/2016
// left them. It says that there is a control, not of which form: digit and letter are as the
// Agencia Tributaria issues them and checks them in its declarations. Before the letters N and W
// existed, entities without Spanish nationality shared the others and had letters, always after the
// figures 00 of a foreign domicile.
constexpr std::array<Holder, 17> entities{{
    {L'A', Control::digit, L"Sociedad anónima"},
    {L'B', Control::digit, L"Sociedad de responsabilidad limitada"},
    {L'C', Control::either, L"Sociedad colectiva"},
    {L'D', Control::either, L"Sociedad comanditaria"},
    {L'E', Control::digit,
     L"Comunidad de bienes, herencia yacente u otra entidad carente de personalidad jurídica no "
     L"incluida expresamente en otras claves"},
    {L'F', Control::either, L"Sociedad cooperativa"},
    {L'G', Control::either, L"Asociación"},
    {L'H', Control::digit, L"Comunidad de propietarios en régimen de propiedad horizontal"},
    {L'J', Control::either, L"Sociedad civil"},
    {L'N', Control::letter, L"Entidad extranjera"},
    {L'P', Control::letter, L"Corporación Local"},
    {L'Q', Control::letter, L"Organismo público"},
    {L'R', Control::letter, L"Congregación o institución religiosa"},
    {L'S', Control::letter,
     L"Órgano de la Administración del Estado o de las Comunidades Autónomas"},
    {L'U', Control::either, L"Unión Temporal de Empresas"},
    {L'V', Control::either, L"Otro tipo no definido en el resto de claves"},
    {L'W', Control::letter,
     L"Establecimiento permanente de entidad no residente en territorio español"},
}};

// Persons: K, L and M by Real Decreto 1065/2007, of 27 July, article 20; X, Y and Z by Orden
// INT/2058/2008, of 14 July.
constexpr std::array<Holder, 6> persons{{
    {L'K', Control::letter, L"Español menor de catorce años residente en España, sin DNI"},
    {L'L', Control::letter, L"Español residente en el extranjero, sin DNI"},
    {L'M', Control::letter, L"Persona física de nacionalidad extranjera, sin NIE"},
    {L'X', Control::letter, L"Persona física de nacionalidad extranjera, con NIE"},
    {L'Y', Control::letter, L"Persona física de nacionalidad extranjera, con NIE"},
    {L'Z', Control::letter, L"Persona física de nacionalidad extranjera, con NIE"},
}};
constexpr std::wstring_view dni_holder = L"Persona física de nacionalidad española, con DNI";

template <std::size_t count>
const Holder* holder_in(const std::array<Holder, count>& holders, wchar_t first) noexcept {
    const auto found = std::find_if(holders.begin(), holders.end(),
                                    [=](const Holder& holder) { return holder.first == first; });
    return found == holders.end() ? nullptr : &*found;
}

constexpr bool is_nie_letter(wchar_t first) noexcept {
    return first >= L'X' && first <= L'Z';
}
constexpr bool is_personal_letter(wchar_t first) noexcept {
    return first >= L'K' && first <= L'M';
}

bool are_digits(std::wstring_view text) noexcept {
    return std::all_of(text.begin(), text.end(), is_digit);
}

std::int32_t number_of(std::wstring_view digits) noexcept {
    std::int32_t number = 0;
    for (const wchar_t digit : digits) number = number * 10 + (digit - L'0');
    return number;
}

// The letter of a person's NIF, by Real Decreto 1553/2005, of 23 December, article 11: of the DNI's
// number; of the digits behind K, L or M; behind X, Y or Z, of the digits with 0, 1 or 2 in front.
wchar_t personal_letter(std::wstring_view body) noexcept {
    constexpr std::int32_t tens_of_millions = 10'000'000;
    if (is_digit(body.front())) return nif_letter(number_of(body));
    const std::int32_t front = is_nie_letter(body.front()) ? body.front() - L'X' : 0;
    return nif_letter(front * tens_of_millions + number_of(body.substr(1)));
}

Control control_form(const Holder& holder, std::wstring_view text) noexcept {
    return text[1] == L'0' && text[2] == L'0' ? Control::letter : holder.control;
}

wchar_t control_figure(unsigned digit) noexcept {
    return static_cast<wchar_t>(L'0' + digit);
}

// What K, L, M, X, Y and Z share.
IdentifierFault lettered_fault(Characters text, bool (*is_first)(wchar_t)) noexcept {
    if (text.size() != full_length) return IdentifierFault::length;
    if (!is_first(text[0])) return IdentifierFault::first_letter;
    if (!text.are_digits(1, without_control - 1)) return IdentifierFault::characters;
    const bool is_right =
        text[without_control] == personal_letter(text.view().substr(0, without_control));
    return is_right ? IdentifierFault::none : IdentifierFault::control;
}

// `text` has its 7 digits.
std::wstring mended_entity(const Holder& holder, std::wstring_view text) {
    const unsigned digit = cif_control_digit(text);
    const Control form = control_form(holder, text);
    const bool had_letter = text.size() == full_length && !is_digit(text.back());
    const bool has_letter = form == Control::letter || (form == Control::either && had_letter);
    std::wstring mended(text.substr(0, without_control));
    mended += has_letter ? cif_control_letter(digit) : control_figure(digit);
    return mended;
}

}  // namespace

IdentifierFault dni_fault(Characters text) noexcept {
    if (text.size() != full_length) return IdentifierFault::length;
    if (!text.are_digits(0, 1)) return IdentifierFault::first_letter;
    if (!text.are_digits(1, without_control - 1)) return IdentifierFault::characters;
    const bool is_right =
        text[without_control] == personal_letter(text.view().substr(0, without_control));
    return is_right ? IdentifierFault::none : IdentifierFault::control;
}

IdentifierFault nie_fault(Characters text) noexcept {
    return lettered_fault(text, is_nie_letter);
}

IdentifierFault personal_nif_fault(Characters text) noexcept {
    return lettered_fault(text, is_personal_letter);
}

IdentifierFault entity_nif_fault(Characters text) noexcept {
    if (text.size() != full_length) return IdentifierFault::length;
    const Holder* const holder = holder_in(entities, text[0]);
    if (holder == nullptr) return IdentifierFault::first_letter;
    if (!text.are_digits(1, without_control - 1)) return IdentifierFault::characters;
    const unsigned digit = cif_control_digit(text.view());
    const wchar_t typed = text[without_control];
    const Control form = control_form(*holder, text.view());
    const bool is_right = (form != Control::letter && typed == control_figure(digit)) ||
                          (form != Control::digit && typed == cif_control_letter(digit));
    return is_right ? IdentifierFault::none : IdentifierFault::control;
}

IdentifierFault nif_fault(Characters text) noexcept {
    if (text.are_digits(0, 1)) return dni_fault(text);
    if (is_nie_letter(text[0])) return nie_fault(text);
    if (is_personal_letter(text[0])) return personal_nif_fault(text);
    return entity_nif_fault(text);
}

// Council Directive 2006/112/EC, article 215, and Real Decreto 1065/2007, article 25: the NIF with
// the country in front.
IdentifierFault vat_fault(Characters text) noexcept {
    if (text.size() != 2 + full_length) return IdentifierFault::length;
    if (!text.are_spanish()) return IdentifierFault::country;
    return nif_fault(text.from(2));
}

std::wstring mended_nif(std::wstring_view text) {
    const std::wstring_view body = text.substr(0, without_control);
    const bool is_known = text.size() == without_control || text.size() == full_length;
    if (!is_known || !are_digits(body.substr(1))) return {};
    if (const Holder* const entity = holder_in(entities, body.front())) {
        return mended_entity(*entity, text);
    }
    const bool is_person = is_digit(body.front()) || holder_in(persons, body.front()) != nullptr;
    // Nine digits are another number, not a DNI with a wrong letter.
    if (!is_person || are_digits(text.substr(without_control)) != (text.size() == body.size())) {
        return {};
    }
    return std::wstring(body) + personal_letter(body);
}

std::wstring mended_vat(std::wstring_view text) {
    return text.substr(0, 2) == L"ES" ? L"ES" + mended_nif(text.substr(2)) : std::wstring();
}

std::wstring with_dni_zeros(std::wstring text) {
    if (text.empty() || text.size() > without_control) return text;
    const bool has_letter = text.size() > 1 && text.back() >= L'A' && text.back() <= L'Z';
    const auto number = std::wstring_view(text).substr(0, text.size() - (has_letter ? 1 : 0));
    if (!are_digits(number)) return text;
    return with_leading_zeros(std::move(text), has_letter ? full_length : without_control);
}

std::wstring_view holder_kind(std::wstring_view nif) noexcept {
    const NormalText text(nif);
    if (identifier_fault(Identifier::nif, nif) != IdentifierFault::none) return {};
    const wchar_t first = text.characters()[0];
    if (is_digit(first)) return dni_holder;
    const Holder* const entity = holder_in(entities, first);
    return entity != nullptr ? entity->name : holder_in(persons, first)->name;
}

}  // namespace kovrel
