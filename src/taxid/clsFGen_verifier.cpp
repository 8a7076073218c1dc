// clsFGen: the window that verifies tax ids and bank account codes.
#include "frame/clsFGen.h"
#include "frame/guarded.h"
#include "taxid/frmNIFCCC.h"

namespace kovrel {

Variant clsFGen::LanzaVerificadorNIFyCCC() {
    return guarded<Variant>(
        {L") en procedimiento LanzaVerificadorNIFyCCC del Módulo de clase clsFGen."},
        [&](Variant& /*result*/) {
            const auto window = frmNIFCCC::shared();
            window->set_caption(name_);
            window->show_modal();
        });
}

}  // namespace kovrel
