#include "library/eDialecto.h"

namespace kovrel {
namespace {

constexpr EnumInfo::Value dialects[]{
    {L"diAccess", static_cast<std::int32_t>(eDialecto::diAccess),
     L"Access: Jet y ACE, por DAO o por ADO."},
    {L"diSQLServer", static_cast<std::int32_t>(eDialecto::diSQLServer), L"SQL Server."},
    {L"diPostgreSQL", static_cast<std::int32_t>(eDialecto::diPostgreSQL), L"PostgreSQL."},
    {L"diMySQL", static_cast<std::int32_t>(eDialecto::diMySQL), L"MySQL y MariaDB."},
    {L"diSQLite", static_cast<std::int32_t>(eDialecto::diSQLite), L"SQLite."},
    {L"diOracle", static_cast<std::int32_t>(eDialecto::diOracle), L"Oracle."},
};

}  // namespace

constinit const EnumInfo eDialecto_info{
    .name = L"eDialecto",
    .help = L"Base de datos para la que se escribe el SQL.",
    .id = {0x3279baa2, 0xefa9, 0x4146, {0xaf, 0xec, 0x29, 0xe6, 0xd4, 0xf5, 0x21, 0x9e}},
    .values = dialects,
};

}  // namespace kovrel
