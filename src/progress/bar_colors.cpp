#include "progress/bar_colors.h"

#include <initializer_list>

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
    for (const Color ground : {window, white_color}) {
        for (Color part = 255; part > 0; --part) {
            const BarColors colors{ground, ~(darkened(highlight, part) ^ ground) & white_color};
            if (legible(colors)) return colors;
        }
    }
    return {white_color, 0};
}

}  // namespace kovrel
