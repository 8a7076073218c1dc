// clsFFechas: the date prompt.
#include "dates/frmFECHA1.h"
#include "library/clsFFechas.h"
#include "runtime/owned.h"
#include "services/clock.h"
#include "services/guarded.h"
#include "services/modal.h"

namespace kovrel {
namespace {

/// A failed call leaves no hidden window behind. A visible one belongs to another call.
void unload_hidden(frmFECHA1* window) noexcept {
    if (!window->visible()) window->unload();
}

}  // namespace

Date clsFFechas::PideFecha(const std::wstring& strMensaje, const std::wstring& strCaption,
                           Date& DtFechaDefecto) {
    return guarded<Date>({L") en procedimiento PideFecha del Módulo de clase clsFFechas."},
                         [&](Date& result) {
                             const Date given = DtFechaDefecto;
                             if (DtFechaDefecto == Date{})
                                 DtFechaDefecto = Date{static_cast<double>(today())};
                             const auto window = frmFECHA1::shared();
                             const Owned<frmFECHA1*, &unload_hidden> prompt(window.get());
                             prompt->set_value(DtFechaDefecto);
                             prompt->set_message(strMensaje);
                             prompt->set_caption(strCaption);
                             prompt->when_not_shown = given;
                             prompt->show_modal();
                             while (!prompt->answered()) pump_events();
                             result = prompt->chosen;
                         });
}

}  // namespace kovrel
