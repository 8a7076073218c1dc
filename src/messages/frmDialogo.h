// The message dialog: a resizable window for texts too long for a message box.
#pragma once

#include <cstdint>
#include <string>

#include "ui/window.h"

namespace kovrel {

class frmDialogo final : public Window {
 public:
    enum Control : int { TxtMensaje = 101, PictureBase, OKButton };
    static constexpr const wchar_t* window_class = L"Kovrel.frmDialogo";

    frmDialogo();

    // Written before the window is shown, cleared when it is unloaded.
    std::wstring Mensaje;
    std::wstring Titulo;       ///< empty: "Información"
    bool FuenteTT = false;     ///< "MS Sans Serif", which wraps, instead of "Courier"
    bool Abierto = false;      ///< true until the window is unloaded
    std::int16_t Medida1 = 0;  ///< outer width in twips; 0: the design's
    std::int16_t Medida2 = 0;  ///< outer height in twips; 0: the design's

 private:
    void create_controls() override;
    void apply_scale() override;
    void form_load() override;
    void form_resize() override;
    void picture_box_resized(int id) override;
    void clicked(int id) override;
    [[nodiscard]] bool has_page_colors(int id) const override;
    void form_unload() override;
    [[nodiscard]] Announcement announcement() const override;

    Font text_font_;
};

}  // namespace kovrel
