// Twips, the unit in which windows are designed, and pixels at a display's resolution.
#pragma once

#include <algorithm>
#include <cmath>

namespace kovrel {

inline constexpr int twips_per_inch = 1440;

class Scale {
 public:
    /// Window coordinates are 16-bit in messages; larger values are clamped.
    static constexpr int pixel_limit = 32767;

    explicit Scale(int dots_per_inch = 96) noexcept : dots_per_inch_(dots_per_inch) {}

    [[nodiscard]] int dots_per_inch() const noexcept { return dots_per_inch_; }
    /// The nearest whole number of pixels.
    [[nodiscard]] int pixels(double twips) const noexcept {
        const double exact = std::round(twips * dots_per_inch_ / twips_per_inch);
        return static_cast<int>(std::clamp<double>(exact, -pixel_limit, pixel_limit));
    }
    [[nodiscard]] float twips(int pixels) const noexcept {
        return static_cast<float>(pixels) * twips_per_inch / static_cast<float>(dots_per_inch_);
    }
    bool operator==(const Scale&) const = default;

 private:
    int dots_per_inch_;
};

/// A place in a window, in twips.
struct Place {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

}  // namespace kovrel
