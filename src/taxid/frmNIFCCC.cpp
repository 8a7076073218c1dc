// The verifier's controls: creation, layout and painting.
#include "taxid/frmNIFCCC.h"

#include "services/guarded.h"
#include "taxid/verifier_notices.h"

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
constexpr double tax_id_width = 1350;
constexpr double account_width = 2490;
constexpr double mark_gap = 120;  // between a field and its mark
constexpr double button_width = 1260;
constexpr double button_height = 390;
constexpr double button_left = inner_width - 2 * margin - button_width;
constexpr double row_top = 450;  // of the field in its frame
constexpr double heading_picture = 480;
constexpr Place title_place{990, 150, inner_width - 990 - margin, 270};
constexpr Place hint_place{990, 450, inner_width - 990 - margin, 450};
constexpr Place close_place{inner_width - margin - button_width,
                            inner_height - margin - button_height, button_width, button_height};

constexpr const wchar_t* title = L"Verificador de NIF y cuenta bancaria";
constexpr const wchar_t* hint =
    L"Escriba un dato y pulse Tab: se comprueba y, si hace falta, se corrige.";

Place beside_field(double frame_top, double left, double width, double height) {
    return {left, frame_top + row_top + (field_height - height) / 2, width, height};
}

}  // namespace

frmNIFCCC::frmNIFCCC()
    : Window({window_class, title, WS_POPUP | WS_CAPTION | WS_SYSMENU, inner_width, inner_height,
              cmdOK}),
      tax_id_{MkNIF,
              img_nifok,
              img_nifno,
              10,
              L"NIF",
              &frmNIFCCC::verify_tax_id,
              &frmNIFCCC::nif_ok_no,
              &tax_id_to_copy_missing,
              L") en procedimiento MkNIF_Validate del Formulario frmNIFCCC.",
              L") en procedimiento MkNIF_LostFocus del Formulario frmNIFCCC.",
              L") en procedimiento MkNIF_Change del Formulario frmNIFCCC.",
              L") en procedimiento cmd_copiaNIF_Click del Formulario frmNIFCCC."},
      account_{MkCCC,
               img_cccok,
               img_cccno,
               23,
               L"Código de Cuenta Bancaria",
               &frmNIFCCC::verify_account,
               &frmNIFCCC::ccc_ok_no,
               &account_to_copy_missing,
               L") en procedimiento MkCCC_Validate del Formulario frmNIFCCC.",
               L") en procedimiento MkCCC_LostFocus del Formulario frmNIFCCC.",
               L") en procedimiento MkCCC_Change del Formulario frmPAGADORES.",
               L") en procedimiento cmd_copiaCCC_Click del Formulario frmNIFCCC."} {}

std::shared_ptr<frmNIFCCC> frmNIFCCC::shared(MakeVerifierChecks make_checks) {
    auto window = SharedWindow<frmNIFCCC>::get();
    window->make_checks_ = make_checks;
    return window;
}

