// Texts as SQL literals.
#pragma once

#include <string>
#include <string_view>

#include "sql/dialect.h"

namespace kovrel {

/// The text as an expression that the database reads back character by character, whatever the
/// text contains and whatever the settings of the session. Failure 5 for half of a surrogate pair,
/// and for a NUL in PostgreSQL, which cannot hold one.
///
/// Access: 'a', quotes doubled; NUL and the vertical bar, which its versions up to 97 and its ODBC
///   driver cannot read in a literal, as Chr(0) and Chr(124).
/// SQL Server: N'a'. A backslash before a line end would continue the line, and batches with a NUL
///   are cut short by some drivers: such texts are given by their bytes.
/// PostgreSQL: 'a', or E'a' with backslashes doubled, which standard_conforming_strings does not
///   change.
/// MySQL and MariaDB: 'a'. Whether a backslash escapes depends on NO_BACKSLASH_ESCAPES: a text with
///   one, or with a NUL, is given by its bytes.
/// SQLite: 'a'; NUL as char(0).
/// Oracle: 'a' where every character is in Latin-1, else UNISTR('a'): N'a' passes through the
///   database's own character set. A text past the 4000 bytes of a literal is an (N)CLOB. An empty
///   text is a null there.
[[nodiscard]] std::wstring text_literal(Dialect dialect, std::wstring_view text);

}  // namespace kovrel
