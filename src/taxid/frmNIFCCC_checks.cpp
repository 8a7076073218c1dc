// What the verifier does: it checks a field that is left, marks it, copies it, and explains itself.
#include <utility>

#include "frame/application.h"
#include "frame/guarded.h"
#include "taxid/frmNIFCCC.h"
#include "taxid/verifier_notices.h"
#include "ui/clipboard.h"

namespace kovrel {
namespace {

constexpr int tax_id_selection = 10;
constexpr int account_selection = 23;

}  // namespace

void frmNIFCCC::show_image(int id, bool wanted) {
    HWND const image = control(id);
    const bool shown = (GetWindowLongW(image, GWL_STYLE) & WS_VISIBLE) != 0;
    if (shown != wanted) ShowWindow(image, wanted ? SW_SHOWNA : SW_HIDE);
}

void frmNIFCCC::hide_images(int accepted, int refused) {
    show_image(accepted, false);
    show_image(refused, false);
}

void frmNIFCCC::nif_ok_no(const bool& Estado) {
    show_image(img_nifok, Estado);
    show_image(img_nifno, !Estado);
}

void frmNIFCCC::ccc_ok_no(const bool& Estado) {
    show_image(img_cccok, Estado);
    show_image(img_cccno, !Estado);
}

void frmNIFCCC::put_focus_back(int id) {
    // What the field takes the focus from has not been left by the user.
    returning_ = true;
    focus_on(id);
    returning_ = false;
}

void frmNIFCCC::focus_moved(HWND from, HWND to) {
    if (returning_ || to == nullptr || !IsChild(handle(), to)) return;
    const int id = GetDlgCtrlID(from);
    const MaskedEdit* const left = field(id);
    if (left == nullptr) return;
    left_field_ = id;
    // A box while the mouse presses a button would take its click away: the click has the field
    // checked.
    if (to != pressed_button()) check_later();
}

void frmNIFCCC::press_ended() {
    if (left_field_ != 0) check_later();
}

void frmNIFCCC::check_later() const noexcept {
    PostMessageW(handle(), field_left, 0, 0);
}

void frmNIFCCC::posted(UINT message, int value) {
    if (message == field_left) {
        check_left_field();
    } else if (message == data_entry_error) {
        const bool in_tax_id = GetFocus() == control(MkNIF);
        if (const auto notice = data_entry_notice(value, in_tax_id ? L"MkNIF" : L"")) show(*notice);
    }
}

/// True when the focus may stay where it has gone.
bool frmNIFCCC::check_left_field() {
    const int id = std::exchange(left_field_, 0);
    return id == 0 || leave(id);
}

bool frmNIFCCC::leave(int id) {
    const bool stays = id == MkNIF ? validate_tax_id() : validate_account();
    if (stays || !loaded()) return false;
    bool wrong = false;
    auto check_length = [&] {
        const auto general = this->general();
        const auto face =
            field(id)->automation_object(id == MkNIF ? L"NIF" : L"Código de Cuenta Bancaria");
        wrong = general->LongitudExacta(face, true, 0);
        if (wrong && loaded()) put_focus_back(id);
    };
    if (id == MkNIF) {
        guarded({L") en procedimiento MkNIF_LostFocus del Formulario frmNIFCCC."}, check_length);
    } else {
        guarded({L") en procedimiento MkCCC_LostFocus del Formulario frmNIFCCC."}, check_length);
    }
    return !wrong;
}

/// True when the focus has been put back into the field; so for the account.
bool frmNIFCCC::validate_tax_id() {
    return guarded<bool>(
        {L") en procedimiento MkNIF_Validate del Formulario frmNIFCCC."}, [&](bool& stays) {
            set_tooltip(MkNIF, L"");
            const std::wstring text = tax_id_->text();
            if (tax_id_->complete()) {
                const auto general = this->general();
                const std::wstring verified = general->Verifica_NIF(text, true);
                if (!loaded()) return;
                tax_id_->set_text(verified);
                nif_ok_no(true);
                set_tooltip(MkNIF, general->DescripNIFCIF(tax_id_->text().substr(0, 1)));
                return;
            }
            hide_images(img_nifok, img_nifno);
            if (text.empty()) return;
            put_focus_back(MkNIF);
            stays = true;
        });
}

bool frmNIFCCC::validate_account() {
    return guarded<bool>({L") en procedimiento MkCCC_Validate del Formulario frmNIFCCC."},
                         [&](bool& stays) {
                             const std::wstring text = account_->text();
                             if (account_->complete()) {
                                 const auto general = this->general();
                                 const bool right = general->Verifica_CC(text, false, true);
                                 if (loaded()) ccc_ok_no(right);
                                 return;
                             }
                             hide_images(img_cccok, img_cccno);
                             if (text.empty()) return;
                             put_focus_back(MkCCC);
                             stays = true;
                         });
}

void frmNIFCCC::notified(int id, UINT code) {
    if (code != EN_CHANGE) return;
    const MaskedEdit* const changed = field(id);
    if (changed == nullptr) return;
    // Grouping the characters anew changes what is shown, not what the field holds.
    std::wstring& last = id == MkNIF ? last_tax_id_ : last_account_;
    std::wstring text = changed->text();
    if (text == last) return;
    last = std::move(text);
    if (id == MkNIF) {
        tax_id_changed();
    } else {
        account_changed();
    }
}

void frmNIFCCC::tax_id_changed() {
    guarded({L") en procedimiento MkNIF_Change del Formulario frmNIFCCC."},
            [&] { nif_ok_no(false); });
}

void frmNIFCCC::account_changed() {
    guarded({L") en procedimiento MkCCC_Change del Formulario frmPAGADORES."},
            [&] { ccc_ok_no(false); });
}

void frmNIFCCC::copy(int id) {
    MaskedEdit& copied = *field(id);
    if (copied.text().empty()) {
        show(id == MkNIF ? tax_id_to_copy_missing() : account_to_copy_missing());
        put_focus_back(id);
        return;
    }
    put_focus_back(id);
    put_on_clipboard(handle(), copied.select(id == MkNIF ? tax_id_selection : account_selection));
}

/// A value that is still to be checked is checked first; a field half filled in is left as it is.
void frmNIFCCC::close() {
    const MaskedEdit* const left = field(left_field_);
    if (left != nullptr && left->complete()) check_left_field();
    unload();
}

void frmNIFCCC::clicked(int id) {
    switch (id) {
        case cmdOK:
            close();
            break;
        case cmd_copiaNIF:
            if (!check_left_field()) break;
            guarded({L") en procedimiento cmd_copiaNIF_Click del Formulario frmNIFCCC."},
                    [&] { copy(MkNIF); });
            break;
        case cmd_copiaCCC:
            if (!check_left_field()) break;
            guarded({L") en procedimiento cmd_copiaCCC_Click del Formulario frmNIFCCC."},
                    [&] { copy(MkCCC); });
            break;
        default:
            break;
    }
}

}  // namespace kovrel
