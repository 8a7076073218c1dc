// The text of a progress bar.
#pragma once

#include <cstdint>
#include <string>

namespace kovrel {

/// The percentage without leading zeros and "%": 50 gives "50%", 0 has no digit and gives "%",
/// -5 gives "-5%".
[[nodiscard]] std::wstring progress_label(std::int32_t percentage);

}  // namespace kovrel
