// The progress window: a message, a bar drawn on a picture and an optional button to cancel.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "services/thread_watch.h"
#include "ui/picture_surface.h"
#include "ui/window.h"

namespace kovrel {

class frmBarraProgreso final : public Window {
 public:
    enum Control : int { PictureCab = 101, lbl_mensaje, PictureBarra, PictureBase, cmdCancel };
    static constexpr const wchar_t* window_class = L"Kovrel.frmBarraProgreso";

    frmBarraProgreso();

    // Set before the window is shown; unloading clears all but the colour. Lengths are in twips.
    std::wstring strCaption;         ///< empty: the design's
    std::wstring strMensaje;         ///< empty: the design's
    bool boBotones = false;          ///< the cancel button is there
    std::int32_t lgAltoMensaje = 0;  ///< height of the header; 0: the design's
    std::int32_t lgAnchoFrm = 0;     ///< outer width; 0: the design's
    std::int32_t lgTopFrm = -1;      ///< -1: centred on the screen
    std::int32_t lgLeftFrm = -1;     ///< -1: centred on the screen
    std::int32_t lgForeColor = -1;   ///< colour of the bar and its text; -1: the system's

    std::optional<std::int32_t> percentage;  ///< what the bar shows; none before the first update

    /// Announces an update. True when the window is there to show it; false also after a cancel.
    [[nodiscard]] bool takes(std::int32_t new_percentage, const std::wstring& message);

    /// True once the user has pressed the button; loading the window again makes it false.
    [[nodiscard]] bool canceled() const noexcept { return canceled_; }

    /// Focuses the window, unless another program has the focus or a modal box disables the window.
    void take_focus() const noexcept;
    void set_message(const std::wstring& message);
    [[nodiscard]] const ComPtr<IDispatch>& bar() const noexcept { return bar_.object; }
    /// Paints the window and dispatches its input, since the host keeps the thread busy. It may be
    /// unloaded by that.
    void catch_up();

 private:
    /// Posts a message to the window when another of the thread's is activated.
    struct Watch final : ThreadWatch {
        explicit Watch(HWND told) noexcept : window(told) {}
        void window_activated(HWND activated) noexcept override;
        HWND const window;
    };

    void create_controls() override;
    void apply_scale() override;
    void form_load() override;
    void picture_box_resized(int id) override;
    void paint_picture_box(int id, HDC context, const RECT& bounds) override;
    void clicked(int id) override;
    void posted(UINT message, int value) override;
    void closing() override;
    void form_unload() override;
    [[nodiscard]] Announcement announcement() const override;
    void not_shown() override;

    void draw_bar();

    PictureObject bar_ = make_picture();
    Icon icon_;
    bool canceled_ = false;
    std::optional<Watch> watch_;  // while loaded
};

}  // namespace kovrel
