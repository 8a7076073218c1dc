#include "library/host_progress.h"

#include <algorithm>
#include <limits>

namespace kovrel {

HostProgress::HostProgress(const ComPtr<IDispatch>& general) {
    if (general) general_.emplace(general);
}

bool HostProgress::advances(std::uint64_t done, std::uint64_t total) noexcept {
    if (done >= total) done = total = 1;
    // In whole numbers, without overflow for any sizes that an archive may claim.
    constexpr std::uint64_t largest = std::numeric_limits<std::uint64_t>::max() / 100;
    const std::uint64_t part = total > largest ? done / (total / 100) : done * 100 / total;
    const auto percentage = static_cast<std::int32_t>(std::min<std::uint64_t>(part, 100));
    if (percentage == percentage_) return false;
    percentage_ = percentage;
    return true;
}

void HostProgress::show(const std::wstring& message) const {
    general_->call(L"BarraProgresoActualiza", {Variant(percentage_), Variant(message)});
}

bool HostProgress::is_canceled() const {
    return general_->call(L"BarraProgresoCancelada").to_bool();
}

}  // namespace kovrel
