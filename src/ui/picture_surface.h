// A picture box as an automation object, so that the same late-bound code draws the library's own
// bar and a host's picture.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "automation/class_info.h"
#include "automation/com_ptr.h"
#include "ui/gdi.h"
#include "ui/scale.h"

namespace kovrel {

/// Draws into a bitmap. A side is measured in twips until its scale is set; from then on its whole
/// length counts as the number set.
class PictureSurface {
 public:
    /// The two pen modes that the library uses.
    static constexpr std::int16_t not_xor_pen = 10;
    static constexpr std::int16_t copy_pen = 13;
    /// Options of `Line`: the two points are corners of a box; the box is filled.
    static constexpr std::int16_t box = 4;
    static constexpr std::int16_t filled = 32;

    static const ClassInfo class_info;

    PictureSurface();

    // For the window that shows the picture.
    /// Clears the picture too. At least one pixel each way.
    void resize(int width, int height, const Scale& scale);
    void set_font(const LOGFONTW& description);
    void set_back_color(COLORREF color) noexcept { back_color_ = color; }
    /// The window to repaint when the picture has changed.
    void set_viewer(HWND viewer) noexcept { viewer_ = viewer; }
    void paint(HDC target) const noexcept;
    /// The memory device context with the bitmap and the font.
    [[nodiscard]] HDC context() const noexcept { return context_.get(); }

    // By member name.
    /// False: changes are shown at once. True: with `Refresh`.
    bool AutoRedraw = false;
    /// The binary raster operation (R2_..., 1 to 16) of `Line`; texts ignore it. Failure 5 for
    /// other numbers.
    [[nodiscard]] std::int16_t get_DrawMode() const { return draw_mode_; }
    void set_DrawMode(std::int16_t mode);
    /// The width and the height in units. Failure 5 for 0, infinities and NaN.
    [[nodiscard]] float get_ScaleWidth() const;
    void set_ScaleWidth(float width);
    [[nodiscard]] float get_ScaleHeight() const;
    void set_ScaleHeight(float height);
    /// The top left corner of the next text.
    float CurrentX = 0;
    float CurrentY = 0;
    /// The colour of texts and lines: 0x00BBGGRR, or 0x80000000 plus the number of a system colour.
    [[nodiscard]] std::int32_t get_ForeColor() const { return fore_color_; }
    void set_ForeColor(std::int32_t color) { fore_color_ = color; }

    /// Fills the picture with its background and moves to 0, 0.
    void Cls();
    [[nodiscard]] float TextWidth(const std::wstring& text) const;
    [[nodiscard]] float TextHeight(const std::wstring& text) const;
    /// Writes at the current position and moves to the beginning of the next line.
    void Print(const std::wstring& text);
    /// A line, a box (4) or a filled box (4 + 32) from one point to the other, and moves to the
    /// latter. A filled box excludes its right and bottom coordinates, so one without width has no
    /// pixel. The colour 0 stands for `ForeColor`.
    void Line(std::int16_t options, float x1, float y1, float x2, float y2, std::int32_t color);
    /// Shows the picture at once, even while the thread is busy.
    void Refresh();

 private:
    [[nodiscard]] int pixel_x(float x) const noexcept;
    [[nodiscard]] int pixel_y(float y) const noexcept;
    void drawn();

    Bitmap bitmap_;
    Font font_;
    Owned<HDC, &DeleteDC> context_;  // the last member: destroyed before the objects in it
    Scale scale_;
    SIZE size_{};
    HWND viewer_ = nullptr;
    COLORREF back_color_ = RGB(255, 255, 255);
    std::int32_t fore_color_ = 0;
    std::int16_t draw_mode_ = copy_pen;
    float width_in_units_ = 0;   // 0: twips
    float height_in_units_ = 0;  // 0: twips
};

/// A surface and its automation object.
struct PictureObject {
    ComPtr<IDispatch> object;
    PictureSurface* surface;  ///< lives as long as the object
};

[[nodiscard]] PictureObject make_picture();

}  // namespace kovrel
