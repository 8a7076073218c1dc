// clsFFechas: the date prompt.
#include "dates/clsFFechas.h"
#include "dates/frmFECHA1.h"
#include "frame/clock.h"
#include "frame/guarded.h"
#include "ui/modal.h"

namespace kovrel {
namespace {

/// The shared prompt for one call. A call that fails leaves no hidden window behind; one that the
/// user is still looking at belongs to another call.
class Prompt {
 public:
    Prompt() : window_(frmFECHA1::shared()) {}
    Prompt(const Prompt&) = delete;
    Prompt& operator=(const Prompt&) = delete;
    ~Prompt() {
        if (!window_->visible()) window_->unload();
    }
    frmFECHA1* operator->() const noexcept { return window_.get(); }

 private:
    std::shared_ptr<frmFECHA1> window_;
};

}  // namespace

Date clsFFechas::PideFecha(const std::wstring& strMensaje, const std::wstring& strCaption,
                           Date& DtFechaDefecto) {
    return guarded<Date>({L") en procedimiento PideFecha del Módulo de clase clsFFechas."},
                         [&](Date& result) {
                             if (DtFechaDefecto == Date{})
                                 DtFechaDefecto = Date{static_cast<double>(today())};
                             const Prompt prompt;
                             prompt->set_value(DtFechaDefecto);
                             prompt->set_message(strMensaje);
                             prompt->set_caption(strCaption);
                             prompt->show_modal();
                             while (prompt->chosen == Date{}) pump_events();
                             result = prompt->chosen;
                         });
}

}  // namespace kovrel
