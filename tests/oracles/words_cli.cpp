// Reads one number a line and prints its words, in UTF-8, for comparison with other programs.
#include <iostream>
#include <string>

#include "numbers/words.h"
#include "tests/support/spanish_regional.h"

namespace {

/// For texts in Latin-1, which all number words are.
std::string to_utf8(const std::wstring& text) {
    std::string result;
    for (const wchar_t character : text) {
        const auto code = static_cast<unsigned>(character);
        if (code < 0x80) {
            result.push_back(static_cast<char>(code));
        } else {
            result.push_back(static_cast<char>(0xC0U | (code >> 6U)));
            result.push_back(static_cast<char>(0x80U | (code & 0x3FU)));
        }
    }
    return result;
}

}  // namespace

int main() {
    const kovrel::testing_support::SpanishRegional regional;
    bool failed = false;
    const kovrel::WordsContext context{regional, [&](const kovrel::Failure&) { failed = true; }};
    for (std::string line; std::getline(std::cin, line);) {
        const std::wstring text(line.begin(), line.end());
        std::cout << to_utf8(kovrel::text_in_words(text, {}, {}, context)) << '\n';
    }
    return failed ? 1 : 0;
}
