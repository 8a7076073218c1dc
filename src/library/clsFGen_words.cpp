// clsFGen: amounts in Spanish words.
#include "library/clsFGen.h"
#include "numbers/words.h"
#include "services/guarded.h"
#include "services/system_regional.h"

namespace kovrel {
namespace {

constexpr Handler words_handler{
    L") en procedimiento ConvNumeroALetra del Módulo de clase clsFGen."};

/// Each step shows its own failure, and its caller continues with an empty piece.
void tell(const Failure& failure) {
    show_failure(failure, words_handler);
}

}  // namespace

std::wstring clsFGen::ConvNumeroALetra(Variant Numero, const std::wstring& TipoCambioSingular,
                                       const std::wstring& TipoCambioPlural,
                                       const std::wstring& subTipoCambioSingular,
                                       const std::wstring& subTipoCambioPlural,
                                       const std::int32_t& xInternal) {
    return guarded<std::wstring>(words_handler, [&](std::wstring& result) {
        const SystemRegional regional;
        const WordsContext context{regional, &tell};
        const std::wstring text = Numero.to_text();
        const UnitNames unit{TipoCambioSingular, TipoCambioPlural};
        if (xInternal == 0) {
            const UnitNames subunit{subTipoCambioSingular, subTipoCambioPlural};
            result = text_in_words(text, unit, subunit, context);
        } else if (xInternal == 1) {
            result = number_in_words(text, unit, context);
        } else {
            result = group_in_words(text, unit, context);
        }
    });
}

std::wstring clsFGen::ConvEurosALetra(const double& dblNumero) {
    return guarded<std::wstring>(
        {L") en procedimiento ConvEurosALetra del Módulo de clase clsFGen."},
        [&](std::wstring& result) {
            const SystemRegional regional;
            result = euros_in_words(dblNumero, {regional, &tell});
        });
}

}  // namespace kovrel
