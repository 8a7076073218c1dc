// Patterns of LIKE, in which % stands for any characters and _ for one, in every dialect.
#pragma once

#include <string>
#include <string_view>

#include "sql/dialect.h"

namespace kovrel {

/// A text as part of a pattern that finds just these characters: those that mean something in a
/// pattern are put between brackets in Access (with either of its sets of wildcards, * ? # and %
/// _), and after a "!" in the others.
[[nodiscard]] std::wstring escaped_pattern(Dialect dialect, std::wstring_view text);

/// LIKE with the pattern and the ESCAPE clause that escaped_pattern asks for: "LIKE 'a%' ESCAPE
/// '!'". In Access, "ALIKE 'a%'": LIKE has other wildcards in DAO than in ADO, ALIKE the same.
[[nodiscard]] std::wstring like_clause(Dialect dialect, std::wstring_view pattern);

}  // namespace kovrel
