// Any text as a literal, in every dialect and with either reading of a backslash, read back as it
// was; a text is refused only for what the database cannot hold. Patterns and names as well.
#include <string_view>

#include "runtime/failure.h"
#include "sql/pattern.h"
#include "sql/quoted_name.h"
#include "sql/text_literal.h"
#include "tests/fuzz/fuzz_text.h"
#include "tests/support/sql_reader.h"

namespace kovrel {
namespace {

/// Bytes in pairs are UTF-16 code units, halves of surrogate pairs among them.
std::wstring code_units(fuzz::Texts& texts, std::size_t size) {
    std::wstring text;
    for (; size > 1; size -= 2) {
        const auto high = static_cast<std::uint32_t>(texts.byte());
        text.push_back(static_cast<wchar_t>(high << 8U | texts.byte()));
    }
    return text;
}

bool has_half_a_pair(std::wstring_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto code = static_cast<std::uint32_t>(text[i]);
        if (code >= 0xDC00 && code < 0xE000) return true;
        if (code < 0xD800 || code >= 0xE000) continue;
        const auto next = ++i < text.size() ? static_cast<std::uint32_t>(text[i]) : 0;
        if (next < 0xDC00 || next >= 0xE000) return true;
    }
    return false;
}

void check(Dialect dialect, const std::wstring& text) {
    const bool holds = !has_half_a_pair(text) &&
                       (dialect != Dialect::postgresql || text.find(L'\0') == std::wstring::npos);
    try {
        const std::wstring literal = text_literal(dialect, text);
        fuzz::require(holds);
        for (const bool backslashes_escape : {false, true}) {
            testing_support::SqlReader reader(dialect, backslashes_escape);
            fuzz::require(reader.read(literal) == text);
        }
        const std::wstring clause = like_clause(dialect, escaped_pattern(dialect, text));
        fuzz::require(clause.size() > literal.size());
    } catch (const Failure& failure) {
        fuzz::require(failure.number() == 5 && !holds);
    }
    try {
        std::wstring name = quoted_name(dialect, text);
        const wchar_t closing = name.back();
        name = name.substr(1, name.size() - 2);
        // Every closing mark within is doubled.
        for (auto place = name.find(closing); place != std::wstring::npos;
             place = name.find(closing, place + 1)) {
            name.erase(place, 1);
            fuzz::require(place < name.size() && name[place] == closing);
        }
        fuzz::require(name == text);
    } catch (const Failure& failure) {
        fuzz::require(failure.number() == 5);
    }
}

}  // namespace
}  // namespace kovrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kovrel;
    fuzz::Texts narrow(data, size);
    fuzz::Texts wide(data, size);
    const std::wstring texts[] = {narrow.until('\x01'), code_units(wide, size)};
    for (int dialect = 0; dialect <= static_cast<int>(Dialect::oracle); ++dialect) {
        for (const std::wstring& text : texts) check(static_cast<Dialect>(dialect), text);
    }
    return 0;
}
