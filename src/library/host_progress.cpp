#include "library/host_progress.h"

namespace kovrel {

HostProgress::HostProgress(const ComPtr<IDispatch>& general) {
    if (general) general_.emplace(general);
}

bool HostProgress::advances(std::uint64_t done, std::uint64_t total) noexcept {
    const double part =
        done >= total ? 1.0 : static_cast<double>(done) / static_cast<double>(total);
    const auto percentage = static_cast<std::int32_t>(part * 100);
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
