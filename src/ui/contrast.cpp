#include "ui/contrast.h"

#include <algorithm>

namespace kovrel {
namespace {

Color channel(Color color, unsigned shift) {
    return color >> shift & 0xFFU;
}

/// Newton's method for 0.05 to 1; std::pow would make the DLL larger.
double fifth_root(double number) {
    double root = 1;
    for (int round = 0; round < 20; ++round) {
        root = (4 * root + number / (root * root * root * root)) / 5;
    }
    return root;
}

/// Linear light, 0 to 1, from an sRGB channel.
double light(Color value) {
    const double part = value / 255.0;
    if (part <= 0.04045) return part / 12.92;
    const double base = (part + 0.055) / 1.055;
    const double root = fifth_root(base);
    return base * base * root * root;  // to the power of 2.4
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
