// Why a text is not an identifier.
#pragma once

#include <cstdint>

#include "automation/class_info.h"
#include "identifiers/identifier.h"

namespace kovrel {

enum class eMotivo : std::int32_t {
    moCorrecto = static_cast<std::int32_t>(IdentifierFault::none),
    moVacio = static_cast<std::int32_t>(IdentifierFault::empty),
    moCaracteres = static_cast<std::int32_t>(IdentifierFault::characters),
    moLongitud = static_cast<std::int32_t>(IdentifierFault::length),
    moPrimeraLetra = static_cast<std::int32_t>(IdentifierFault::first_letter),
    moControl = static_cast<std::int32_t>(IdentifierFault::control),
    moValor = static_cast<std::int32_t>(IdentifierFault::value),
    moPais = static_cast<std::int32_t>(IdentifierFault::country),
    moCuenta = static_cast<std::int32_t>(IdentifierFault::inner_account),
};

extern const EnumInfo eMotivo_info;

[[nodiscard]] constexpr const EnumInfo& enumeration_info(eMotivo /*type*/) noexcept {
    return eMotivo_info;
}

}  // namespace kovrel
