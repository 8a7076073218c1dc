#include "ui/picture_surface.h"

#include <olectl.h>

#include <algorithm>
#include <cmath>

#include "automation/declare.h"
#include "runtime/failure.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    L"Kovrel",
    L"PictureSurface",
    {0xeb54d031, 0x1a7f, 0x4638, {0xa7, 0x61, 0x58, 0x15, 0x98, 0x66, 0xbd, 0x35}},
    {0x55c68102, 0x6175, 0x40ee, {0x9c, 0x40, 0xb6, 0x87, 0x84, 0x76, 0x01, 0x48}},
};

COLORREF resolved(std::int32_t color) noexcept {
    COLORREF result = 0;
    const HRESULT outcome = OleTranslateColor(static_cast<OLE_COLOR>(color), nullptr, &result);
    return SUCCEEDED(outcome) ? result : static_cast<COLORREF>(color) & 0xFFFFFFU;
}

int nearest_pixel(double pixels) noexcept {
    if (std::isnan(pixels)) return 0;
    return static_cast<int>(
        std::clamp<double>(std::round(pixels), -Scale::pixel_limit, Scale::pixel_limit));
}

float checked_scale(float length) {
    if (!std::isfinite(length) || length == 0) throw Failure(FailureNumber::invalid_argument);
    return length;
}

constexpr auto declared =
    declare<PictureSurface>(identity, L"Imagen en la que se dibuja.")
        .field<&PictureSurface::AutoRedraw>(L"AutoRedraw", L"Si se muestra con Refresh.")
        .property<&PictureSurface::get_DrawMode, &PictureSurface::set_DrawMode>(
            L"DrawMode", L"Modo de la pluma.")
        .property<&PictureSurface::get_ScaleWidth, &PictureSurface::set_ScaleWidth>(
            L"ScaleWidth", L"Unidades de su ancho.")
        .property<&PictureSurface::get_ScaleHeight, &PictureSurface::set_ScaleHeight>(
            L"ScaleHeight", L"Unidades de su alto.")
        .field<&PictureSurface::CurrentX>(L"CurrentX", L"Izquierda del siguiente texto.")
        .field<&PictureSurface::CurrentY>(L"CurrentY", L"Borde superior del siguiente texto.")
        .property<&PictureSurface::get_ForeColor, &PictureSurface::set_ForeColor>(
            L"ForeColor", L"Color de textos y líneas.")
        .method<&PictureSurface::Cls>(L"Cls", L"Borra la imagen.")
        .method<&PictureSurface::TextWidth>(L"TextWidth", {L"Text"}, L"Ancho de un texto.")
        .method<&PictureSurface::TextHeight>(L"TextHeight", {L"Text"}, L"Alto de un texto.")
        .method<&PictureSurface::Print>(L"Print", {L"Text"}, L"Escribe un texto.")
        .method<&PictureSurface::Line>(L"Line", {L"Flags", L"X1", L"Y1", L"X2", L"Y2", L"Color"},
                                       L"Dibuja una línea o un rectángulo.")
        .method<&PictureSurface::Refresh>(L"Refresh", L"Muestra lo dibujado.");

}  // namespace

constinit const ClassInfo PictureSurface::class_info = class_tables<declared>;

