// What became of an entry of an archive.
#pragma once

#include <cstdint>

#include "automation/class_info.h"
#include "zip32/entry_state.h"

namespace kovrel {

enum class eEstadoEntrada : std::int32_t {
    esHecha = static_cast<std::int32_t>(zip::EntryState::done),
    esNoPedida = static_cast<std::int32_t>(zip::EntryState::left_out),
    esConservada = static_cast<std::int32_t>(zip::EntryState::kept_existing),
    esNoAnterior = static_cast<std::int32_t>(zip::EntryState::not_newer),
    esRechazada = static_cast<std::int32_t>(zip::EntryState::declined),
    esNombre = static_cast<std::int32_t>(zip::EntryState::bad_name),
    esReservado = static_cast<std::int32_t>(zip::EntryState::reserved_name),
    esTrasEnlace = static_cast<std::int32_t>(zip::EntryState::through_link),
    esEnlace = static_cast<std::int32_t>(zip::EntryState::link),
    esCifrada = static_cast<std::int32_t>(zip::EntryState::encrypted),
    esMetodo = static_cast<std::int32_t>(zip::EntryState::unknown_method),
    esCabeceras = static_cast<std::int32_t>(zip::EntryState::contradicting),
    esDatos = static_cast<std::int32_t>(zip::EntryState::damaged),
    esSuma = static_cast<std::int32_t>(zip::EntryState::wrong_checksum),
    esRepetida = static_cast<std::int32_t>(zip::EntryState::name_twice),
    esNoCreada = static_cast<std::int32_t>(zip::EntryState::cannot_create),
    esNoEscrita = static_cast<std::int32_t>(zip::EntryState::write_failed),
    esNoLeida = static_cast<std::int32_t>(zip::EntryState::read_failed),
    esNoAbierta = static_cast<std::int32_t>(zip::EntryState::cannot_open),
};

extern const EnumInfo eEstadoEntrada_info;

[[nodiscard]] constexpr const EnumInfo& enumeration_info(eEstadoEntrada /*type*/) noexcept {
    return eEstadoEntrada_info;
}

}  // namespace kovrel
