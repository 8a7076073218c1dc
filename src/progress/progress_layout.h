// The text of a progress bar, and the layout of the progress window: pure arithmetic on twips
// (1/1440 inch).
#pragma once

#include <cstdint>
#include <string>

namespace kovrel {

/// The percentage without leading zeros and "%": 50 gives "50%", 0 has no digit and gives "%",
/// -5 gives "-5%".
[[nodiscard]] std::wstring progress_label(std::int32_t percentage);

/// Heights in the progress window, in twips.
struct ProgressHeights {
    std::int32_t window;  ///< outer height, frame and title bar included
    std::int32_t inner;   ///< inner height
    std::int32_t header;
    std::int32_t bar;
    std::int32_t base;  ///< the button area, whether it is shown or not
};

/// The window's outer height for the areas it shows plus 80 twips; clamped to 32 bits.
[[nodiscard]] std::int32_t fitted_window_height(const ProgressHeights& heights, bool base_visible);

/// In twips.
struct ProgressRectangle {
    std::int32_t left;
    std::int32_t top;
    std::int32_t width;
    std::int32_t height;

    bool operator==(const ProgressRectangle&) const = default;
};

/// The label of a header: margins of 40 twips above and below, none at the sides; height 0 in a
/// header that is too low.
[[nodiscard]] ProgressRectangle header_label_place(const ProgressRectangle& header_inner);

/// The left edge that centres the cancel button in the base; negative in a narrower base.
[[nodiscard]] float cancel_button_left(std::int32_t base_inner_width, std::int32_t button_width);

}  // namespace kovrel
