// Verifies one code a line, a tax id or a bank account code, for comparison with other programs.
// Prints, in UTF-8: the identifier (for an account, its correct control digits), a tab, and the
// text of the box.
#include <iostream>
#include <string>

#include "runtime/failure.h"
#include "taxid/bank_account.h"
#include "taxid/tax_id.h"
#include "tests/support/spanish_regional.h"

namespace {

/// For texts in Latin-1, which all messages are.
std::string to_utf8(std::wstring_view text) {
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

void print(std::wstring_view result, const std::optional<kovrel::Notice>& notice) {
    std::cout << to_utf8(result) << '\t' << (notice ? to_utf8(notice->text) : "") << '\n';
}

void print_tax_id(std::wstring_view typed, const kovrel::Regional& regional) {
    try {
        const auto verdict = kovrel::verify_tax_id(typed, regional);
        print(verdict.result,
              verdict.fault ? std::optional(verdict.fault->notice()) : std::nullopt);
    } catch (const kovrel::Failure& failure) {
        std::cout << "\tfailure " << failure.number() << '\n';
    }
}

void print_bank_account(std::wstring_view code) {
    const auto right = kovrel::control_digits(kovrel::bank_of(code), kovrel::branch_of(code),
                                              kovrel::account_of(code));
    print(right, kovrel::bank_account_notice(code, right, true));
}

}  // namespace

int main() {
    const kovrel::testing_support::SpanishRegional regional;
    for (std::string line; std::getline(std::cin, line);) {
        const std::wstring text(line.begin(), line.end());
        constexpr std::size_t account_length = 20;
        if (text.size() == account_length) {
            print_bank_account(text);
        } else {
            print_tax_id(text, regional);
        }
    }
    return 0;
}
