// How the library speaks while there is a clsAvisos.
#pragma once

#include <cstdint>

#include "automation/class_info.h"

namespace kovrel {

enum class eModoAvisos : std::int32_t {
    maMostrar = 0,   ///< shown as ever, and noted
    maSilencio = 1,  ///< nothing is shown, everything is noted
    maEvento = 2,    ///< only the event; shown where its handler says so
};

extern const EnumInfo eModoAvisos_info;

[[nodiscard]] constexpr const EnumInfo& enumeration_info(eModoAvisos /*type*/) noexcept {
    return eModoAvisos_info;
}

}  // namespace kovrel
