#include "progress/frmBarraProgreso.h"

#include <cmath>
#include <cwchar>

#include "progress/bar_colors.h"
#include "progress/progress_bar.h"
#include "progress/progress_layout.h"
#include "services/announcer.h"
#include "services/guarded.h"
#include "services/modal.h"
#include "ui/controls.h"

namespace kovrel {
namespace {

// The design, in twips.
constexpr double inner_width = 6000;
constexpr double margin = 180;
constexpr double area_width = inner_width - 2 * margin;
constexpr double header_height = 690;
constexpr double bar_height = 375;
constexpr Place base_place{0, 0, inner_width, 810};
constexpr Place button{0, 105, 1740, 600};
constexpr double icon_size = 480;

std::int32_t whole(double twips) {
    return static_cast<std::int32_t>(std::lround(twips));
}

bool is_progress_window(HWND window) noexcept {
    wchar_t name[64] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return std::wcscmp(name, frmBarraProgreso::window_class) == 0;
}

/// True when its owner is disabled.
bool is_modal(HWND window) noexcept {
    HWND const owner = GetWindow(window, GW_OWNER);
    return owner != nullptr && IsWindowEnabled(owner) == FALSE;
}

bool another_program_in_front() noexcept {
    DWORD process = 0;
    HWND const front = GetForegroundWindow();
    return front != nullptr && GetWindowThreadProcessId(front, &process) != 0 &&
           process != GetCurrentProcessId();
}

}  // namespace

// No close box: the host closes the window when its work is done.
frmBarraProgreso::frmBarraProgreso()
    : Window({window_class, L" Progreso del proceso...", WS_POPUP | WS_CAPTION, inner_width,
              header_height + bar_height, cmdCancel}) {}

void frmBarraProgreso::create_controls() {
    HWND const header =
        add({picture_box_class, L"", 0, PictureCab, {margin, 0, area_width, header_height}});
    // SS_EDITCONTROL leaves out lines that fit only in part.
    add({L"STATIC", L"", SS_LEFT | SS_NOPREFIX | SS_EDITCONTROL, lbl_mensaje, {}}, header);
    add({picture_box_class, L"", WS_BORDER, PictureBarra, {margin, 0, area_width, bar_height}});
    HWND const base =
        add({picture_box_class, L"", 0, PictureBase, base_place, WS_EX_CONTROLPARENT});
    add({L"BUTTON", L"Cancelar", WS_TABSTOP | BS_DEFPUSHBUTTON, cmdCancel, button}, base);
}

void frmBarraProgreso::apply_scale() {
    Icon icon = make_icon(Sign::rejected, scale().pixels(icon_size));
    SendMessageW(control(cmdCancel), BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
    icon_ = std::move(icon);
    LOGFONTW font = system_font(scale().dots_per_inch());
    // Antialiased edges would change colour where the bar inverts them.
    font.lfQuality = NONANTIALIASED_QUALITY;
    font.lfWeight = FW_BOLD;
    bar_.surface->set_font(font);
    // On white, a host's colour is both the text's and the bar's.
    const BarColors colors =
        lgForeColor != -1 ? BarColors{white_color, static_cast<Color>(lgForeColor)}
                          : bar_colors(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_HIGHLIGHT));
    bar_.surface->set_back_color(colors.ground);
    bar_.surface->set_ForeColor(static_cast<std::int32_t>(colors.pen));
    draw_bar();
}

void frmBarraProgreso::draw_bar() {
    if (percentage) {
        draw_progress_bar(HostObject(bar_.object), *percentage);
    } else {
        bar_.surface->Cls();
    }
}

void frmBarraProgreso::form_load() {
    guarded({L") en procedimiento Form_Load del Formulario frmBarraProgreso."}, [&] {
        canceled_ = false;
        watch_.emplace(handle());
        if (!strCaption.empty()) set_caption(strCaption);
        if (!strMensaje.empty()) SetWindowTextW(control(lbl_mensaje), strMensaje.c_str());
        if (lgAltoMensaje != 0) {
            Place header = place(PictureCab);
            header.height = lgAltoMensaje;
            move(PictureCab, header);
        }
        bar_.surface->set_viewer(control(PictureBarra));
        ShowWindow(control(PictureBase), boBotones ? SW_SHOWNA : SW_HIDE);
        double top = 0;
        for (const int area : {PictureCab, PictureBarra, PictureBase}) {
            Place next = place(area);
            next.top = top;
            move(area, next);
            top += next.height;
        }
        const ProgressHeights heights{
            whole(size_of(handle()).height), whole(inner_size_of(handle()).height),
            whole(place(PictureCab).height), whole(place(PictureBarra).height),
            whole(place(PictureBase).height)};
        resize_outer(scale().pixels(lgAnchoFrm != 0 ? lgAnchoFrm : size_of(handle()).width),
                     scale().pixels(fitted_window_height(heights, boBotones)));
        center_on_screen();
        const RECT centered = bounds();
        move_to(lgLeftFrm != -1 ? scale().pixels(lgLeftFrm) : static_cast<int>(centered.left),
                lgTopFrm != -1 ? scale().pixels(lgTopFrm) : static_cast<int>(centered.top));
    });
}

void frmBarraProgreso::picture_box_resized(int id) {
    if (id == PictureCab) {
        const Place inner = inner_size_of(control(PictureCab));
        const ProgressRectangle label =
            header_label_place({0, 0, whole(inner.width), whole(inner.height)});
        move(lbl_mensaje, {static_cast<double>(label.left), static_cast<double>(label.top),
                           static_cast<double>(label.width), static_cast<double>(label.height)});
    } else if (id == PictureBase) {
        Place button = place(cmdCancel);
        button.left = cancel_button_left(whole(inner_size_of(control(PictureBase)).width),
                                         whole(button.width));
        move(cmdCancel, button);
    } else if (id == PictureBarra) {
        RECT inner{};
        GetClientRect(control(PictureBarra), &inner);
        bar_.surface->resize(inner.right, inner.bottom, scale());
        draw_bar();
    }
}

void frmBarraProgreso::paint_picture_box(int id, HDC context, const RECT& /*bounds*/) {
    if (id == PictureBarra) bar_.surface->paint(context);
}

void frmBarraProgreso::clicked(int id) {
    if (id != cmdCancel || !boBotones) return;
    canceled_ = true;
    unload();
}

Announcement frmBarraProgreso::announcement() const {
    Announcement result = Window::announcement();
    result.kind = AnnouncementKind::progress;
    result.text = strMensaje;
    if (!strCaption.empty()) result.title = strCaption;
    return result;
}

/// Its reports have the title that the window would have.
void frmBarraProgreso::not_shown() {
    if (!strCaption.empty()) set_caption(strCaption);
    form_unload();
}

bool frmBarraProgreso::takes(std::int32_t new_percentage, const std::wstring& message) {
    if (canceled_ || !(loaded() || withheld())) return false;
    Announcement report;
    report.kind = AnnouncementKind::progress;
    report.title = caption();
    report.text = message;
    report.percentage = new_percentage;
    if (announce_progress(report)) {
        canceled_ = true;
        unload();
    }
    return loaded();
}

void frmBarraProgreso::take_focus() const noexcept {
    const bool can_be_active = visible() && IsWindowEnabled(handle()) != FALSE;
    if (can_be_active && GetActiveWindow() != handle() && !another_program_in_front()) {
        SetFocus(handle());
    }
}

void frmBarraProgreso::Watch::window_activated(HWND activated) noexcept {
    // Posted: the other window is not active yet.
    if (activated != window) PostMessageW(window, first_posted, 0, 0);
}

void frmBarraProgreso::posted(UINT /*message*/, int /*value*/) {
    guarded({L") en procedimiento Form_LostFocus del Formulario frmBarraProgreso."}, [&] {
        // Other programs and threads keep the focus, and so do the host's modal boxes and a second
        // progress window, which would take it back in turn.
        HWND const active = GetActiveWindow();
        if (active == handle() || IsWindowEnabled(handle()) == FALSE) return;
        if (GetWindowThreadProcessId(active, nullptr) != GetCurrentThreadId()) return;
        if (is_modal(active) || is_progress_window(active)) return;
        // Topmost above a topmost window.
        const bool is_topmost = (GetWindowLongPtrW(active, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
        SetWindowPos(handle(), is_topmost ? HWND_TOPMOST : HWND_TOP, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        take_focus();
    });
}

/// Esc and Alt+F4 act as the button, where there is one.
void frmBarraProgreso::closing() {
    clicked(cmdCancel);
}

void frmBarraProgreso::set_message(const std::wstring& message) {
    HWND const label = control(lbl_mensaje);
    if (text_of(label) == message) return;
    SetWindowTextW(label, message.c_str());
    UpdateWindow(label);
}

void frmBarraProgreso::catch_up() {
    if (!loaded()) return;
    RedrawWindow(handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    pump_events_of(handle());
}

void frmBarraProgreso::form_unload() {
    guarded({L") en procedimiento Form_Unload del Formulario frmBarraProgreso."}, [&] {
        watch_.reset();
        bar_.surface->set_viewer(nullptr);
        strCaption.clear();
        strMensaje.clear();
        boBotones = false;
        lgAltoMensaje = 0;
        lgAnchoFrm = 0;
        lgTopFrm = -1;
        lgLeftFrm = -1;
    });
}

}  // namespace kovrel
