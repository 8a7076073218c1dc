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
    for (Color part = 256; part-- > 0;) {
        const BarColors colors{window, ~(darkened(highlight, part) ^ window) & white_color};
        if (legible(colors)) return colors;
    }
    // On white every colour is legible at the latest when it is black.
    return bar_colors(white_color, highlight);
}

}  // namespace kovrel
