#include <algorithm>
#include <array>

#include "tests/support/picture.h"

namespace kovrel::test {
namespace {

constexpr std::uint32_t slight = 8;  // in each of red, green and blue
constexpr int cell = 16;             // pixels, in both directions
constexpr int step = cell / 2;       // so that two close pixels are in one cell
constexpr int lone_pixels = 1;       // in a cell
constexpr std::array<unsigned, 3> channels{0, 8, 16};

/// Each channel lies between the least and the greatest value that the other picture has at this
/// place and around it, so that a soft edge may fall differently on the pixels.
bool fits(std::uint32_t pixel, const Picture& other, int x, int y) {
    const int left = std::max(x - 1, 0);
    const int right = std::min(x + 1, other.width - 1);
    const int bottom = std::min(y + 1, other.height - 1);
    std::array<std::uint32_t, 3> least{0xFF, 0xFF, 0xFF};
    std::array<std::uint32_t, 3> greatest{};
    for (int row = std::max(y - 1, 0); row <= bottom; ++row) {
        for (int column = left; column <= right; ++column) {
            const std::uint32_t neighbour = other.at(column, row);
            for (std::size_t channel = 0; channel < 3; ++channel) {
                const std::uint32_t value = neighbour >> channels[channel] & 0xFFU;
                least[channel] = std::min(least[channel], value);
                greatest[channel] = std::max(greatest[channel], value);
            }
        }
    }
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const std::uint32_t value = pixel >> channels[channel] & 0xFFU;
        if (value + slight < least[channel] || value > greatest[channel] + slight) return false;
    }
    return true;
}

/// Pixels of either picture that have nothing like them in the other one; both are of one size.
std::vector<bool> unlike(const Picture& expected, const Picture& seen) {
    std::vector<bool> result(seen.pixels.size());
    for (int y = 0; y < seen.height; ++y) {
        for (int x = 0; x < seen.width; ++x) {
            const std::uint32_t now = seen.at(x, y);
            const std::uint32_t then = expected.at(x, y);
            result[seen.index(x, y)] =
                now != then && !(fits(now, expected, x, y) && fits(then, seen, x, y));
        }
    }
    return result;
}

int count_in(const std::vector<bool>& marks, const Picture& picture, int left, int top) {
    int count = 0;
    for (int y = top; y < std::min(top + cell, picture.height); ++y) {
        for (int x = left; x < std::min(left + cell, picture.width); ++x) {
            count += marks[picture.index(x, y)] ? 1 : 0;
        }
    }
    return count;
}

std::string size_of(const Picture& picture) {
    return std::to_string(picture.width) + " by " + std::to_string(picture.height);
}

bool same_size(const Picture& one, const Picture& other) {
    return one.width == other.width && one.height == other.height;
}

}  // namespace

std::string difference(const Picture& expected, const Picture& seen) {
    if (!same_size(expected, seen)) return size_of(seen) + " instead of " + size_of(expected);
    if (expected == seen) return {};
    const std::vector<bool> marks = unlike(expected, seen);
    for (int top = 0; top < seen.height; top += step) {
        for (int left = 0; left < seen.width; left += step) {
            const int count = count_in(marks, seen, left, top);
            if (count <= lone_pixels) continue;
            return std::to_string(std::count(marks.begin(), marks.end(), true)) +
                   " pixels differ, first those near " + std::to_string(left) + ", " +
                   std::to_string(top);
        }
    }
    return {};
}

Picture marked_difference(const Picture& expected, const Picture& seen) {
    Picture result = seen;
    if (!same_size(expected, seen)) return result;
    const std::vector<bool> marks = unlike(expected, seen);
    for (std::size_t index = 0; index < marks.size(); ++index) {
        const std::uint32_t pixel = seen.pixels[index];
        const std::uint32_t grey = 0x80 + (pixel >> 8U & 0xFFU) / 2;
        result.pixels[index] = marks[index] ? 0x0000FF : grey << 16U | grey << 8U | grey;
    }
    return result;
}

}  // namespace kovrel::test
