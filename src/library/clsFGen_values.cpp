// clsFGen: values of fields, waits and rounded amounts.
#include "library/clsFGen.h"
#include "numbers/rounding.h"
#include "runtime/failure.h"
#include "services/clock.h"
#include "services/guarded.h"
#include "services/message_box.h"
#include "services/system_regional.h"

namespace kovrel {
namespace {

using Rounding = std::wstring (*)(double amount, const RegionalSettings& settings);

std::wstring rounded(const Variant& amount, Rounding rounding) {
    if (amount.is_numeric()) return rounding(amount.to_double(), SystemRegional().settings());
    show(rounding_needs_a_number());
    return {};
}

}  // namespace

Variant clsFGen::Nz(const Variant& Value, const Variant& ValueNull) {
    return guarded<Variant>(
        {L") en procedimiento Nz del Módulo de clase clsFGen."}, [&](Variant& result) {
            const bool none = Value.is_null() || Value.is_empty() || Value.is_error();
            result = none ? ValueNull : Value;
        });
}

std::int16_t clsFGen::CBolNum(const Variant& Value) {
    return guarded<std::int16_t>({L") en procedimiento CBolNum del Módulo de clase clsFGen."},
                                 [&](std::int16_t& result) {
                                     // Anything that is not numeric counts as true, words included.
                                     result = 1;
                                     if (Value.is_numeric()) {
                                         result = Value.to_int32() == 0 ? 0 : 1;
                                     } else if ((Value.vt & VT_ARRAY) != 0) {
                                         throw Failure(FailureNumber::type_mismatch);
                                     }
                                 });
}

void clsFGen::Espera(const float& Segundos) {
    guarded({L") en procedimiento Espera del Módulo de clase clsFGen."},
            [&] { wait_with_hourglass(Segundos); });
}

std::wstring clsFGen::redondeoa2(const Variant& Cantidad) {
    return guarded<std::wstring>(
        {L") en procedimiento redondeoa2 del Módulo FGen."},
        [&](std::wstring& result) { result = rounded(Cantidad, &round_to_two); });
}

std::wstring clsFGen::redondeoa4(const Variant& Cantidad) {
    return guarded<std::wstring>(
        {L") en procedimiento redondeoa4 del Módulo FGen."},
        [&](std::wstring& result) { result = rounded(Cantidad, &round_to_four); });
}

}  // namespace kovrel
