// The user's regional settings, read from the system at each call.
#pragma once

#include "runtime/regional.h"

namespace kovrel {

class SystemRegional final : public Regional {
 public:
    SystemRegional();
    [[nodiscard]] std::optional<double> number(std::wstring_view text) const override;
    [[nodiscard]] std::optional<double> date(std::wstring_view text) const override;
    [[nodiscard]] std::wstring short_date(std::int32_t day) const override;
    [[nodiscard]] std::wstring capitals(std::wstring_view text) const override;
};

/// The last of the hundred years that a two-digit year stands for: a setting of the user's.
[[nodiscard]] int two_digit_year_max();

}  // namespace kovrel
