#include "progress/progress_layout.h"

#include <algorithm>
#include <limits>

#include "runtime/text.h"

namespace kovrel {

std::wstring progress_label(std::int32_t percentage) {
    return (percentage == 0 ? std::wstring() : decimal_text(percentage)) + L"%";
}

std::int32_t fitted_window_height(const ProgressHeights& heights, bool base_visible) {
    constexpr std::int64_t spare = 80;
    const std::int64_t frame = std::int64_t{heights.window} - heights.inner;
    const std::int64_t areas =
        std::int64_t{heights.header} + heights.bar + (base_visible ? heights.base : 0);
    constexpr std::int64_t limit = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(frame + areas + spare, -limit, limit));
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
