// clsFGen: the progress of a long operation, in a window of the library or on a host's picture.
#include "library/clsFGen.h"
#include "progress/frmBarraProgreso.h"
#include "progress/progress_bar.h"
#include "services/guarded.h"

namespace kovrel {

/// Closes the instance's windows: nobody else could.
clsFGen::~clsFGen() {
    for (const auto& opened : progress_windows_) {
        if (const auto window = opened.lock()) window->unload();
    }
}

void clsFGen::BarraProgresoInicia(std::wstring_view strCaption, std::wstring_view strMensaje,
                                  bool boBotones, std::int32_t lgAltoMensaje,
                                  std::int32_t lgAnchoFrm, std::int32_t lgTopFrm,
                                  std::int32_t lgLeftFrm, std::int32_t lgForeColor) {
    guarded({L") en procedimiento BarraProgresoInicia del Módulo de clase clsFGen."}, [&] {
        const auto window = std::make_shared<frmBarraProgreso>();
        progress_window_ = window;
        std::erase_if(progress_windows_, [](const auto& opened) { return opened.expired(); });
        progress_windows_.emplace_back(window);
        window->strCaption = strCaption;
        window->strMensaje = strMensaje;
        window->boBotones = boBotones;
        if (lgAltoMensaje > 0) window->lgAltoMensaje = lgAltoMensaje;
        if (lgAnchoFrm > 0) window->lgAnchoFrm = lgAnchoFrm;
        window->lgTopFrm = lgTopFrm;
        window->lgLeftFrm = lgLeftFrm;
        window->lgForeColor = lgForeColor;
        window->show_modeless();
        window->catch_up();
    });
}

void clsFGen::BarraProgresoFinaliza() {
    guarded({L") en procedimiento BarraProgresoFinaliza del Módulo de clase clsFGen."}, [&] {
        const auto window = std::exchange(progress_window_, nullptr);
        if (window != nullptr) window->unload();
    });
}

void clsFGen::BarraProgresoActualiza(const std::int32_t& Porcentaje,
                                     const std::wstring& strMensaje) {
    guarded({L") en procedimiento BarraProgresoActualiza del Módulo de clase clsFGen."}, [&] {
        const auto window = progress_window_;
        if (window == nullptr) throw Failure(FailureNumber::object_not_set);
        // After a cancel updates are ignored until the host has asked BarraProgresoCancelada.
        if (!window->takes(Porcentaje, strMensaje)) return;
        window->take_focus();
        window->set_message(strMensaje);
        BarraProgreso(window->bar(), Porcentaje);
        window->percentage = Porcentaje;
        window->catch_up();
    });
}

void clsFGen::BarraProgreso(const ComPtr<IDispatch>& Picture, const std::int32_t& Porcentaje) {
    guarded({L") en procedimiento BarraProgreso del Módulo de clase clsFGen."},
            [&] { draw_progress_bar(HostObject(Picture), Porcentaje); });
}

bool clsFGen::BarraProgresoCancelada() {
    return progress_window_ != nullptr && progress_window_->canceled();
}

}  // namespace kovrel
