// Reads text literals as the databases do, each with either value of the setting that changes how a
// backslash is read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sql/dialect.h"

namespace kovrel::testing_support {

class SqlReader {
 public:
    /// `backslashes_escape`: MySQL without NO_BACKSLASH_ESCAPES, PostgreSQL without
    /// standard_conforming_strings.
    SqlReader(Dialect dialect, bool backslashes_escape)
        : dialect_(dialect), backslashes_escape_(backslashes_escape) {}

    /// The text that the literal stands for; absent where it is not one whole expression.
    [[nodiscard]] std::optional<std::wstring> read(std::wstring_view literal) {
        rest_ = literal;
        is_right_ = true;
        std::wstring text = expression();
        if (!is_right_ || !rest_.empty()) return std::nullopt;
        return text;
    }

 private:
    bool take(std::wstring_view expected) {
        if (rest_.substr(0, expected.size()) != expected) return false;
        rest_.remove_prefix(expected.size());
        return true;
    }
    void need(std::wstring_view expected) {
        if (!take(expected)) is_right_ = false;
    }

    std::wstring expression() {
        if (!is_right_ || !take(L"(")) return primary();
        std::wstring text = expression();
        need(dialect_ == Dialect::access ? L" & " : L" || ");
        text += expression();
        need(L")");
        return text;
    }

    std::wstring primary() {
        switch (dialect_) {
            case Dialect::access:
                return take(L"Chr(") ? character() : string(false);
            case Dialect::sqlite:
                return take(L"char(") ? character() : string(false);
            case Dialect::sql_server:
                return sql_server();
            case Dialect::postgresql:
                return string(take(L"E") || backslashes_escape_);
            case Dialect::mysql:
                return take(L"_utf8mb4 X'") ? utf8() : string(backslashes_escape_);
            default:
                return oracle();
        }
    }

    /// A string literal from its first quote to its last.
    std::wstring string(bool backslashes_escape) {
        std::wstring text;
        need(L"'");
        while (is_right_ && !rest_.empty()) {
            const wchar_t character = rest_.front();
            rest_.remove_prefix(1);
            if (character == L'\'' && !take(L"'")) return text;
            if (character == L'\\' && backslashes_escape) {
                // No other escape is written.
                need(L"\\");
            }
            text.push_back(character);
        }
        is_right_ = false;
        return text;
    }

    std::wstring character() {
        std::uint32_t code = 0;
        for (; !rest_.empty() && rest_.front() != L')'; rest_.remove_prefix(1)) {
            code = code * 10 + static_cast<std::uint32_t>(rest_.front() - L'0');
        }
        need(L")");
        return {static_cast<wchar_t>(code)};
    }

    std::uint32_t hexadecimal(std::size_t digits) {
        std::uint32_t number = 0;
        for (; digits > 0 && is_right_; --digits) {
            const auto place =
                std::wstring_view(L"0123456789ABCDEF").find(rest_.empty() ? L'?' : rest_.front());
            if (place == std::wstring_view::npos)
                is_right_ = false;
            else
                rest_.remove_prefix(1);
            number = number << 4U | static_cast<std::uint32_t>(place);
        }
        return number;
    }

    std::wstring sql_server() {
        std::wstring text;
        if (!take(L"CAST(0x")) {
            need(L"N");
            text = string(false);
            // A backslash before a line end would have been removed with it.
            for (const auto* const end : {L"\\\r", L"\\\n"}) {
                if (text.find(end) != std::wstring::npos) is_right_ = false;
            }
            return text;
        }
        while (is_right_ && !take(L" AS nvarchar(")) {
            const auto low = hexadecimal(2);
            text.push_back(static_cast<wchar_t>(hexadecimal(2) << 8U | low));
        }
        need(text.size() > 4000 ? L"max))" : L"4000))");
        return text;
    }

    std::wstring utf8() {
        std::wstring text;
        while (is_right_ && !take(L"'")) {
            const auto lead = hexadecimal(2);
            const int more = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
            std::uint32_t code = more == 0 ? lead : lead & (0x3FU >> more);
            for (int i = 0; i < more; ++i) code = code << 6U | (hexadecimal(2) & 0x3FU);
            if (code >= 0x10000) {
                text.push_back(static_cast<wchar_t>(0xD7C0 + (code >> 10U)));
                code = 0xDC00 + (code & 0x3FFU);
            }
            text.push_back(static_cast<wchar_t>(code));
        }
        return text;
    }

    /// A literal may have 4000 bytes, a value of UNISTR as many in UTF-16.
    std::wstring oracle() {
        if (take(L"TO_NCLOB(") || take(L"TO_CLOB(")) {
            std::wstring text = oracle();
            need(L")");
            return text;
        }
        const bool is_national = take(L"UNISTR(");
        const std::wstring_view before = rest_;
        std::wstring source = string(false);
        std::size_t bytes = 0;
        for (const wchar_t character : before.substr(0, before.size() - rest_.size())) {
            bytes += static_cast<std::uint32_t>(character) < 0x80 ? 1 : 2;
        }
        if (bytes > 4000 + 2) is_right_ = false;
        if (!is_national) return source;
        need(L")");
        const std::wstring_view outer = rest_;
        rest_ = source;
        std::wstring text;
        while (!rest_.empty() && is_right_) {
            if (static_cast<std::uint32_t>(rest_.front()) >= 0x80) is_right_ = false;
            if (!take(L"\\") || rest_.substr(0, 1) == L"\\") {
                text.push_back(rest_.front());
                rest_.remove_prefix(1);
            } else {
                text.push_back(static_cast<wchar_t>(hexadecimal(4)));
            }
        }
        rest_ = outer;
        if (text.size() > 2000) is_right_ = false;
        return text;
    }

    Dialect dialect_;
    bool backslashes_escape_;
    std::wstring_view rest_;
    bool is_right_ = true;
};

}  // namespace kovrel::testing_support
