#include "taxid/frmNIFCCC.h"

#include <utility>

#include "frame/application.h"
#include "frame/guarded.h"
#include "taxid/verifier_notices.h"
#include "ui/clipboard.h"

namespace kovrel {
namespace {

// The design, in twips.
constexpr double inner_width = 6900;
constexpr double inner_height = 4440;
constexpr double margin = 180;
constexpr double heading_height = 990;
constexpr double frame_width = inner_width - 2 * margin;
constexpr double frame_height = 1050;
constexpr double first_frame = heading_height + margin;
constexpr double second_frame = first_frame + frame_height + margin;
constexpr double label_left = 2 * margin;
constexpr double label_width = 1590;
constexpr double field_left_edge = label_left + label_width;
constexpr double field_height = 330;
constexpr double mark_size = 300;
constexpr double mark_left = field_left_edge + 2490 + 120;
constexpr double button_width = 1260;
constexpr double button_height = 390;
constexpr double button_left = inner_width - 2 * margin - button_width;
constexpr double row_top = 450;  // of the field in its frame
constexpr double heading_picture = 480;

constexpr int tax_id_selection = 10;
constexpr int account_selection = 23;

Mask tax_id_mask() {
    return {Mask::Accepts::letters_and_digits, {9}};
}
/// Bank, branch, check digits and account.
Mask account_mask() {
    return {Mask::Accepts::digits, {4, 4, 2, 10}};
}

Place beside_field(double frame_top, double left, double width, double height) {
    return {left, frame_top + row_top + (field_height - height) / 2, width, height};
}

}  // namespace

frmNIFCCC::frmNIFCCC()
    : Window({window_class, L"Verificador de NIF y cuenta bancaria", WS_CAPTION | WS_SYSMENU,
              inner_width, inner_height}) {}

std::shared_ptr<frmNIFCCC> frmNIFCCC::shared() {
    static std::weak_ptr<frmNIFCCC> instance;
    auto window = instance.lock();
    if (!window) {
        window = std::make_shared<frmNIFCCC>();
        instance = window;
    }
    return window;
}

void frmNIFCCC::create_controls() {
    HWND const picture =
        add({picture_box_class, L"", 0, Picture1, {0, 0, inner_width, heading_height}});
    add({L"STATIC",
         L"Verificador de NIF y cuenta bancaria",
         SS_NOPREFIX,
         Label,
         {990, 150, inner_width - 990 - margin, 270}},
        picture);
    add({L"STATIC",
         L"Escriba un dato y pulse Tab: se comprueba y, si hace falta, se corrige.",
         SS_NOPREFIX,
         lbl_mensaje,
         {990, 450, inner_width - 990 - margin, 450}},
        picture);

    constexpr DWORD edit = WS_TABSTOP | ES_AUTOHSCROLL;
    constexpr DWORD button = WS_TABSTOP | BS_PUSHBUTTON;
    const auto add_row = [&](double top, int label, const wchar_t* caption, int masked,
                             double width) {
        add({L"STATIC", caption, SS_CENTERIMAGE, label,
             beside_field(top, label_left, label_width, field_height)});
        return add({L"EDIT", L"", edit, masked,
                    beside_field(top, field_left_edge, width, field_height), WS_EX_CLIENTEDGE});
    };
    const auto add_mark = [&](double top, int id, const wchar_t* text) {
        add({picture_box_class, text, 0, id, beside_field(top, mark_left, mark_size, mark_size)});
        ShowWindow(control(id), SW_HIDE);
        set_tooltip(id, text);
    };
    const auto add_frame = [&](double top, int id, const wchar_t* caption) {
        // Below the controls that it encloses, and above the window's own background, which it
        // does not paint.
        add({L"BUTTON",
             caption,
             BS_GROUPBOX,
             id,
             {margin, top, frame_width, frame_height},
             WS_EX_TRANSPARENT});
    };

    tax_id_ = std::make_unique<MaskedEdit>(
        add_row(first_frame, lbl_nif, L"&NIF, NIE o CIF:", MkNIF, 1350), tax_id_mask());
    add_mark(first_frame, img_nifok, L"NIF aceptado");
    add_mark(first_frame, img_nifno, L"NIF no aceptado");
    add({L"BUTTON", L"&Copiar NIF", button, cmd_copiaNIF,
         beside_field(first_frame, button_left, button_width, button_height)});
    add_frame(first_frame, frameNIF, L"Identificación fiscal");

    account_ = std::make_unique<MaskedEdit>(
        add_row(second_frame, lbl_ccc, L"C&uenta (20 dígitos):", MkCCC, 2490), account_mask());
    add_mark(second_frame, img_cccok, L"Cuenta aceptada");
    add_mark(second_frame, img_cccno, L"Cuenta no aceptada");
    add({L"BUTTON", L"C&opiar cuenta", button, cmd_copiaCCC,
         beside_field(second_frame, button_left, button_width, button_height)});
    add_frame(second_frame, frameCCC, L"Código de Cuenta Bancaria");

    add({L"BUTTON",
         L"C&errar",
         button,
         cmdOK,
         {inner_width - margin - button_width, inner_height - margin - button_height, button_width,
          button_height}});
}

void frmNIFCCC::apply_scale() {
    accepted_ = draw_sign(Sign::accepted, scale().pixels(mark_size));
    refused_ = draw_sign(Sign::rejected, scale().pixels(mark_size));
    heading_ = draw_sign(Sign::papers, scale().pixels(heading_picture));
    LOGFONTW bold = system_font(scale().dots_per_inch());
    bold.lfWeight = FW_BOLD;
    heading_font_ = make_font(bold);
    SendMessageW(control(Label), WM_SETFONT, reinterpret_cast<WPARAM>(heading_font_.get()), TRUE);
    InvalidateRect(handle(), nullptr, TRUE);
}

void frmNIFCCC::form_load() {
    guarded({L") en procedimiento Form_Load del Formulario frmNIFCCC."}, [&] {
        account_->set_text(L"");
        tax_id_->set_text(L"");
        general()->set_AppOrigen(caption());
    });
}

std::shared_ptr<clsFGen> frmNIFCCC::general() {
    if (!general_) general_ = std::make_shared<clsFGen>();
    return general_;
}

MaskedEdit* frmNIFCCC::field(int id) const noexcept {
    if (id == MkNIF) return tax_id_.get();
    return id == MkCCC ? account_.get() : nullptr;
}

void frmNIFCCC::paint_picture_box(int id, HDC context, const RECT& bounds) {
    const bool is_heading = id == Picture1;
    FillRect(context, &bounds, GetSysColorBrush(is_heading ? COLOR_WINDOW : COLOR_BTNFACE));
    if (is_heading) {
        const int size = scale().pixels(heading_picture);
        DrawIconEx(context, scale().pixels(margin) * 3 / 2, (bounds.bottom - size) / 2,
                   heading_.get(), size, size, 0, nullptr, DI_NORMAL);
        RECT line = bounds;
        line.top = line.bottom - 1;
        FillRect(context, &line, GetSysColorBrush(COLOR_BTNSHADOW));
    } else {
        const bool is_accepted = id == img_nifok || id == img_cccok;
        DrawIconEx(context, 0, 0, is_accepted ? accepted_.get() : refused_.get(), bounds.right,
                   bounds.bottom, 0, nullptr, DI_NORMAL);
    }
}

HBRUSH frmNIFCCC::background_of(HWND window, HDC context) {
    if (window != control(Label) && window != control(lbl_mensaje)) return nullptr;
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(context, GetSysColor(COLOR_WINDOW));
    return GetSysColorBrush(COLOR_WINDOW);
}

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
    SetFocus(control(id));
    returning_ = false;
}

void frmNIFCCC::focus_moved(HWND from, HWND to) {
    if (returning_ || to == nullptr || !IsChild(handle(), to)) return;
    const int id = GetDlgCtrlID(from);
    const MaskedEdit* const left = field(id);
    if (left == nullptr) return;
    // A click on the button that closes the window is not held up by a field half filled in.
    const bool closes = to == control(cmdOK) && GetKeyState(VK_LBUTTON) < 0;
    if (closes && !left->text().empty() && !left->complete()) return;
    left_field_ = id;
    PostMessageW(handle(), field_left, static_cast<WPARAM>(id), 0);
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

void frmNIFCCC::next_field() {
    if (HWND const next = GetNextDlgTabItem(handle(), GetFocus(), FALSE)) SetFocus(next);
}

void frmNIFCCC::clicked(int id) {
    switch (id) {
        case cmdOK:
            unload();
            break;
        case IDOK:
            // The Enter key in a field.
            next_field();
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

void frmNIFCCC::form_unload() {
    tax_id_.reset();
    account_.reset();
    general_.reset();
    last_tax_id_.clear();
    last_account_.clear();
    left_field_ = 0;
}

}  // namespace kovrel
