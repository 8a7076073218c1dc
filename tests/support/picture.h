// Pictures: copied from the screen, kept as PNG, and compared.
#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kovrel::test {

/// Pixels as 0x00BBGGRR, row by row.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    [[nodiscard]] std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
               static_cast<std::size_t>(x);
    }
    [[nodiscard]] std::uint32_t at(int x, int y) const { return pixels[index(x, y)]; }
    bool operator==(const Picture&) const = default;
};

/// What the screen shows in a rectangle that lies on it whole.
Picture picture_of_screen(const RECT& bounds);
/// An icon drawn on a background of one colour.
Picture picture_of(HICON icon, int size, std::uint32_t ground);

/// Empty where the file is missing or no picture.
std::optional<Picture> read_picture(const std::filesystem::path& file);
/// As PNG. Folders are made as needed.
bool write_picture(const Picture& picture, const std::filesystem::path& file);

/// How a picture differs from the expected one, empty where a user would see no difference: lone
/// pixels, slight changes of colour, and edges and letters drawn up to one pixel elsewhere do not
/// count; a missing or cut letter, a control moved by two pixels and a surface of another colour
/// do.
std::string difference(const Picture& expected, const Picture& seen);
/// The picture seen, in grey, with the pixels that are not as expected in red.
Picture marked_difference(const Picture& expected, const Picture& seen);

}  // namespace kovrel::test
