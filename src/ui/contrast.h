// How well two colours can be told apart.
#pragma once

#include <cstdint>

namespace kovrel {

/// 0x00BBGGRR, as the platform has colours.
using Color = std::uint32_t;

inline constexpr Color white_color = 0xFFFFFF;

/// What a text needs on its ground (WCAG 2.1, 1.4.3).
inline constexpr double text_contrast = 4.5;

/// The contrast ratio of WCAG 2.1: 1 for the same colour to 21 for black and white.
[[nodiscard]] double contrast(Color one, Color other);

/// The colour with that part of its light, 0 to 255.
[[nodiscard]] Color darkened(Color color, Color part);

}  // namespace kovrel
