// Members whose behaviour is not built yet: each answers failure 445.

#include "frame/clsFGen.h"
#include "runtime/failure.h"

namespace kovrel {

void clsFGen::BarraProgresoInicia(std::wstring /*strCaption*/, std::wstring /*strMensaje*/,
                                  bool /*boBotones*/, std::int32_t /*lgAltoMensaje*/,
                                  std::int32_t /*lgAnchoFrm*/, std::int32_t /*lgTopFrm*/,
                                  std::int32_t /*lgLeftFrm*/, std::int32_t /*lgForeColor*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsFGen::BarraProgresoFinaliza() {
    throw Failure(FailureNumber::action_not_supported);
}

void clsFGen::BarraProgresoActualiza(const std::int32_t& /*Porcentaje*/,
                                     const std::wstring& /*strMensaje*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void clsFGen::BarraProgreso(const ComPtr<IDispatch>& /*Picture*/,
                            const std::int32_t& /*Porcentaje*/) {
    throw Failure(FailureNumber::action_not_supported);
}

bool clsFGen::BarraProgresoCancelada() {
    throw Failure(FailureNumber::action_not_supported);
}

}  // namespace kovrel