PictureSurface::PictureSurface() : context_(CreateCompatibleDC(nullptr)) {
    if (!context_) throw Failure(FailureNumber::out_of_memory);
    SelectObject(context(), GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(context(), TRANSPARENT);
    resize(1, 1, Scale());
}

void PictureSurface::resize(int width, int height, const Scale& scale) {
    size_ = {std::clamp(width, 1, Scale::pixel_limit), std::clamp(height, 1, Scale::pixel_limit)};
    scale_ = scale;
    BITMAPINFO form{};
    form.bmiHeader.biSize = sizeof form.bmiHeader;
    form.bmiHeader.biWidth = size_.cx;
    form.bmiHeader.biHeight = -size_.cy;
    form.bmiHeader.biPlanes = 1;
    form.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    Bitmap bitmap(CreateDIBSection(nullptr, &form, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap) throw Failure(FailureNumber::out_of_memory);
    SelectObject(context(), bitmap.get());
    bitmap_ = std::move(bitmap);
    Cls();
}

void PictureSurface::set_font(const LOGFONTW& description) {
    Font font = make_font(description);
    SelectObject(context(), font.get());
    font_ = std::move(font);
}

void PictureSurface::paint(HDC target) const noexcept {
    BitBlt(target, 0, 0, size_.cx, size_.cy, context(), 0, 0, SRCCOPY);
}

void PictureSurface::set_DrawMode(std::int16_t mode) {
    if (mode < R2_BLACK || mode > R2_WHITE) throw Failure(FailureNumber::invalid_argument);
    draw_mode_ = mode;
}

float PictureSurface::get_ScaleWidth() const {
    return width_in_units_ != 0 ? width_in_units_ : scale_.twips(size_.cx);
}

void PictureSurface::set_ScaleWidth(float width) {
    width_in_units_ = checked_scale(width);
}

float PictureSurface::get_ScaleHeight() const {
    return height_in_units_ != 0 ? height_in_units_ : scale_.twips(size_.cy);
}

void PictureSurface::set_ScaleHeight(float height) {
    height_in_units_ = checked_scale(height);
}

int PictureSurface::pixel_x(float x) const noexcept {
    return nearest_pixel(static_cast<double>(x) * size_.cx / get_ScaleWidth());
}

int PictureSurface::pixel_y(float y) const noexcept {
    return nearest_pixel(static_cast<double>(y) * size_.cy / get_ScaleHeight());
}

float PictureSurface::TextWidth(const std::wstring& text) const {
    SIZE size{};
    GetTextExtentPoint32W(context(), text.c_str(), static_cast<int>(text.size()), &size);
    return static_cast<float>(size.cx) * get_ScaleWidth() / static_cast<float>(size_.cx);
}

float PictureSurface::TextHeight(const std::wstring& /*text*/) const {
    TEXTMETRICW metrics{};
    GetTextMetricsW(context(), &metrics);
    return static_cast<float>(metrics.tmHeight) * get_ScaleHeight() / static_cast<float>(size_.cy);
}

void PictureSurface::Cls() {
    const RECT whole{0, 0, size_.cx, size_.cy};
    SetBkColor(context(), back_color_);
    ExtTextOutW(context(), 0, 0, ETO_OPAQUE, &whole, nullptr, 0, nullptr);
    CurrentX = 0;
    CurrentY = 0;
    drawn();
}

void PictureSurface::Print(const std::wstring& text) {
    SetTextColor(context(), resolved(fore_color_));
    TextOutW(context(), pixel_x(CurrentX), pixel_y(CurrentY), text.c_str(),
             static_cast<int>(text.size()));
    CurrentX = 0;
    CurrentY += TextHeight(text);
    drawn();
}

void PictureSurface::Line(std::int16_t options, float x1, float y1, float x2, float y2,
                          std::int32_t color) {
    const auto [left, right] = std::minmax({pixel_x(x1), pixel_x(x2)});
    const auto [top, bottom] = std::minmax({pixel_y(y1), pixel_y(y2)});
    const COLORREF line_color = resolved(color != 0 ? color : fore_color_);
    SetROP2(context(), draw_mode_);
    if ((options & box) == 0 || (options & filled) == 0) {
        const Owned<HPEN, &DeleteObject> pen(CreatePen(PS_SOLID, 1, line_color));
        const Selected pen_in_use(context(), pen.get());
        if ((options & box) == 0) {
            MoveToEx(context(), pixel_x(x1), pixel_y(y1), nullptr);
            LineTo(context(), pixel_x(x2), pixel_y(y2));
        } else {
            const Selected hollow(context(), GetStockObject(NULL_BRUSH));
            Rectangle(context(), left, top, right, bottom);
        }
    } else if (left < right && top < bottom) {
        const Owned<HBRUSH, &DeleteObject> brush(CreateSolidBrush(line_color));
        const Selected brush_in_use(context(), brush.get());
        const Selected no_outline(context(), GetStockObject(NULL_PEN));
        // Without an outline Rectangle leaves out one more pixel at the right and the bottom.
        Rectangle(context(), left, top, right + 1, bottom + 1);
    }
    CurrentX = x2;
    CurrentY = y2;
    drawn();
}

void PictureSurface::drawn() {
    if (!AutoRedraw) Refresh();
}

void PictureSurface::Refresh() {
    if (viewer_ == nullptr) return;
    InvalidateRect(viewer_, nullptr, FALSE);
    UpdateWindow(viewer_);
}

PictureObject make_picture() {
    auto object = create_instance<PictureSurface>();
    auto& surface = implementation_of<PictureSurface>(object.get());
    return {std::move(object), &surface};
}

}  // namespace kovrel
