#include "dates/frmFECHA1.h"

#include <algorithm>

#include "runtime/failure.h"
#include "services/guarded.h"
#include "services/message_box.h"
#include "ui/controls.h"
#include "ui/text_box_lines.h"

namespace kovrel {
namespace {

// The design, in twips.
constexpr double inner_width = 5400;
constexpr double margin = 240;
constexpr Place question{margin, 210, inner_width - 2 * margin, 240};
constexpr double row_height = 420;
constexpr double date_label_width = 720;
constexpr double date_width = 2100;
constexpr double field_height = 345;
constexpr double button_width = 900;
constexpr double picture_size = 300;

/// The first year of SYSTEMTIME.
constexpr WORD first_year = 1601;

}  // namespace

frmFECHA1::frmFECHA1()
    : Window({window_class, L"Escriba una fecha...", WS_POPUP | WS_CAPTION, inner_width,
              question.top + question.height + row_height + 2 * margin, cmdOK}) {}

void frmFECHA1::create_controls() {
    register_date_pickers();
    const Layout places = wanted_layout();
    // SS_EDITCONTROL breaks words longer than a line.
    add({L"STATIC", message_.c_str(), SS_NOPREFIX | SS_EDITCONTROL, lbl_mensaje, places.question, 0,
         !places.scrolls});
    add({L"STATIC", L"Fecha:", SS_NOPREFIX | SS_CENTERIMAGE, lbl_fecha, places.label});
    HWND const field =
        add({DATETIMEPICK_CLASSW, L"", WS_TABSTOP | DTS_SHOWNONE | DTS_SHORTDATEFORMAT, DTP_FECHA,
             places.field});
    SendMessageW(field, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(L"dd'/'MM'/'yyyy"));
    begin_with_the_day(field);
    // The button shows its picture only; its text is for screen readers.
    add({L"BUTTON", L"Aceptar", WS_TABSTOP | BS_DEFPUSHBUTTON | BS_ICON, cmdOK, places.button, 0,
         true, L"Aceptar"});
    if (places.scrolls) add_text_box(places.question);
}

/// Replaces the label where the question does not fit on the screen.
void frmFECHA1::add_text_box(const Place& place) {
    HWND const box = add({L"EDIT", L"", WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY,
                          txt_mensaje, place, WS_EX_CLIENTEDGE});
    give_dialog_keys(box);
    SendMessageW(box, EM_SETLIMITTEXT, 0, 0);
    SetWindowTextW(box, text_box_lines(message_).c_str());
}

void frmFECHA1::apply_scale() {
    Icon picture = make_icon(Sign::accept, scale().pixels(picture_size));
    SendMessageW(control(cmdOK), BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(picture.get()));
    picture_ = std::move(picture);
}

void frmFECHA1::form_load() {
    chosen = Date{};
    show_proposed();
}

double frmFECHA1::question_height() const {
    RECT bounds{0, 0, scale().pixels(question.width), 0};
    const WindowContext context(handle());
    const Selected with_font(context.get(), font());
    DrawTextW(context.get(), message_.c_str(), -1, &bounds,
              DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_EXPANDTABS | DT_NOPREFIX);
    return std::max<double>(scale().twips(bounds.bottom), question.height);
}

frmFECHA1::Layout frmFECHA1::wanted_layout() const {
    constexpr double rest = question.top + margin + row_height + margin;
    Layout places{question};
    const double wanted = question_height();
    if (wanted > question.height) {
        const double room = std::max(tallest_inner() - rest, question.height);
        places.scrolls = wanted > room;
        places.question.height = std::min(wanted, room);
    }
    const double row = question.top + places.question.height + margin;
    const double field_top = row + (row_height - field_height) / 2;
    places.label = {margin, field_top, date_label_width, field_height};
    places.field = field_place({margin + date_label_width, field_top, date_width, field_height});
    places.button = {inner_width - margin - button_width, row, button_width, row_height};
    places.inner_height = row + row_height + margin;
    return places;
}

void frmFECHA1::lay_out() {
    const Layout places = wanted_layout();
    if (places.scrolls && control(txt_mensaje) == nullptr) add_text_box(places.question);
    move(lbl_mensaje, places.question);
    move(txt_mensaje, places.question);
    ShowWindow(control(lbl_mensaje), places.scrolls ? SW_HIDE : SW_SHOWNA);
    ShowWindow(control(txt_mensaje), places.scrolls ? SW_SHOWNA : SW_HIDE);
    move(lbl_fecha, places.label);
    move(DTP_FECHA, places.field);
    move(cmdOK, places.button);
    resize_inner(inner_width, places.inner_height);
    keep_on_screen();
}

void frmFECHA1::set_message(const std::wstring& message) {
    message_ = message;
    if (!loaded()) return;
    SetWindowTextW(control(lbl_mensaje), message.c_str());
    SetWindowTextW(control(txt_mensaje), text_box_lines(message).c_str());
    lay_out();
    center_on_screen();
}

void frmFECHA1::set_value(Date value) {
    SYSTEMTIME shown{};
    if (VariantTimeToSystemTime(value.days, &shown) == FALSE || shown.wYear < first_year) {
        throw Failure(FailureNumber::invalid_argument);
    }
    proposed_ = shown;
    if (loaded()) show_proposed();
}

void frmFECHA1::show_proposed() {
    if (SendMessageW(control(DTP_FECHA), DTM_SETSYSTEMTIME, GDT_VALID,
                     reinterpret_cast<LPARAM>(&proposed_)) == 0) {
        throw Failure(FailureNumber::invalid_argument);
    }
}

std::optional<Date> frmFECHA1::value() const {
    SYSTEMTIME shown{};
    Date date;
    if (SendMessageW(control(DTP_FECHA), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&shown)) !=
            GDT_VALID ||
        SystemTimeToVariantTime(&shown, &date.days) == FALSE) {
        return std::nullopt;
    }
    return date;
}

Announcement frmFECHA1::announcement() const {
    return announcement_of_window(caption(), message_);
}

bool frmFECHA1::FechaOk() const {
    // Day 0 counts as no date: PideFecha would wait for ever.
    return value().value_or(Date{}) != Date{};
}

void frmFECHA1::clicked(int id) {
    if (id != cmdOK) return;
    guarded({L") en procedimiento cmdOK_Click del Formulario frmFECHA1."}, [&] {
        // Commits digits still being typed.
        focus_on(cmdOK);
        if (FechaOk()) {
            chosen = *value();
            unload();
            return;
        }
        show({L"Por favor, escriba una fecha correctamente", NoticeStyle::exclamation,
              std::nullopt});
        focus_on(DTP_FECHA);
    });
}

}  // namespace kovrel
