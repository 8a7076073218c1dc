// The countries whose accounts have an IBAN.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kovrel {

/// A country's line of the registry. The structure is that of what follows country and controls, as
/// the registry writes it: "4!n" are 4 digits, "4!a" 4 capitals, "4!c" 4 digits or letters.
struct IbanCountry {
    std::wstring_view country;
    std::uint8_t length;  ///< of the whole IBAN
    std::string_view structure;
};

/// The whole registry, sorted by country: the IBAN Registry that SWIFT keeps for ISO 13616,
/// Release 99, December 2024.
[[nodiscard]] std::span<const IbanCountry> iban_registry() noexcept;

/// Where an IBAN of a country must have digits and capitals: bit 0 is its first character.
struct IbanForm {
    std::uint8_t length = 0;
    std::uint64_t digits = 0;
    std::uint64_t letters = 0;
};

/// The form of a country's IBANs; nothing (null) for one that is not in the registry.
[[nodiscard]] const IbanForm* iban_form(wchar_t first, wchar_t second) noexcept;

}  // namespace kovrel
