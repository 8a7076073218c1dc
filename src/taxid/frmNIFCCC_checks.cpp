// The verifier's procedures: checking, marking and copying a field.
#include <utility>

#include "services/guarded.h"
#include "services/message_box.h"
#include "taxid/frmNIFCCC.h"
#include "taxid/verifier_notices.h"
#include "ui/controls.h"

namespace kovrel {

void frmNIFCCC::show_image(int id, bool wanted) {
    HWND const image = control(id);
    const bool shown = (GetWindowLongW(image, GWL_STYLE) & WS_VISIBLE) != 0;
    if (shown != wanted) ShowWindow(image, wanted ? SW_SHOWNA : SW_HIDE);
}

void frmNIFCCC::show_marks(const Field& field, bool accepted, bool refused) {
    show_image(field.accepted, accepted);
    show_image(field.refused, refused);
}

void frmNIFCCC::put_focus_back(const Field& field) {
    // The focus is set by the library here: the other field has not been left by the user.
    returning_ = true;
    focus_on(field.id);
    returning_ = false;
}

void frmNIFCCC::focus_moved(HWND from, HWND to) {
    if (returning_ || to == nullptr || !IsChild(handle(), to)) return;
    const Field* const left = field(GetDlgCtrlID(from));
    if (left == nullptr) return;
    left_field_ = left;
    // A box shown while the mouse holds a button down would cancel the click. The button's click
    // checks the field instead.
    if (to != pressed_button()) check_later();
}

void frmNIFCCC::press_ended() {
    if (left_field_ != nullptr) check_later();
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

/// False when the focus has been put back or the window is gone.
bool frmNIFCCC::check_left_field() {
    const Field* const left = std::exchange(left_field_, nullptr);
    return left == nullptr || leave(*left);
}

bool frmNIFCCC::leave(const Field& field) {
    if (validate(field) || !loaded()) return false;
    bool wrong = false;
    guarded({field.lost_focus}, [&] {
        wrong = checks()->is_half_filled(field.edit->automation_object(field.name));
        if (wrong && loaded()) put_focus_back(field);
    });
    return !wrong;
}

/// True when the focus has been put back into the field.
bool frmNIFCCC::validate(const Field& field) {
    return guarded<bool>({field.validate}, [&](bool& stays) {
        if (field.id == MkNIF) set_tooltip(MkNIF, L"");
        const std::wstring text = field.edit->text();
        if (field.edit->complete()) {
            (this->*field.verify)(text);
            return;
        }
        show_marks(field, false, false);
        if (text.empty()) return;
        put_focus_back(field);
        stays = true;
    });
}

void frmNIFCCC::verify_tax_id(const std::wstring& text) {
    const auto checks = this->checks();
    const std::wstring verified = checks->verified_tax_id(text);
    if (!loaded()) return;
    tax_id_.edit->set_text(verified);
    nif_ok_no(true);
    set_tooltip(MkNIF, checks->tax_id_kind(tax_id_.edit->text().substr(0, 1)));
}

void frmNIFCCC::verify_account(const std::wstring& text) {
    const bool right = checks()->is_right_account(text);
    if (loaded()) ccc_ok_no(right);
}

void frmNIFCCC::notified(int id, UINT code) {
    Field* const changed = code == EN_CHANGE ? field(id) : nullptr;
    if (changed == nullptr) return;
    // Regrouping changes the text shown, not the field's value.
    std::wstring text = changed->edit->text();
    if (text == changed->last) return;
    changed->last = std::move(text);
    guarded({changed->change}, [&] { (this->*changed->ok_no)(false); });
}

void frmNIFCCC::copy(const Field& field) {
    if (!check_left_field()) return;
    guarded({field.copy_click}, [&] {
        const bool is_empty = field.edit->text().empty();
        if (is_empty) show(field.nothing_to_copy());
        put_focus_back(field);
        if (!is_empty) put_on_clipboard(handle(), field.edit->select(field.selection));
    });
}

/// Checks a complete field that was left first; an incomplete one does not keep the window open.
void frmNIFCCC::close() {
    if (left_field_ != nullptr && left_field_->edit->complete()) check_left_field();
    unload();
}

void frmNIFCCC::clicked(int id) {
    if (id == cmdOK) close();
    if (id == cmd_copiaNIF) copy(tax_id_);
    if (id == cmd_copiaCCC) copy(account_);
}

}  // namespace kovrel
