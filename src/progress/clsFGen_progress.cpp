// clsFGen: the progress of a long operation, in a window of the library or on a host's picture.
#include "frame/clsFGen.h"
#include "frame/guarded.h"
#include "progress/frmBarraProgreso.h"
#include "progress/progress_label.h"

namespace kovrel {

/// Nobody could close the windows of an instance that is gone.
clsFGen::~clsFGen() {
    for (const auto& opened : progress_windows_) {
        if (const auto window = opened.lock()) window->unload();
    }
}

void clsFGen::BarraProgresoInicia(std::wstring strCaption, std::wstring strMensaje, bool boBotones,
                                  std::int32_t lgAltoMensaje, std::int32_t lgAnchoFrm,
                                  std::int32_t lgTopFrm, std::int32_t lgLeftFrm,
                                  std::int32_t lgForeColor) {
    guarded({L") en procedimiento BarraProgresoInicia del Módulo de clase clsFGen."}, [&] {
        const auto window = std::make_shared<frmBarraProgreso>();
        progress_window_ = window;
        std::erase_if(progress_windows_, [](const auto& opened) { return opened.expired(); });
        progress_windows_.emplace_back(window);
        window->strCaption = std::move(strCaption);
        window->strMensaje = std::move(strMensaje);
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
        // After a cancel the host learns of it from BarraProgresoCancelada; until it has asked, its
        // updates go nowhere.
        if (!window->loaded()) return;
        window->take_focus();
        window->set_message(strMensaje);
        BarraProgreso(window->bar(), Porcentaje);
        window->catch_up();
    });
}

void clsFGen::BarraProgreso(const ComPtr<IDispatch>& Picture, const std::int32_t& Porcentaje) {
    guarded({L") en procedimiento BarraProgreso del Módulo de clase clsFGen."}, [&] {
        constexpr std::int16_t width = 100;  // one unit for each per cent
        constexpr std::int16_t filled_box = PictureSurface::box | PictureSurface::filled;
        const HostObject picture(Picture);
        if (!picture.get(L"AutoRedraw").to_bool()) picture.put(L"AutoRedraw", Variant(true));
        picture.call(L"Cls");
        picture.put(L"ScaleWidth", Variant(width));
        picture.put(L"DrawMode", Variant(PictureSurface::not_xor_pen));
        const Variant label(progress_label(Porcentaje));
        const double left = 50 - picture.get(L"TextWidth", {label}).to_double() / 2;
        picture.put(L"CurrentX", Variant(static_cast<float>(left)));
        const double height = picture.get(L"ScaleHeight").to_double();
        const double top = (height - picture.get(L"TextHeight", {label}).to_double()) / 2;
        picture.put(L"CurrentY", Variant(static_cast<float>(top)));
        picture.call(L"Print", {label});
        const double bottom = picture.get(L"ScaleHeight").to_double();
        picture.call(L"Line", {Variant(filled_box), Variant(0.0F), Variant(0.0F),
                               Variant(static_cast<float>(Porcentaje)),
                               Variant(static_cast<float>(bottom)), Variant(std::int32_t{0})});
        picture.call(L"Refresh");
    });
}

bool clsFGen::BarraProgresoCancelada() {
    return progress_window_ != nullptr && progress_window_->canceled();
}

}  // namespace kovrel
