// The host's progress window, a clsFGen, while the library works through a list or an archive.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "automation/com_ptr.h"
#include "automation/host_object.h"

namespace kovrel {

class HostProgress {
 public:
    /// `general`: a clsFGen, or none.
    explicit HostProgress(const ComPtr<IDispatch>& general);

    [[nodiscard]] bool has_window() const noexcept { return general_.has_value(); }
    /// Whether another hundredth is done than when it was true last; percentage() is then the new
    /// one.
    [[nodiscard]] bool advances(std::uint64_t done, std::uint64_t total) noexcept;
    [[nodiscard]] std::int32_t percentage() const noexcept { return percentage_; }
    void show(const std::wstring& message) const;
    [[nodiscard]] bool is_canceled() const;

 private:
    std::optional<HostObject> general_;
    std::int32_t percentage_ = -1;
};

}  // namespace kovrel
