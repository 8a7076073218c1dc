#include "photograph.h"

#include <algorithm>

namespace ficha {

void Photograph::set(const Value& picture) {
    void* drawn = nullptr;
    if (picture.vt == VT_DISPATCH && picture.pdispVal != nullptr) {
        picture.pdispVal->QueryInterface(IID_IPicture, &drawn);
    }
    picture_.reset(static_cast<IPicture*>(drawn));
}

void Photograph::draw(const DRAWITEMSTRUCT& frame) const {
    RECT area = frame.rcItem;
    FillRect(frame.hDC, &area, GetSysColorBrush(COLOR_WINDOW));
    FrameRect(frame.hDC, &area, GetSysColorBrush(COLOR_BTNSHADOW));
    InflateRect(&area, -1, -1);

    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    if (picture_) {
        picture_->get_Width(&width);
        picture_->get_Height(&height);
    }
    if (width <= 0 || height <= 0) {
        SetBkMode(frame.hDC, TRANSPARENT);
        SetTextColor(frame.hDC, GetSysColor(COLOR_GRAYTEXT));
        DrawTextW(frame.hDC, L"Sin fotografía", -1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        return;
    }
    const int room_x = area.right - area.left;
    const int room_y = area.bottom - area.top;
    const double scale =
        std::min<double>(static_cast<double>(room_x) / static_cast<double>(width),
                         static_cast<double>(room_y) / static_cast<double>(height));
    const int shown_x = static_cast<int>(static_cast<double>(width) * scale);
    const int shown_y = static_cast<int>(static_cast<double>(height) * scale);
    SetStretchBltMode(frame.hDC, HALFTONE);
    // HIMETRIC coordinates run upwards.
    picture_->Render(frame.hDC, area.left + (room_x - shown_x) / 2,
                     area.top + (room_y - shown_y) / 2, shown_x, shown_y, 0, height, width, -height,
                     nullptr);
}

}  // namespace ficha
