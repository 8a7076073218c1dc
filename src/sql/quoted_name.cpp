#include "sql/quoted_name.h"

#include <algorithm>

#include "sql/characters.h"

namespace kovrel {
namespace {

std::wstring between(wchar_t opening, std::wstring_view name, wchar_t closing) {
    std::wstring result(1, opening);
    for (const wchar_t character : name) {
        if (character == closing) result.push_back(character);
        result.push_back(character);
    }
    result.push_back(closing);
    return result;
}

void check_length(std::size_t length, std::size_t most) {
    if (length > most) refuse_literal(L"el nombre es demasiado largo");
}

void check_characters_of_name(bool are_taken) {
    if (!are_taken) refuse_literal(L"la base de datos no admite ese nombre");
}

std::wstring access_name(std::wstring_view name) {
    constexpr std::size_t most = 64;
    constexpr wchar_t first_printable = L' ';
    check_length(name.size(), most);
    check_characters_of_name(name.front() != L' ' &&
                             name.find_first_of(L".!`[]") == std::wstring_view::npos &&
                             std::all_of(name.begin(), name.end(), [](wchar_t character) {
                                 return character >= first_printable;
                             }));
    return between(L'[', name, L']');
}

std::wstring mysql_name(std::wstring_view name) {
    constexpr std::size_t most = 64;
    check_length(name.size(), most);
    check_characters_of_name(std::wstring_view(L" \t\n\v\f\r").find(name.back()) ==
                             std::wstring_view::npos);
    for (auto rest = name; !rest.empty();) {
        check_characters_of_name(take_code_point(rest) <= U'\xFFFF');
    }
    return between(L'`', name, L'`');
}

}  // namespace

std::wstring quoted_name(Dialect dialect, std::wstring_view name) {
    constexpr std::size_t most_sql_server = 128;
    constexpr std::size_t most_postgresql = 63;
    constexpr std::size_t most_oracle = 128;
    if (name.empty()) refuse_literal(L"el nombre está vacío");
    const std::size_t bytes = utf8_of(name).size();
    check_characters_of_name(name.find(L'\0') == std::wstring_view::npos);
    switch (dialect) {
        case Dialect::access:
            return access_name(name);
        case Dialect::sql_server:
            check_length(name.size(), most_sql_server);
            return between(L'[', name, L']');
        case Dialect::postgresql:
            check_length(bytes, most_postgresql);
            return between(L'"', name, L'"');
        case Dialect::mysql:
            return mysql_name(name);
        case Dialect::sqlite:
            return between(L'`', name, L'`');
        default:
            check_length(bytes, most_oracle);
            check_characters_of_name(name.find(L'"') == std::wstring_view::npos);
            return between(L'"', name, L'"');
    }
}

}  // namespace kovrel
