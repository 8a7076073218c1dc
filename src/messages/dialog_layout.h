// The layout of the message dialog: pure arithmetic on twips (1/1440 inch).
#pragma once

#include <algorithm>

namespace kovrel {

/// The place of the text box, whose top and left are 0.
struct DialogTextSize {
    float width;
    float height;

    bool operator==(const DialogTextSize&) const = default;
};

/// The text box fills the window's inner area above the button strip; height 0 where the strip
/// leaves nothing.
[[nodiscard]] inline DialogTextSize dialog_text_size(float inner_width, float inner_height,
                                                     float strip_height) {
    return {inner_width, std::max(inner_height - strip_height, 0.0F)};
}

/// The left edge that centres the button in the strip; 0 in a strip that is narrower.
[[nodiscard]] inline float dialog_button_left(float strip_width, float button_width) {
    return std::max(strip_width / 2 - button_width / 2, 0.0F);
}

}  // namespace kovrel
