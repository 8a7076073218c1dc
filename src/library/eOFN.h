// The flags of the system's open-file dialog, under their published names.
#pragma once

#include <cstdint>

#include "automation/class_info.h"

namespace kovrel {

/// A combination of the OFN_ values that eOFN_info lists. Only OFN_ALLOWMULTISELECT is interpreted
/// by the library; the rest goes to the dialog.
enum class eOFN : std::int32_t {};

extern const EnumInfo eOFN_info;

[[nodiscard]] constexpr const EnumInfo& enumeration_info(eOFN /*type*/) noexcept {
    return eOFN_info;
}

}  // namespace kovrel
