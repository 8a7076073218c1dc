// clsMensajes: long texts in a window.
#include <memory>

#include "library/clsMensajes.h"
#include "messages/frmDialogo.h"
#include "services/guarded.h"
#include "services/modal.h"

namespace kovrel {

void clsMensajes::MsgFormA(const std::wstring& strCaption, const std::wstring& strMensaje,
                           const bool& BoFuenteTT) {
    guarded({L") en procedimiento MsgFormA del Módulo de clase clsMensajes."}, [&] {
        const auto dialog = std::make_shared<frmDialogo>();
        dialog->Titulo = strCaption;
        dialog->Mensaje = strMensaje;
        dialog->Abierto = true;
        dialog->FuenteTT = BoFuenteTT;
        dialog->show_modal();
        while (dialog->Abierto) pump_events();
    });
}

}  // namespace kovrel
