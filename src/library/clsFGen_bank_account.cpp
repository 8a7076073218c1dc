// clsFGen: bank account codes, and what the letters of tax identifiers stand for.
#include "library/clsFGen.h"
#include "services/guarded.h"
#include "services/message_box.h"
#include "services/system_regional.h"
#include "taxid/bank_account.h"
#include "taxid/tax_id_kind.h"

namespace kovrel {

bool clsFGen::Verifica_CC(const std::wstring& CCC, const bool& BoRequerido, const bool& BoMsj) {
    return guarded<bool>(
        {L") en procedimiento Verifica_CC del Módulo de clase clsFGen."}, [&](bool& accepted) {
            if (CCC.empty()) {
                accepted = !BoRequerido;
                if (BoRequerido && BoMsj) messages().call(L"MsjDatoNoVacio", {Variant(L"")});
                return;
            }
            const std::wstring right = DC(std::wstring(bank_of(CCC)), std::wstring(branch_of(CCC)),
                                          std::wstring(account_of(CCC)));
            const auto notice = bank_account_notice(CCC, right, BoMsj);
            if (notice) show(*notice);
            accepted = !notice;
        });
}

std::wstring clsFGen::DC(const std::wstring& banco, const std::wstring& sucursal,
                         const std::wstring& cuenta) {
    return guarded<std::wstring>(
        {L") en procedimiento DC del Módulo FGen."},
        [&](std::wstring& result) { result = control_digits(banco, sucursal, cuenta); });
}

std::wstring clsFGen::Banco_CC(const std::wstring& CCC) {
    return guarded<std::wstring>({L") en procedimiento Banco_CC del Módulo de clase clsFGen."},
                                 [&](std::wstring& result) { result = bank_of(CCC); });
}

std::wstring clsFGen::Sucursal_CC(const std::wstring& CCC) {
    return guarded<std::wstring>({L") en procedimiento Sucursal_CC del Módulo de clase clsFGen."},
                                 [&](std::wstring& result) { result = branch_of(CCC); });
}

std::wstring clsFGen::DC_CC(const std::wstring& CCC) {
    return guarded<std::wstring>({L") en procedimiento DC_CC del Módulo de clase clsFGen."},
                                 [&](std::wstring& result) { result = control_digits_of(CCC); });
}

std::wstring clsFGen::Cuenta_CC(const std::wstring& CCC) {
    return guarded<std::wstring>({L") en procedimiento Cuenta_CC del Módulo de clase clsFGen."},
                                 [&](std::wstring& result) { result = account_of(CCC); });
}

std::wstring clsFGen::DescripNIFCIF(std::wstring_view strLetra) {
    return guarded<std::wstring>(
        {L") en procedimiento DescripNIFCIF del Módulo de clase clsFGen."},
        [&](std::wstring& result) { result = tax_id_kind(strLetra, SystemRegional()); });
}

}  // namespace kovrel
