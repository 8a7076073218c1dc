// Members whose behaviour is not built yet: each answers failure 445.

#include "dates/clsFFechas.h"
#include "files/cgsFileOpR.h"
#include "frame/clsFGen.h"
#include "messages/clsMensajes.h"
#include "numbers/clsCSQL.h"
#include "runtime/failure.h"
#include "zip/clsFZip.h"

namespace kovrel {

Date clsFFechas::PideFecha(const std::wstring& /*strMensaje*/, const std::wstring& /*strCaption*/,
                           Date& /*DtFechaDefecto*/) {
    throw Failure(FailureNumber::action_not_supported);
}

bool cgsFileOpR::ShowOpen(Variant /*vFileName*/, Variant /*vTitle*/, Variant /*vFilter*/,
                          const Variant& /*vFlags*/, Variant /*vhWnd*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void cgsFileOpR::set_Action(const std::int16_t& /*value*/) {
    throw Failure(FailureNumber::action_not_supported);
}

void cgsFileOpR::set_Filter(std::wstring /*value*/) {
    throw Failure(FailureNumber::action_not_supported);
}

std::wstring clsFZip::GenerarZip(const std::wstring& /*strNombreFicheroZip*/,
                                 const std::wstring& /*strRutaSalida*/,
                                 const ZIPnames& /*NombresFicheros1*/) {
    throw Failure(FailureNumber::action_not_supported);
}

Variant clsFGen::LanzaVerificadorNIFyCCC() {
    throw Failure(FailureNumber::action_not_supported);
}

}  // namespace kovrel
