// The user's regional settings, as an interface for the rules.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace kovrel {

/// How the user writes numbers and dates.
struct RegionalSettings {
    wchar_t decimal_separator = L',';
    wchar_t group_separator = L'.';
    /// What stands for "/" in a date pattern.
    std::wstring date_separator = L"/";
};

/// Parsing and formatting by the user's settings and language. The platform does it; rules reach it
/// through this interface, so that they can be built and tested natively.
class Regional {
 public:
    explicit Regional(RegionalSettings settings) : settings_(std::move(settings)) {}
    virtual ~Regional() = default;

    [[nodiscard]] const RegionalSettings& settings() const noexcept { return settings_; }

    /// The number that a text stands for; absent when the text is not a number.
    [[nodiscard]] virtual std::optional<double> number(std::wstring_view text) const = 0;
    /// The date that a text stands for, as a day count (30 December 1899 is 0, the time of day is
    /// the fraction); absent when the text is not a date.
    [[nodiscard]] virtual std::optional<double> date(std::wstring_view text) const = 0;
    /// The date of a day count of the years 100 to 9999 by the user's short date pattern.
    [[nodiscard]] virtual std::wstring short_date(std::int32_t day) const = 0;
    /// The text in capitals, each character by itself.
    [[nodiscard]] virtual std::wstring capitals(std::wstring_view text) const = 0;

 private:
    RegionalSettings settings_;
};

}  // namespace kovrel
