// The default colours of a progress bar.
#pragma once

#include "ui/contrast.h"

namespace kovrel {

/// The bar inverts what it covers: text in the pen's colour becomes white, the ground the bar's
/// colour.
struct BarColors {
    Color ground;
    Color pen;  ///< of the text outside the bar

    [[nodiscard]] Color bar() const noexcept { return ~(pen ^ ground) & white_color; }
    bool operator==(const BarColors&) const = default;
};

/// The window's colour as the ground and the highlight's for the bar, darkened until both texts are
/// legible; a white ground where that fails.
[[nodiscard]] BarColors bar_colors(Color window, Color highlight);

}  // namespace kovrel
