// The signs on the windows' buttons and beside their fields, drawn as vectors at any size.
#pragma once

#include <cstdint>
#include <vector>

namespace kovrel {

enum class Sign {
    accept,    ///< a green check mark
    papers,    ///< two sheets of paper
    accepted,  ///< a check mark in a green disc
    rejected,  ///< a cross in a red disc
};

/// An antialiased picture of `size` by `size` pixels, top row first: 0xAARRGGBB, not premultiplied
/// by alpha, as icons have them.
[[nodiscard]] std::vector<std::uint32_t> draw_sign(Sign sign, int size);

}  // namespace kovrel
