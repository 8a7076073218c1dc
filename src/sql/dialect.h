// The databases that SQL texts are written for.
#pragma once

#include <cstdint>

namespace kovrel {

enum class Dialect : std::int32_t {
    access = 0,
    sql_server = 1,
    postgresql = 2,
    mysql = 3,  ///< and MariaDB
    sqlite = 4,
    oracle = 5,
};

}  // namespace kovrel
