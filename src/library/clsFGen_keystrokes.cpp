// clsFGen: filters for single keystrokes and the province of a postal code.
#include "library/clsFGen.h"
#include "services/guarded.h"
#include "services/message_box.h"
#include "services/system_regional.h"
#include "services/text_encoding.h"
#include "validation/keystroke.h"
#include "validation/province.h"

namespace kovrel {
namespace {

constexpr AnsiCodePage system_code_page{
    .character =
        [](std::uint8_t code) {
            const char byte = static_cast<char>(code);
            const std::wstring text = from_ansi({&byte, 1});
            return text.empty() ? L'\0' : text.front();
        },
    .code = [](wchar_t character) -> std::optional<std::uint8_t> {
        const std::string bytes = to_ansi({&character, 1});
        if (bytes.size() != 1 || from_ansi(bytes) != std::wstring_view(&character, 1)) {
            return std::nullopt;
        }
        return static_cast<std::uint8_t>(bytes.front());
    },
};

/// The key goes to the caller's variable, the result back to the caller.
void accept(const FilteredKey& filtered, std::int16_t& key, std::int16_t& result) {
    key = filtered.key;
    result = filtered.result;
}

}  // namespace

std::int16_t clsFGen::Solo_Numero(std::int16_t& pulsa, const bool& SoloPositivos,
                                  const bool& boPuntoAComa) {
    return guarded<std::int16_t>(
        {L") en procedimiento Solo_Numero del Módulo FGen."}, [&](std::int16_t& result) {
            result = pulsa;
            accept(filter_number_key(pulsa, SoloPositivos, boPuntoAComa), pulsa, result);
        });
}

std::int16_t clsFGen::Solo_Fecha(std::int16_t& pulsa) {
    return guarded<std::int16_t>({L") en procedimiento Solo_Fecha del Módulo FGen."},
                                 [&](std::int16_t& result) {
                                     result = pulsa;
                                     accept(filter_date_key(pulsa), pulsa, result);
                                 });
}

std::int16_t clsFGen::Convierte_May(std::int16_t& pulsa) {
    return guarded<std::int16_t>({L") en procedimiento Convierte_May del Módulo de clase clsFGen."},
                                 [&](std::int16_t& result) {
                                     pulsa = capital_key(pulsa, system_code_page, SystemRegional());
                                     result = pulsa;
                                 });
}

std::uint8_t clsFGen::ProvinciaDeCP(std::wstring_view CP) {
    return guarded<std::uint8_t>({L") en procedimiento ProvinciaDeCP del Módulo de clase clsFGen."},
                                 [&](std::uint8_t& result) {
                                     if (const auto notice = postal_code_notice(CP)) show(*notice);
                                     // A code that is too long goes on and overflows the result.
                                     result = province_of(CP, SystemRegional());
                                 });
}

}  // namespace kovrel
