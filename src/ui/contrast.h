// Contrast of colours.
#pragma once

#include <cstdint>

namespace kovrel {

/// 0x00BBGGRR, the layout of COLORREF.
using Color = std::uint32_t;

inline constexpr Color white_color = 0xFFFFFF;

/// The least contrast of a text with its background (WCAG 2.1, 1.4.3).
inline constexpr double text_contrast = 4.5;

/// The contrast ratio of WCAG 2.1: from 1 (same colour) to 21 (black and white).
[[nodiscard]] double contrast(Color one, Color other);

/// Each channel multiplied by `part` / 255.
[[nodiscard]] Color darkened(Color color, Color part);

}  // namespace kovrel
