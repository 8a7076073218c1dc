#include "messages/frmDialogo.h"

#include "messages/dialog_layout.h"
#include "services/guarded.h"
#include "ui/controls.h"
#include "ui/text_box_lines.h"

namespace kovrel {
namespace {

// The design, in twips.
constexpr double inner_width = 9000;
constexpr double inner_height = 5400;
constexpr double strip_height = 720;
constexpr Place button{0, 165, 1440, 390};
constexpr int font_size = 975;  // hundredths of a point

}  // namespace

frmDialogo::frmDialogo()
    : Window({window_class, L"Información",
              WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX, inner_width, inner_height,
              OKButton, false}) {}

void frmDialogo::create_controls() {
    constexpr DWORD text_box = WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_NOHIDESEL;
    // Text in the fixed-pitch font is not wrapped, so that columns stay aligned.
    const DWORD lines = FuenteTT ? 0 : WS_HSCROLL | ES_AUTOHSCROLL;
    give_dialog_keys(add({L"EDIT", L"", text_box | lines, TxtMensaje, {}, WS_EX_CLIENTEDGE}));
    HWND const base =
        add({picture_box_class, L"", 0, PictureBase, {0, 0, 0, strip_height}, WS_EX_CONTROLPARENT});
    add({L"BUTTON", L"Aceptar", WS_TABSTOP | BS_DEFPUSHBUTTON, OKButton, button}, base);
}

void frmDialogo::apply_scale() {
    const int resolution = scale().dots_per_inch();
    text_font_ = make_font(
        FuenteTT ? named_font(L"MS Sans Serif", font_size, resolution)
                 : named_font(L"Courier", font_size, resolution, FIXED_PITCH | FF_MODERN));
    HWND const text = control(TxtMensaje);
    SendMessageW(text, WM_SETFONT, reinterpret_cast<WPARAM>(text_font_.get()), TRUE);
    SendMessageW(text, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN,
                 MAKELPARAM(scale().pixels(60), scale().pixels(60)));
}

void frmDialogo::form_load() {
    guarded({L") en procedimiento Form_Load del Formulario frmDialogo."}, [&] {
        if (Titulo.empty()) Titulo = L"Información";
        set_caption(Titulo);
        if (Medida1 != 0 || Medida2 != 0) {
            const Place outer = size_of(handle());
            resize_outer(scale().pixels(Medida1 != 0 ? Medida1 : outer.width),
                         scale().pixels(Medida2 != 0 ? Medida2 : outer.height));
            center_on_screen();
        }
        apply_scale();
        SendMessageW(control(TxtMensaje), EM_SETLIMITTEXT, 0, 0);
        SetWindowTextW(control(TxtMensaje), text_box_lines(Mensaje).c_str());
    });
}

void frmDialogo::form_resize() {
    const Place inner = inner_size_of(handle());
    const double base = place(PictureBase).height;
    move(PictureBase, {0, inner.height - base, inner.width, base});
    guarded({L") en procedimiento Form_Resize del Formulario frmDialogo."}, [&] {
        const DialogTextSize size =
            dialog_text_size(static_cast<float>(inner.width), static_cast<float>(inner.height),
                             static_cast<float>(base));
        move(TxtMensaje, {0, 0, size.width, size.height});
    });
}

void frmDialogo::picture_box_resized(int /*id*/) {
    Place next = place(OKButton);
    next.left = dialog_button_left(static_cast<float>(size_of(control(PictureBase)).width),
                                   static_cast<float>(next.width));
    move(OKButton, next);
}

void frmDialogo::clicked(int id) {
    if (id != OKButton) return;
    guarded({L") en procedimiento OKButton_Click del Formulario frmDialogo."}, [&] { unload(); });
}

bool frmDialogo::has_page_colors(int id) const {
    return id == TxtMensaje;
}

Announcement frmDialogo::announcement() const {
    Announcement result = Window::announcement();
    result.kind = AnnouncementKind::message;
    result.text = Mensaje;
    if (!Titulo.empty()) result.title = Titulo;
    return result;
}

void frmDialogo::form_unload() {
    guarded({L") en procedimiento Form_Unload del Formulario frmDialogo."}, [&] {
        Abierto = false;
        Titulo.clear();
        Mensaje.clear();
        Medida1 = 0;
        Medida2 = 0;
        FuenteTT = false;
    });
}

}  // namespace kovrel
