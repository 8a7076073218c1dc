#include "identifiers/iban_registry.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kovrel {
namespace {

constexpr std::array<IbanCountry, 89> registry = {{
    {L"AD", 24, "4!n4!n12!c"},
    {L"AE", 23, "3!n16!n"},
    {L"AL", 28, "8!n16!c"},
    {L"AT", 20, "5!n11!n"},
    {L"AZ", 28, "4!a20!c"},
    {L"BA", 20, "3!n3!n8!n2!n"},
    {L"BE", 16, "3!n7!n2!n"},
    {L"BG", 22, "4!a4!n2!n8!c"},
    {L"BH", 22, "4!a14!c"},
    {L"BI", 27, "5!n5!n11!n2!n"},
    {L"BR", 29, "8!n5!n10!n1!a1!c"},
    {L"BY", 28, "4!c4!n16!c"},
    {L"CH", 21, "5!n12!c"},
    {L"CR", 22, "4!n14!n"},
    {L"CY", 28, "3!n5!n16!c"},
    {L"CZ", 24, "4!n6!n10!n"},
    {L"DE", 22, "8!n10!n"},
    {L"DJ", 27, "5!n5!n11!n2!n"},
    {L"DK", 18, "4!n9!n1!n"},
    {L"DO", 28, "4!c20!n"},
    {L"EE", 20, "2!n14!n"},
    {L"EG", 29, "4!n4!n17!n"},
    {L"ES", 24, "4!n4!n1!n1!n10!n"},
    {L"FI", 18, "3!n11!n"},
    {L"FK", 18, "2!a12!n"},
    {L"FO", 18, "4!n9!n1!n"},
    {L"FR", 27, "5!n5!n11!c2!n"},
    {L"GB", 22, "4!a6!n8!n"},
    {L"GE", 22, "2!a16!n"},
    {L"GI", 23, "4!a15!c"},
    {L"GL", 18, "4!n9!n1!n"},
    {L"GR", 27, "3!n4!n16!c"},
    {L"GT", 28, "4!c20!c"},
    {L"HN", 28, "4!a20!n"},
    {L"HR", 21, "7!n10!n"},
    {L"HU", 28, "3!n4!n1!n15!n1!n"},
    {L"IE", 22, "4!a6!n8!n"},
    {L"IL", 23, "3!n3!n13!n"},
    {L"IQ", 23, "4!a3!n12!n"},
    {L"IS", 26, "4!n2!n6!n10!n"},
    {L"IT", 27, "1!a5!n5!n12!c"},
    {L"JO", 30, "4!a4!n18!c"},
    {L"KW", 30, "4!a22!c"},
    {L"KZ", 20, "3!n13!c"},
    {L"LB", 28, "4!n20!c"},
    {L"LC", 32, "4!a24!c"},
    {L"LI", 21, "5!n12!c"},
    {L"LT", 20, "5!n11!n"},
    {L"LU", 20, "3!n13!c"},
    {L"LV", 21, "4!a13!c"},
    {L"LY", 25, "3!n3!n15!n"},
    {L"MC", 27, "5!n5!n11!c2!n"},
    {L"MD", 24, "2!c18!c"},
    {L"ME", 22, "3!n13!n2!n"},
    {L"MK", 19, "3!n10!c2!n"},
    {L"MN", 20, "4!n12!n"},
    {L"MR", 27, "5!n5!n11!n2!n"},
    {L"MT", 31, "4!a5!n18!c"},
    {L"MU", 30, "4!a2!n2!n12!n3!n3!a"},
    {L"NI", 28, "4!a20!n"},
    {L"NL", 18, "4!a10!n"},
    {L"NO", 15, "4!n6!n1!n"},
    {L"OM", 23, "3!n16!c"},
    {L"PK", 24, "4!a16!c"},
    {L"PL", 28, "8!n16!n"},
    {L"PS", 29, "4!a21!c"},
    {L"PT", 25, "4!n4!n11!n2!n"},
    {L"QA", 29, "4!a21!c"},
    {L"RO", 24, "4!a16!c"},
    {L"RS", 22, "3!n13!n2!n"},
    {L"RU", 33, "9!n5!n15!c"},
    {L"SA", 24, "2!n18!c"},
    {L"SC", 31, "4!a2!n2!n16!n3!a"},
    {L"SD", 18, "2!n12!n"},
    {L"SE", 24, "3!n16!n1!n"},
    {L"SI", 19, "5!n8!n2!n"},
    {L"SK", 24, "4!n6!n10!n"},
    {L"SM", 27, "1!a5!n5!n12!c"},
    {L"SO", 23, "4!n3!n12!n"},
    {L"ST", 25, "8!n11!n2!n"},
    {L"SV", 28, "4!a20!n"},
    {L"TL", 23, "3!n14!n2!n"},
    {L"TN", 24, "2!n3!n13!n2!n"},
    {L"TR", 26, "5!n1!n16!c"},
    {L"UA", 29, "6!n19!c"},
    {L"VA", 22, "3!n15!n"},
    {L"VG", 24, "4!a16!n"},
    {L"XK", 20, "4!n10!n2!n"},
    {L"YE", 30, "4!a4!n18!c"},
}};

constexpr std::size_t controls_end = 4;

constexpr IbanForm form_of(const IbanCountry& country) {
    IbanForm form{static_cast<std::uint8_t>(controls_end), 0b1100, 0b0011};
    std::uint8_t count = 0;
    for (const char sign : country.structure) {
        if (sign >= '0' && sign <= '9') {
            count = static_cast<std::uint8_t>(count * 10 + (sign - '0'));
        } else if (sign != '!') {
            const std::uint64_t positions = ((std::uint64_t{1} << count) - 1) << form.length;
            form.digits |= sign == 'n' ? positions : 0;
            form.letters |= sign == 'a' ? positions : 0;
            form.length = static_cast<std::uint8_t>(form.length + count);
            count = 0;
        }
    }
    return form;
}

constexpr auto forms = [] {
    std::array<IbanForm, registry.size()> all{};
    std::transform(registry.begin(), registry.end(), all.begin(), form_of);
    return all;
}();

constexpr bool agrees(const IbanCountry& country) {
    return form_of(country).length == country.length;
}
static_assert(std::all_of(registry.begin(), registry.end(), agrees));

constexpr std::size_t letter_count = 26;

constexpr std::size_t place_of(wchar_t first, wchar_t second) {
    return static_cast<std::size_t>(first - L'A') * letter_count +
           static_cast<std::size_t>(second - L'A');
}

// One more than the index of the country's form.
constexpr auto places = [] {
    std::array<std::uint8_t, letter_count * letter_count> all{};
    for (std::size_t i = 0; i < registry.size(); ++i) {
        all[place_of(registry[i].country[0], registry[i].country[1])] =
            static_cast<std::uint8_t>(i + 1);
    }
    return all;
}();

}  // namespace

std::span<const IbanCountry> iban_registry() noexcept {
    return registry;
}

const IbanForm* iban_form(wchar_t first, wchar_t second) noexcept {
    const bool are_letters = first >= L'A' && first <= L'Z' && second >= L'A' && second <= L'Z';
    const std::size_t place = are_letters ? places[place_of(first, second)] : 0;
    return place == 0 ? nullptr : &forms[place - 1];
}

}  // namespace kovrel
