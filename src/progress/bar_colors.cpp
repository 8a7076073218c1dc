#include "progress/bar_colors.h"

namespace kovrel {

BarColors bar_colors(Color window, Color highlight) {
    const Color bar = dark_enough_for_white(highlight);
    const BarColors colors{window, ~(bar ^ window) & white_color};
    const bool legible = contrast(colors.pen, window) >= text_contrast;
    // On white the pen is the bar's own colour.
    return legible && contrast(bar, window) >= shape_contrast ? colors
                                                              : BarColors{white_color, bar};
}

}  // namespace kovrel
