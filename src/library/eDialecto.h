// The databases that clsFSQL writes for.
#pragma once

#include <cstdint>

#include "automation/class_info.h"
#include "sql/dialect.h"

namespace kovrel {

enum class eDialecto : std::int32_t {
    diAccess = static_cast<std::int32_t>(Dialect::access),
    diSQLServer = static_cast<std::int32_t>(Dialect::sql_server),
    diPostgreSQL = static_cast<std::int32_t>(Dialect::postgresql),
    diMySQL = static_cast<std::int32_t>(Dialect::mysql),
    diSQLite = static_cast<std::int32_t>(Dialect::sqlite),
    diOracle = static_cast<std::int32_t>(Dialect::oracle),
};

extern const EnumInfo eDialecto_info;

[[nodiscard]] constexpr const EnumInfo& enumeration_info(eDialecto /*type*/) noexcept {
    return eDialecto_info;
}

}  // namespace kovrel
