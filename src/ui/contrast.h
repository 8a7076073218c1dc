// How well two colours can be told apart.
#pragma once

#include <cstdint>

namespace kovrel {

/// 0x00BBGGRR, as the platform has colours.
using Color = std::uint32_t;

inline constexpr Color white_color = 0xFFFFFF;

/// What a text needs on its ground, and what a shape needs on it (WCAG 2.1, 1.4.3 and 1.4.11).
inline constexpr double text_contrast = 4.5;
inline constexpr double shape_contrast = 3;

/// The contrast ratio of WCAG 2.1: 1 for the same colour to 21 for black and white.
[[nodiscard]] double contrast(Color one, Color other);

/// The colour itself, or as much of it as leaves a white text on it legible.
[[nodiscard]] Color dark_enough_for_white(Color color);

}  // namespace kovrel
