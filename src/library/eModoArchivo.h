// What packing does with an archive that exists.
#pragma once

#include <cstdint>

#include "automation/class_info.h"
#include "zip/archive_engine.h"

namespace kovrel {

enum class eModoArchivo : std::int32_t {
    arNuevo = static_cast<std::int32_t>(PackMode::afresh),
    arAnade = static_cast<std::int32_t>(PackMode::add),
    arActualiza = static_cast<std::int32_t>(PackMode::update),
    arRefresca = static_cast<std::int32_t>(PackMode::refresh),
};

extern const EnumInfo eModoArchivo_info;

[[nodiscard]] constexpr const EnumInfo& enumeration_info(eModoArchivo /*type*/) noexcept {
    return eModoArchivo_info;
}

}  // namespace kovrel
