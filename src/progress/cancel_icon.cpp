#include "progress/cancel_icon.h"

#include <cmath>

namespace kovrel {
namespace {

constexpr int samples = 4;  // a side of a pixel

struct Rgb {
    int red;
    int green;
    int blue;
};
constexpr Rgb disc{200, 40, 40};
constexpr Rgb cross{255, 255, 255};

/// What covers a point of the unit square around the origin, -1 to 1: the disc, the cross on it, or
/// nothing.
const Rgb* covering(double x, double y) {
    constexpr double radius = 0.8;
    constexpr double reach = 0.54;
    constexpr double half_width = 0.12;
    if (std::hypot(x, y) > radius) return nullptr;
    const double along = std::abs(x + y) / std::sqrt(2);
    const double across = std::abs(x - y) / std::sqrt(2);
    const bool on_cross =
        (along < reach && across < half_width) || (across < reach && along < half_width);
    return on_cross ? &cross : &disc;
}

std::uint32_t pixel(int column, int row, int size) {
    int red = 0;
    int green = 0;
    int blue = 0;
    int covered = 0;
    constexpr double step = 1.0 / samples;
    for (int line = 0; line < samples; ++line) {
        for (int place = 0; place < samples; ++place) {
            const double x = column + (place + 0.5) * step;
            const double y = row + (line + 0.5) * step;
            const Rgb* const color = covering(2 * x / size - 1, 2 * y / size - 1);
            if (color == nullptr) continue;
            ++covered;
            red += color->red;
            green += color->green;
            blue += color->blue;
        }
    }
    constexpr int all = samples * samples;
    const auto part = [](int sum) { return static_cast<std::uint32_t>((sum + all / 2) / all); };
    return part(covered * 255) << 24 | part(red) << 16 | part(green) << 8 | part(blue);
}

}  // namespace

std::vector<std::uint32_t> cancel_icon(int size) {
    std::vector<std::uint32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
    for (int row = 0; row < size; ++row) {
        for (int column = 0; column < size; ++column) pixels.push_back(pixel(column, row, size));
    }
    return pixels;
}

}  // namespace kovrel
