#include "dates/frmFECHA1.h"

#include <commctrl.h>

#include <algorithm>

#include "frame/application.h"
#include "frame/clock.h"
#include "frame/guarded.h"
#include "runtime/failure.h"
#include "ui/shared_window.h"

namespace kovrel {
namespace {

// The design, in twips.
constexpr double inner_width = 5400;
constexpr double margin = 240;
constexpr Place question{margin, 210, inner_width - 2 * margin, 240};
constexpr double row_height = 420;
constexpr double tallest_question = 9000;
constexpr double date_label_width = 720;
constexpr double date_width = 2100;
constexpr double field_height = 345;
constexpr double button_width = 900;
constexpr double picture_size = 300;

/// The first year of the system's calendar.
constexpr WORD first_year = 1601;

}  // namespace

frmFECHA1::frmFECHA1()
    : Window({window_class, L"Escriba una fecha...", WS_CAPTION, inner_width,
              question.top + question.height + row_height + 2 * margin, cmdOK}) {}

std::shared_ptr<frmFECHA1> frmFECHA1::shared() {
    return SharedWindow<frmFECHA1>::get();
}

void frmFECHA1::create_controls() {
    const INITCOMMONCONTROLSEX date_classes{sizeof date_classes, ICC_DATE_CLASSES};
    InitCommonControlsEx(&date_classes);
    add({L"STATIC", L"Escriba una fecha...", SS_NOPREFIX, lbl_mensaje, question});
    add({L"STATIC", L"Fecha:", SS_NOPREFIX | SS_CENTERIMAGE, lbl_fecha, {}});
    HWND const field = add(
        {DATETIMEPICK_CLASSW, L"", WS_TABSTOP | DTS_SHOWNONE | DTS_SHORTDATEFORMAT, DTP_FECHA, {}});
    SendMessageW(field, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(L"dd'/'MM'/'yyyy"));
    // The button shows its picture alone; its text is for those who cannot see it.
    add({L"BUTTON", L"Aceptar", WS_TABSTOP | BS_DEFPUSHBUTTON | BS_ICON, cmdOK, {}});
    set_tooltip(cmdOK, L"Aceptar");
}

void frmFECHA1::apply_scale() {
    Icon picture = draw_sign(Sign::accept, scale().pixels(picture_size));
    SendMessageW(control(cmdOK), BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(picture.get()));
    picture_ = std::move(picture);
    lay_out();
}

void frmFECHA1::form_load() {
    chosen = Date{};
    set_value(Date{static_cast<double>(today())});
}

void frmFECHA1::lay_out() {
    HWND const label = control(lbl_mensaje);
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(label)) + 1, L'\0');
    const int length = GetWindowTextW(label, text.data(), static_cast<int>(text.size()));
    RECT bounds{0, 0, scale().pixels(question.width), 0};
    {
        HDC const context = GetDC(label);
        const Selected with_font(context, font());
        DrawTextW(context, text.c_str(), length, &bounds, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
        ReleaseDC(label, context);
    }
    Place message = question;
    message.height =
        std::clamp<double>(scale().twips(bounds.bottom), question.height, tallest_question);
    move(lbl_mensaje, message);
    const double row = message.top + message.height + margin;
    const double field_top = row + (row_height - field_height) / 2;
    move(lbl_fecha, {margin, field_top, date_label_width, field_height});
    move(DTP_FECHA, {margin + date_label_width, field_top, date_width, field_height});
    move(cmdOK, {inner_width - margin - button_width, row, button_width, row_height});
    resize_inner(inner_width, row + row_height + margin);
}

void frmFECHA1::set_message(const std::wstring& message) {
    load();
    SetWindowTextW(control(lbl_mensaje), message.c_str());
    lay_out();
    center_on_screen();
}

void frmFECHA1::set_value(Date value) {
    load();
    SYSTEMTIME shown{};
    if (VariantTimeToSystemTime(value.days, &shown) == FALSE || shown.wYear < first_year ||
        SendMessageW(control(DTP_FECHA), DTM_SETSYSTEMTIME, GDT_VALID,
                     reinterpret_cast<LPARAM>(&shown)) == 0) {
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

bool frmFECHA1::FechaOk() const {
    // The day that stands for no date is none: whoever waits for it would wait for ever.
    return value().value_or(Date{}) != Date{};
}

void frmFECHA1::clicked(int id) {
    if (id != cmdOK) return;
    guarded({L") en procedimiento cmdOK_Click del Formulario frmFECHA1."}, [&] {
        // Digits still being typed count once the field loses the focus.
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
