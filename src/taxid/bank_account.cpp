#include "taxid/bank_account.h"

#include <array>
#include <cstddef>

#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::size_t bank_and_branch_length = 8;
constexpr std::size_t account_length = 10;

// From the left: the account's digits use all weights, bank and branch the last eight.
constexpr std::array<int, account_length> weights{1, 2, 4, 8, 5, 10, 9, 7, 3, 6};

wchar_t control_digit(std::wstring_view digits, std::size_t length) noexcept {
    int sum = 0;
    for (std::size_t i = 0; i < length && i < digits.size(); ++i) {
        if (is_digit(digits[i])) sum += (digits[i] - L'0') * weights[account_length - length + i];
    }
    const auto remainder = static_cast<std::size_t>(sum % 11);
    // 11 minus the remainder, where 11 is written 0 and 10 is written 1.
    return std::wstring_view(L"01987654321")[remainder];
}

}  // namespace

std::wstring_view bank_of(std::wstring_view code) noexcept {
    return middle(code, 1, 4);
}
std::wstring_view branch_of(std::wstring_view code) noexcept {
    return middle(code, 5, 4);
}
std::wstring_view control_digits_of(std::wstring_view code) noexcept {
    return middle(code, 9, 2);
}
std::wstring_view account_of(std::wstring_view code) noexcept {
    return middle(code, 11, 10);
}

wchar_t bank_control_digit(std::wstring_view bank_and_branch) noexcept {
    return control_digit(bank_and_branch, bank_and_branch_length);
}
wchar_t account_control_digit(std::wstring_view account) noexcept {
    return control_digit(account, account_length);
}

std::wstring control_digits(std::wstring_view bank, std::wstring_view branch,
                            std::wstring_view account) {
    std::wstring bank_and_branch(bank);
    bank_and_branch += branch;
    return {bank_control_digit(bank_and_branch), account_control_digit(account)};
}

std::optional<Notice> bank_account_notice(std::wstring_view code, std::wstring_view right,
                                          bool reveal) {
    const auto given = control_digits_of(code);
    if (given == right) return std::nullopt;

    std::wstring text =
        L"Datos bancarios incorrectos. Por favor revise el 'Código de Cuenta Cliente'\r\r";
    const bool first_differs = middle(given, 1, 1) != middle(right, 1, 1);
    const bool second_differs = middle(given, 2, 1) != middle(right, 2, 1);
    if (reveal) {
        text.append(L"          D.C. Correcto.......: ").append(right);
    } else if (first_differs && second_differs) {
        text +=
            L"Errores localizados en los 8 primeros dígitos (Banco-Sucursal) y en en los 10 "
            L"últimos dígitos (Nº de Cuenta)";
    } else if (first_differs) {
        text += L"Error localizado en los 8 primeros dígitos (Banco-Sucursal)";
    } else {
        text += L"Error localizado en los 10 últimos dígitos (Nº de Cuenta)";
    }
    return Notice{std::move(text), NoticeStyle::exclamation, L"Datos bancarios incorrectos"};
}

}  // namespace kovrel
