// What taking out does with files that exist.
#pragma once

#include <cstdint>

#include "automation/class_info.h"
#include "zip/archive_engine.h"

namespace kovrel {

enum class eExistentes : std::int32_t {
    exConserva = static_cast<std::int32_t>(ExistingFiles::keep),
    exReemplaza = static_cast<std::int32_t>(ExistingFiles::replace),
    exReemplazaAntiguo = static_cast<std::int32_t>(ExistingFiles::replace_older),
    exPregunta = static_cast<std::int32_t>(ExistingFiles::ask),
};

extern const EnumInfo eExistentes_info;

[[nodiscard]] constexpr const EnumInfo& enumeration_info(eExistentes /*type*/) noexcept {
    return eExistentes_info;
}

}  // namespace kovrel
