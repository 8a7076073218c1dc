#include "numbers/rounding.h"

#include "runtime/number_format.h"

namespace kovrel {

std::wstring round_to_two(double amount, const RegionalSettings& settings) {
    return format_number(amount, patterns::two_decimals, settings.decimal_separator);
}

std::wstring round_to_four(double amount, const RegionalSettings& settings) {
    return format_number(amount, patterns::four_decimals, settings.decimal_separator);
}

Notice rounding_needs_a_number() {
    return {L"Error en la función de redondeo: el dato no es numérico", NoticeStyle::critical, {}};
}

}  // namespace kovrel
