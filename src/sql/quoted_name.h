// Names of tables, fields and the like, quoted.
#pragma once

#include <string>
#include <string_view>

#include "sql/dialect.h"

namespace kovrel {

/// One name, quoted so that the database takes it whatever it contains. Failure 5 for one that the
/// database cannot have: empty, with a NUL or half of a surrogate pair, or
/// Access: over 64 characters, with . ! ` [ ] or a control character, or with a blank in front;
/// SQL Server: over 128 UTF-16 units;
/// PostgreSQL: over 63 bytes of UTF-8, which it would cut off;
/// MySQL and MariaDB: over 64 characters, with white space at the end or characters past U+FFFF;
/// Oracle: over 128 bytes of UTF-8 (30 before version 12.2, not checked), or with a quotation mark.
/// SQLite takes a name that it does not know between quotation marks for a text: there it is quoted
/// as in MySQL.
[[nodiscard]] std::wstring quoted_name(Dialect dialect, std::wstring_view name);

}  // namespace kovrel
