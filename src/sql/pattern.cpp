#include "sql/pattern.h"

#include "runtime/text.h"
#include "sql/text_literal.h"

namespace kovrel {
namespace {

std::wstring_view special_characters(Dialect dialect) {
    switch (dialect) {
        case Dialect::access:
            return L"%_*?#[";
        case Dialect::sql_server:
            return L"%_[!";
        default:
            return L"%_!";
    }
}

}  // namespace

std::wstring escaped_pattern(Dialect dialect, std::wstring_view text) {
    const auto special = special_characters(dialect);
    std::wstring pattern;
    for (const wchar_t character : text) {
        const std::wstring_view unit(&character, 1);
        if (special.find(character) == std::wstring_view::npos) {
            pattern += unit;
        } else if (dialect == Dialect::access) {
            pattern += concat({L"[", unit, L"]"});
        } else {
            pattern += concat({L"!", unit});
        }
    }
    return pattern;
}

std::wstring like_clause(Dialect dialect, std::wstring_view pattern) {
    const std::wstring literal = text_literal(dialect, pattern);
    if (dialect == Dialect::access) return L"ALIKE " + literal;
    return concat({L"LIKE ", literal, L" ESCAPE '!'"});
}

}  // namespace kovrel
