// The flags of the system's open-file dialog, under their published names.
#pragma once

#include <cstdint>

#include "automation/class_info.h"

namespace kovrel {

/// A combination of the OFN_ values that eOFN_info lists; not interpreted here but for
/// OFN_ALLOWMULTISELECT.
enum class eOFN : std::int32_t {};

extern const EnumInfo eOFN_info;

[[nodiscard]] constexpr const EnumInfo& enumeration_info(eOFN /*type*/) noexcept {
    return eOFN_info;
}

}  // namespace kovrel