void frmNIFCCC::create_controls() {
    HWND const picture =
        add({picture_box_class, L"", 0, Picture1, {0, 0, inner_width, heading_height}});
    add({L"STATIC", title, SS_NOPREFIX, Label, title_place}, picture);
    add({L"STATIC", hint, SS_NOPREFIX, lbl_mensaje, hint_place}, picture);

    constexpr DWORD edit = WS_TABSTOP | ES_AUTOHSCROLL;
    constexpr DWORD button = WS_TABSTOP | BS_PUSHBUTTON;
    const auto add_row = [&](double top, int label, const wchar_t* caption, int masked,
                             double width) {
        add({L"STATIC", caption, SS_CENTERIMAGE, label,
             beside_field(top, label_left, label_width, field_height)});
        return add({L"EDIT", L"", edit, masked, edit_place(top, width), WS_EX_CLIENTEDGE});
    };
    const auto add_mark = [&](double top, double field_width, int id, const wchar_t* text) {
        add({picture_box_class, text, 0, id,
             beside_field(top, field_left_edge + field_width + mark_gap, mark_size, mark_size), 0,
             false, text});
    };
    const auto add_frame = [&](double top, int id, const wchar_t* caption) {
        // Last of its controls in Z order. Transparent, since it paints no background.
        const Place frame{margin, top, frame_width, frame_height};
        add({L"BUTTON", caption, BS_GROUPBOX, id, frame, WS_EX_TRANSPARENT});
    };

    tax_id_.edit = std::make_unique<MaskedEdit>(
        add_row(first_frame, lbl_nif, L"&NIF, NIE o CIF:", MkNIF, tax_id_width),
        Mask(Mask::Accepts::letters_and_digits, {9}));
    add_mark(first_frame, tax_id_width, img_nifok, L"NIF aceptado");
    add_mark(first_frame, tax_id_width, img_nifno, L"NIF no aceptado");
    add({L"BUTTON", L"&Copiar NIF", button, cmd_copiaNIF,
         beside_field(first_frame, button_left, button_width, button_height)});
    add_frame(first_frame, frameNIF, L"Identificación fiscal");

    // Bank, branch, check digits and account.
    account_.edit = std::make_unique<MaskedEdit>(
        add_row(second_frame, lbl_ccc, L"C&uenta (20 dígitos):", MkCCC, account_width),
        Mask(Mask::Accepts::digits, {4, 4, 2, 10}),
        [this](std::wstring_view text) { return checks()->account_in(text); });
    add_mark(second_frame, account_width, img_cccok, L"Cuenta aceptada");
    add_mark(second_frame, account_width, img_cccno, L"Cuenta no aceptada");
    add({L"BUTTON", L"C&opiar cuenta", button, cmd_copiaCCC,
         beside_field(second_frame, button_left, button_width, button_height)});
    add_frame(second_frame, frameCCC, L"Código de Cuenta Bancaria");

    add({L"BUTTON", L"C&errar", WS_TABSTOP | BS_DEFPUSHBUTTON, cmdOK, close_place});
}

Place frmNIFCCC::edit_place(double frame_top, double width) const noexcept {
    return field_place(beside_field(frame_top, field_left_edge, width, field_height));
}

void frmNIFCCC::lay_out() {
    move(MkNIF, edit_place(first_frame, tax_id_width));
    move(MkCCC, edit_place(second_frame, account_width));
    InvalidateRect(handle(), nullptr, TRUE);
}

void frmNIFCCC::apply_scale() {
    accepted_.reset();
    refused_.reset();
    heading_ = make_icon(Sign::papers, scale().pixels(heading_picture));
    LOGFONTW bold = system_font(scale().dots_per_inch());
    bold.lfWeight = FW_BOLD;
    heading_font_ = make_font(bold);
    SendMessageW(control(Label), WM_SETFONT, reinterpret_cast<WPARAM>(heading_font_.get()), TRUE);
}

void frmNIFCCC::form_load() {
    guarded({L") en procedimiento Form_Load del Formulario frmNIFCCC."},
            [&] { checks()->set_title(caption()); });
}

std::shared_ptr<VerifierChecks> frmNIFCCC::checks() {
    if (!checks_) checks_ = make_checks_();
    return checks_;
}

frmNIFCCC::Field* frmNIFCCC::field(int id) noexcept {
    Field* const found = id == MkNIF ? &tax_id_ : id == MkCCC ? &account_ : nullptr;
    return found != nullptr && found->edit ? found : nullptr;
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
        Icon& mark = is_accepted ? accepted_ : refused_;
        if (!mark) {
            mark =
                make_icon(is_accepted ? Sign::accepted : Sign::rejected, scale().pixels(mark_size));
        }
        DrawIconEx(context, 0, 0, mark.get(), bounds.right, bounds.bottom, 0, nullptr, DI_NORMAL);
    }
}

bool frmNIFCCC::has_page_colors(int id) const {
    return id == Label || id == lbl_mensaje;
}

void frmNIFCCC::form_unload() {
    for (Field* const field : {&tax_id_, &account_}) {
        field->edit.reset();
        field->last.clear();
    }
    checks_.reset();
    left_field_ = nullptr;
}

}  // namespace kovrel
