// The user's regional settings, as the system holds them at the moment of the call.
#pragma once

#include "runtime/regional.h"

namespace kovrel {

class SystemRegional final : public Regional {
 public:
    SystemRegional();
    [[nodiscard]] std::optional<double> number(std::wstring_view text) const override;
    [[nodiscard]] std::optional<double> date(std::wstring_view text) const override;
};

}  // namespace kovrel
