// clsFGen: the window that verifies tax ids and bank account codes.
#include "identifiers/typed_account.h"
#include "library/clsFGen.h"
#include "services/guarded.h"
#include "taxid/frmNIFCCC.h"

namespace kovrel {
namespace {

/// The public members, so that the window tells the user what they tell.
class PublicChecks final : public VerifierChecks {
 public:
    void set_title(const std::wstring& title) override { general_.set_AppOrigen(title); }
    std::wstring verified_tax_id(const std::wstring& text) override {
        return general_.Verifica_NIF(text, true);
    }
    std::wstring tax_id_kind(const std::wstring& letter) override {
        return general_.DescripNIFCIF(letter);
    }
    bool is_right_account(const std::wstring& text) override {
        return general_.Verifica_CC(text, false, true);
    }
    std::optional<std::wstring> account_in(std::wstring_view text) override {
        return typed_account(text);
    }
    bool is_half_filled(const ComPtr<IDispatch>& field) override {
        return general_.LongitudExacta(field, true, 0);
    }

 private:
    clsFGen general_;
};

}  // namespace

Variant clsFGen::LanzaVerificadorNIFyCCC() {
    return guarded<Variant>(
        {L") en procedimiento LanzaVerificadorNIFyCCC del Módulo de clase clsFGen."},
        [&](Variant& /*result*/) {
            const auto window = frmNIFCCC::shared([]() -> std::shared_ptr<VerifierChecks> {
                return std::make_shared<PublicChecks>();
            });
            window->set_caption(name_);
            window->show_modal();
        });
}

}  // namespace kovrel
