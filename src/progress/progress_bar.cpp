#include "progress/progress_bar.h"

#include "progress/progress_layout.h"
#include "ui/picture_surface.h"

namespace kovrel {

void draw_progress_bar(const HostObject& picture, std::int32_t percentage) {
    constexpr std::int16_t width = 100;  // one unit for each per cent
    constexpr std::int16_t filled_box = PictureSurface::box | PictureSurface::filled;
    if (!picture.get(L"AutoRedraw").to_bool()) picture.put(L"AutoRedraw", Variant(true));
    picture.call(L"Cls");
    picture.put(L"ScaleWidth", Variant(width));
    picture.put(L"DrawMode", Variant(PictureSurface::not_xor_pen));
    const Variant label(progress_label(percentage));
    const double left = 50 - picture.get(L"TextWidth", {label}).to_double() / 2;
    picture.put(L"CurrentX", Variant(static_cast<float>(left)));
    const double height = picture.get(L"ScaleHeight").to_double();
    const double top = (height - picture.get(L"TextHeight", {label}).to_double()) / 2;
    picture.put(L"CurrentY", Variant(static_cast<float>(top)));
    picture.call(L"Print", {label});
    const double bottom = picture.get(L"ScaleHeight").to_double();
    picture.call(L"Line", {Variant(filled_box), Variant(0.0F), Variant(0.0F),
                           Variant(static_cast<float>(percentage)),
                           Variant(static_cast<float>(bottom)), Variant(std::int32_t{0})});
    picture.call(L"Refresh");
}

}  // namespace kovrel
