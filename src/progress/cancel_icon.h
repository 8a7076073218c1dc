// The picture on the cancel button: a white cross on a red disc.
#pragma once

#include <cstdint>
#include <vector>

namespace kovrel {

/// The icon's pixels, `size` by `size`, top row first: 0xAARRGGBB with colours already multiplied
/// by their opacity. Size 1 to 256.
[[nodiscard]] std::vector<std::uint32_t> cancel_icon(int size);

}  // namespace kovrel
