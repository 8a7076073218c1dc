// The colours of a progress bar that a host has given none.
#pragma once

#include "ui/contrast.h"

namespace kovrel {

/// The bar inverts what it covers: a text of the pen's colour becomes white on it, and the ground
/// becomes the bar.
struct BarColors {
    Color ground;
    Color pen;  ///< of the text beside the bar

    [[nodiscard]] Color bar() const noexcept { return ~(pen ^ ground) & white_color; }
    bool operator==(const BarColors&) const = default;
};

/// The ground of a window and a bar of the highlight's colour, darkened as far as both texts need
/// it; on white where the window's ground leaves no such bar.
[[nodiscard]] BarColors bar_colors(Color window, Color highlight);

}  // namespace kovrel
