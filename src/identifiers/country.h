// Countries by their codes of two letters.
#pragma once

namespace kovrel {

/// Whether ISO 3166-1 has the code (alpha-2, with the 249 codes in force since 2011), or it is XK,
/// which the banks' own registries use for Kosovo.
[[nodiscard]] bool is_country(wchar_t first, wchar_t second) noexcept;

/// Whether the country belongs to the single euro payments area (SEPA), by the European Payments
/// Council's list EPC409-09 as of 2025: 41 countries, and Gibraltar, which has a code of its own.
[[nodiscard]] bool is_sepa_country(wchar_t first, wchar_t second) noexcept;

}  // namespace kovrel
