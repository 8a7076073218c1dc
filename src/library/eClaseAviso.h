// The kinds of what the library says.
#pragma once

#include <cstdint>

#include "automation/class_info.h"
#include "runtime/announcement.h"

namespace kovrel {

enum class eClaseAviso : std::int32_t {
    caMensaje = static_cast<std::int32_t>(AnnouncementKind::message),
    caError = static_cast<std::int32_t>(AnnouncementKind::failure),
    caPregunta = static_cast<std::int32_t>(AnnouncementKind::question),
    caProgreso = static_cast<std::int32_t>(AnnouncementKind::progress),
    caVentana = static_cast<std::int32_t>(AnnouncementKind::window),
};

extern const EnumInfo eClaseAviso_info;

[[nodiscard]] constexpr const EnumInfo& enumeration_info(eClaseAviso /*type*/) noexcept {
    return eClaseAviso_info;
}

}  // namespace kovrel
