// Small pictures drawn from their outlines, sharp at any display resolution: the marks and signs
// that the windows' buttons and fields carry.
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

/// A square picture with soft edges, `size` by `size` pixels, top row first: 0xAARRGGBB. Colours
/// are whole, as the platform's icons have them: it multiplies them by their opacity itself.
[[nodiscard]] std::vector<std::uint32_t> draw_sign(Sign sign, int size);

}  // namespace kovrel
