#include "ui/contrast.h"

#include <algorithm>
#include <cmath>

namespace kovrel {
namespace {

Color channel(Color color, unsigned shift) {
    return color >> shift & 0xFFU;
}

/// The light that a channel gives, 0 to 1, from its value on the screen.
double light(Color value) {
    const double part = value / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(Color color) {
    return 0.2126 * light(channel(color, 0)) + 0.7152 * light(channel(color, 8)) +
           0.0722 * light(channel(color, 16));
}

}  // namespace

double contrast(Color one, Color other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

Color darkened(Color color, Color part) {
    constexpr Color whole = 255;
    Color result = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        result |= channel(color, shift) * part / whole << shift;
    }
    return result;
}

}  // namespace kovrel
