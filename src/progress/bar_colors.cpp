#include "progress/bar_colors.h"

namespace kovrel {
namespace {

/// Less than a text needs, since the percentage is written too.
constexpr double bar_contrast = 2;

bool legible(const BarColors& colors) {
    return contrast(colors.bar(), white_color) >= text_contrast &&
           contrast(colors.pen, colors.ground) >= text_contrast &&
           contrast(colors.bar(), colors.ground) >= bar_contrast;
}

}  // namespace

BarColors bar_colors(Color window, Color highlight) {
    Color ground = window;
    for (Color part = 255;; --part) {
        if (part == 0) {
            // On white any colour is legible before it is darkened to black.
            ground = white_color;
            part = 255;
        }
        const BarColors colors{ground, ~(darkened(highlight, part) ^ ground) & white_color};
        if (legible(colors)) return colors;
    }
}

}  // namespace kovrel
