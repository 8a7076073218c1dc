#include "sql/text_literal.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "runtime/text.h"
#include "sql/characters.h"

namespace kovrel {
namespace {

using namespace std::string_view_literals;

void check_characters(std::wstring_view text) {
    while (!text.empty()) (void)take_code_point(text);
}

void append_doubled(std::wstring& result, std::wstring_view text, std::wstring_view doubled) {
    for (const wchar_t character : text) {
        if (doubled.find(character) != std::wstring_view::npos) result.push_back(character);
        result.push_back(character);
    }
}

std::wstring quoted(std::wstring_view prefix, std::wstring_view text,
                    std::wstring_view doubled = L"'") {
    std::wstring result(prefix);
    result.reserve(prefix.size() + text.size() + 2);
    result.push_back(L'\'');
    append_doubled(result, text, doubled);
    result.push_back(L'\'');
    return result;
}

bool contains(std::wstring_view text, std::wstring_view characters) {
    return text.find_first_of(characters) != std::wstring_view::npos;
}

/// The pieces with an operator between them, in parentheses where there is more than one. Databases
/// limit how deep an expression may be nested: the pieces are joined by halves.
void append_joined(std::wstring& text, const std::wstring* first, std::size_t count,
                   std::wstring_view operator_text) {
    if (count == 1) {
        text += *first;
        return;
    }
    const std::size_t half = count / 2;
    text.push_back(L'(');
    append_joined(text, first, half, operator_text);
    text += operator_text;
    append_joined(text, first + half, count - half, operator_text);
    text.push_back(L')');
}

std::wstring joined(const std::vector<std::wstring>& pieces, std::wstring_view operator_text) {
    std::wstring text;
    append_joined(text, pieces.data(), pieces.size(), operator_text);
    return text;
}

/// Some characters as calls of the function that gives the character of a code, the rest quoted.
std::wstring with_calls(std::wstring_view text, std::wstring_view called,
                        std::wstring_view function, std::wstring_view operator_text) {
    std::vector<std::wstring> pieces;
    while (!text.empty()) {
        const auto length = std::min(text.find_first_of(called), text.size());
        if (length > 0) pieces.push_back(quoted({}, text.substr(0, length)));
        text.remove_prefix(length);
        if (text.empty()) break;
        pieces.push_back(concat({function, L"(", decimal_text(text.front()), L")"}));
        text.remove_prefix(1);
    }
    return joined(pieces, operator_text);
}

std::wstring access_text(std::wstring_view text) {
    constexpr auto called = L"\0|"sv;
    return contains(text, called) ? with_calls(text, called, L"Chr", L" & ") : quoted({}, text);
}

std::wstring sqlite_text(std::wstring_view text) {
    constexpr auto called = L"\0"sv;
    return contains(text, called) ? with_calls(text, called, L"char", L" || ") : quoted({}, text);
}

/// A backslash before a line end, or a NUL.
bool needs_bytes_in_sql_server(std::wstring_view text) {
    for (const auto end : {L"\\\r"sv, L"\\\n"sv, L"\0"sv}) {
        if (text.find(end) != std::wstring_view::npos) return true;
    }
    return false;
}

std::wstring sql_server_text(std::wstring_view text) {
    if (!needs_bytes_in_sql_server(text)) return quoted(L"N", text);
    constexpr std::size_t most_units = 4000;
    constexpr unsigned byte_bits = 8;
    std::vector<std::uint8_t> bytes;
    std::wstring units;
    while (!text.empty()) append_code_point(units, take_code_point(text));
    for (const wchar_t unit : units) {
        const auto code = static_cast<std::uint32_t>(unit);
        bytes.push_back(static_cast<std::uint8_t>(code));
        bytes.push_back(static_cast<std::uint8_t>(code >> byte_bits));
    }
    return concat({L"CAST(0x", hexadecimal(bytes.data(), bytes.size()), L" AS nvarchar(",
                   units.size() > most_units ? L"max" : L"4000", L"))"});
}

std::wstring postgresql_text(std::wstring_view text) {
    if (contains(text, L"\0"sv)) {
        refuse_literal(L"PostgreSQL no admite el carácter nulo en un texto");
    }
    return contains(text, L"\\") ? quoted(L"E", text, L"'\\") : quoted({}, text);
}

std::wstring mysql_text(std::wstring_view text) {
    if (!contains(text, L"\\\0"sv)) return quoted({}, text);
    const auto bytes = utf8_of(text);
    return concat({L"_utf8mb4 X'", hexadecimal(bytes.data(), bytes.size()), L"'"});
}

/// The characters that the Western European character sets have alike.
bool is_latin(char32_t code) {
    constexpr auto last_ascii = U'~';
    return code != 0 && (code <= last_ascii || (code >= U'\xA0' && code <= U'\xFF'));
}

/// An Oracle literal, in pieces of no more than what one may have.
class OracleText {
 public:
    explicit OracleText(std::wstring_view text) {
        for (auto rest = text; !rest.empty();) {
            if (!is_latin(take_code_point(rest))) is_national_ = true;
        }
        while (!text.empty()) append(take_code_point(text));
    }

    [[nodiscard]] std::wstring literal() {
        if (pieces_.empty()) return whole(piece_);
        next_piece();
        for (std::wstring& piece : pieces_) {
            piece = concat({is_national_ ? L"TO_NCLOB(" : L"TO_CLOB(", whole(piece), L")"});
        }
        return joined(pieces_, L" || ");
    }

 private:
    /// Of a literal; a Latin-1 character may take two. UNISTR's result has two for each unit.
    static constexpr std::size_t most_bytes = 4000;
    static constexpr std::size_t most_units = 2000;

    [[nodiscard]] std::wstring whole(std::wstring_view piece) const {
        return concat({is_national_ ? L"UNISTR('" : L"'", piece, is_national_ ? L"')" : L"'"});
    }

    void append(char32_t code) {
        std::wstring added;
        std::wstring units;
        append_code_point(units, code);
        if (code == U'\'' || (code == U'\\' && is_national_)) {
            added.assign(2, units.front());
        } else if (is_national_ && (code == 0 || code >= 0x7F)) {
            for (const wchar_t unit : units) {
                added.push_back(L'\\');
                append_hexadecimal(added, static_cast<std::uint32_t>(unit), 4);
            }
        } else {
            added = units;
        }
        const std::size_t bytes = is_national_ || code < 0x80 ? added.size() : 2;
        if (bytes_ + bytes > most_bytes || (is_national_ && units_ + units.size() > most_units)) {
            next_piece();
        }
        piece_ += added;
        bytes_ += bytes;
        units_ += units.size();
    }

    void next_piece() {
        pieces_.push_back(std::move(piece_));
        piece_.clear();
        bytes_ = 0;
        units_ = 0;
    }

    bool is_national_ = false;
    std::vector<std::wstring> pieces_;
    std::wstring piece_;
    std::size_t bytes_ = 0;
    std::size_t units_ = 0;
};

}  // namespace

std::wstring text_literal(Dialect dialect, std::wstring_view text) {
    check_characters(text);
    switch (dialect) {
        case Dialect::access:
            return access_text(text);
        case Dialect::sql_server:
            return sql_server_text(text);
        case Dialect::postgresql:
            return postgresql_text(text);
        case Dialect::mysql:
            return mysql_text(text);
        case Dialect::sqlite:
            return sqlite_text(text);
        default:
            return OracleText(text).literal();
    }
}

}  // namespace kovrel
