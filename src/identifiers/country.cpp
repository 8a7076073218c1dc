#include "identifiers/country.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kovrel {
namespace {

/// The second letters, as bits, that follow each first letter.
using Codes = std::array<std::uint32_t, 26>;

constexpr Codes codes_of(std::wstring_view list) {
    Codes codes{};
    for (std::size_t i = 0; i < list.size(); i += 2) {
        codes[static_cast<std::size_t>(list[i] - L'A')] |= 1U << (list[i + 1] - L'A');
    }
    return codes;
}

constexpr Codes countries = codes_of(
    L"ADAEAFAGAIALAMAOAQARASATAUAWAXAZBABBBDBEBFBGBHBIBJBLBMBNBOBQBRBSBTBVBWBYBZCACCCDCFCG"
    L"CHCICKCLCMCNCOCRCUCVCWCXCYCZDEDJDKDMDODZECEEEGEHERESETFIFJFKFMFOFRGAGBGDGEGFGGGHGIGL"
    L"GMGNGPGQGRGSGTGUGWGYHKHMHNHRHTHUIDIEILIMINIOIQIRISITJEJMJOJPKEKGKHKIKMKNKPKRKWKYKZLA"
    L"LBLCLILKLRLSLTLULVLYMAMCMDMEMFMGMHMKMLMMMNMOMPMQMRMSMTMUMVMWMXMYMZNANCNENFNGNINLNONP"
    L"NRNUNZOMPAPEPFPGPHPKPLPMPNPRPSPTPWPYQARERORSRURWSASBSCSDSESGSHSISJSKSLSMSNSOSRSSSTSV"
    L"SXSYSZTCTDTFTGTHTJTKTLTMTNTOTRTTTVTWTZUAUGUMUSUYUZVAVCVEVGVIVNVUWFWSXKYEYTZAZMZW");

constexpr Codes sepa_countries = codes_of(
    L"ADALATBEBGCHCYCZDEDKEEESFIFRGBGIGRHRHUIEISITLILTLULVMCMDMEMKMTNLNOPLPTRORSSESISKSMVA");

bool has(const Codes& codes, wchar_t first, wchar_t second) noexcept {
    const bool are_letters = first >= L'A' && first <= L'Z' && second >= L'A' && second <= L'Z';
    return are_letters &&
           (codes[static_cast<std::size_t>(first - L'A')] >> (second - L'A') & 1U) != 0;
}

}  // namespace

bool is_country(wchar_t first, wchar_t second) noexcept {
    return has(countries, first, second);
}

bool is_sepa_country(wchar_t first, wchar_t second) noexcept {
    return has(sepa_countries, first, second);
}

}  // namespace kovrel
