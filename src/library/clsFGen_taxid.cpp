// clsFGen: tax identifiers.
#include "library/clsFGen.h"
#include "runtime/text.h"
#include "services/guarded.h"
#include "services/message_box.h"
#include "services/system_regional.h"
#include "taxid/tax_id.h"

namespace kovrel {

std::wstring clsFGen::Verifica_NIF(std::wstring_view Nif, const bool& Mensajes) {
    return guarded<std::wstring>({L") en procedimiento Verifica_NIF del Módulo de clase clsFGen."},
                                 [&](std::wstring& result) {
                                     const SystemRegional regional;
                                     std::wstring working = regional.capitals(Nif);
                                     QuitaCaracteresyEspacios(working);
                                     TaxIdVerdict verdict = verify_normalized_tax_id(
                                         std::move(working), Nif.size(), regional);
                                     if (verdict.fault && Mensajes) show(verdict.fault->notice());
                                     result = std::move(verdict.result);
                                 });
}

std::wstring clsFGen::LetraNIF(const std::int32_t& DNI) {
    return guarded<std::wstring>({L") en procedimiento LetraNIF del Módulo de clase clsFGen."},
                                 [&](std::wstring& result) { result = nif_letter(DNI); });
}

void clsFGen::QuitaCaracteresyEspacios(std::wstring& strCifNif) {
    guarded({L") en procedimiento QuitaCaracteresyEspacios del Módulo de clase clsFGen."},
            [&] { strCifNif = strip_separators(strCifNif); });
}

}  // namespace kovrel
