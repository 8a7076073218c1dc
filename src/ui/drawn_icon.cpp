#include "ui/drawn_icon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace kovrel {
namespace {

// Signs are designed on a square of 16 units.
constexpr double design_size = 16;
/// Samples per pixel in each direction.
constexpr int samples = 4;

struct Point {
    double x;
    double y;
};

/// Opacity from 0 to 1.
struct Ink {
    double red = 0;
    double green = 0;
    double blue = 0;
    double opacity = 0;
};

constexpr Ink clear{};
constexpr Ink white{255, 255, 255, 1};
constexpr Ink green{22, 132, 58, 1};
constexpr Ink red{196, 32, 38, 1};
constexpr Ink slate{74, 88, 104, 1};

double distance_to_segment(Point point, Point from, Point to) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double along = std::clamp(
        ((point.x - from.x) * dx + (point.y - from.y) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
    return std::hypot(point.x - from.x - along * dx, point.y - from.y - along * dy);
}

bool on_line(Point point, std::span<const Point> line, double width) {
    for (std::size_t next = 1; next < line.size(); ++next) {
        if (distance_to_segment(point, line[next - 1], line[next]) <= width / 2) return true;
    }
    return false;
}

bool in_check(Point point, double reach, double width) {
    const std::array<Point, 3> line{{{8 - reach, 8 + reach * 0.1},
                                     {8 - reach * 0.25, 8 + reach * 0.8},
                                     {8 + reach, 8 - reach * 0.7}}};
    return on_line(point, line, width);
}

bool in_cross(Point point, double reach, double width) {
    const std::array<Point, 2> falling{{{8 - reach, 8 - reach}, {8 + reach, 8 + reach}}};
    const std::array<Point, 2> rising{{{8 - reach, 8 + reach}, {8 + reach, 8 - reach}}};
    return on_line(point, falling, width) || on_line(point, rising, width);
}

bool in_disc(Point point) {
    return std::hypot(point.x - 8, point.y - 8) <= 7.5;
}

/// A sheet of paper with its outline and two lines of writing; clear outside it.
Ink sheet(Point point, Point corner) {
    const double x = point.x - corner.x;
    const double y = point.y - corner.y;
    constexpr double width = 9;
    constexpr double height = 10;
    constexpr double line = 1;
    if (x < 0 || y < 0 || x > width || y > height) return clear;
    const bool inside = x >= line && y >= line && x <= width - line && y <= height - line;
    if (!inside) return slate;
    const bool written =
        x >= 2.5 && x <= width - 2.5 && (std::abs(y - 3.5) <= 0.5 || std::abs(y - 6.5) <= 0.5);
    return written ? slate : white;
}

Ink ink_at(Sign sign, Point point) {
    switch (sign) {
        case Sign::accept:
            return in_check(point, 6, 2.4) ? green : clear;
        case Sign::papers: {
            const Ink front = sheet(point, {6, 5});
            return front.opacity > 0 ? front : sheet(point, {1, 1});
        }
        case Sign::accepted:
            if (in_check(point, 4, 1.8)) return white;
            return in_disc(point) ? green : clear;
        case Sign::rejected:
            break;
    }
    if (in_cross(point, 3, 1.8)) return white;
    return in_disc(point) ? red : clear;
}

/// Blue, green, red and opacity, from the lowest byte.
std::uint32_t pixel(Sign sign, int column, int row, int size) {
    Ink sum;
    for (int step = 0; step < samples * samples; ++step) {
        const int across = step % samples;
        const int down = step / samples;
        const double x = column + (across + 0.5) / samples;
        const double y = row + (down + 0.5) / samples;
        const Ink ink = ink_at(sign, {x * design_size / size, y * design_size / size});
        sum.red += ink.red * ink.opacity;
        sum.green += ink.green * ink.opacity;
        sum.blue += ink.blue * ink.opacity;
        sum.opacity += ink.opacity;
    }
    if (sum.opacity <= 0) return 0;
    const auto byte = [](double value) { return static_cast<std::uint32_t>(std::lround(value)); };
    constexpr double all = samples * samples;
    return byte(sum.blue / sum.opacity) | byte(sum.green / sum.opacity) << 8U |
           byte(sum.red / sum.opacity) << 16U | byte(sum.opacity / all * 255) << 24U;
}

}  // namespace

std::vector<std::uint32_t> draw_sign(Sign sign, int size) {
    std::vector<std::uint32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
    for (int row = 0; row < size; ++row) {
        for (int column = 0; column < size; ++column) {
            pixels.push_back(pixel(sign, column, row, size));
        }
    }
    return pixels;
}

}  // namespace kovrel
