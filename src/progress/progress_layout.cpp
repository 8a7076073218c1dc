#include "progress/progress_layout.h"

#include <algorithm>

namespace kovrel {

std::int32_t fitted_window_height(const ProgressHeights& heights, bool base_visible) {
    constexpr std::int32_t spare = 80;
    const std::int32_t frame = heights.window - heights.inner;
    return frame + heights.header + heights.bar + (base_visible ? heights.base : 0) + spare;
}

ProgressRectangle header_label_place(const ProgressRectangle& header_inner) {
    constexpr std::int32_t margin = 40;
    return {header_inner.left, header_inner.top + margin, header_inner.width,
            std::max(header_inner.height - 2 * margin, 0)};
}

float cancel_button_left(std::int32_t base_inner_width, std::int32_t button_width) {
    return static_cast<float>(base_inner_width) / 2 - static_cast<float>(button_width) / 2;
}

}  // namespace kovrel
