#include "numbers/sql_literal.h"

#include <utility>

#include "runtime/failure.h"
#include "runtime/number_format.h"

namespace kovrel {
namespace {

std::wstring with_digits(int number, int digits) {
    return format_number(number, {digits, 0}, L'.');
}

std::wstring between(std::wstring_view mark, std::wstring_view text) {
    std::wstring result(mark);
    result += text;
    result += mark;
    return result;
}

}  // namespace

std::wstring sql_number(std::wstring_view rounded, std::size_t decimals) {
    if (rounded.size() < decimals + 1) throw Failure(FailureNumber::invalid_argument);
    const auto separator = rounded.size() - decimals - 1;
    std::wstring result(rounded);
    result[separator] = L'.';
    return result;
}

std::wstring sql_date(int year, int month, int day) {
    return sql_date(with_digits(month, 2) + L'/' + with_digits(day, 2) + L'/' +
                    with_digits(year, 4));
}

std::wstring sql_date(std::wstring_view text) {
    return between(L"#", text);
}

std::int16_t sql_boolean(bool value) noexcept {
    return value ? std::int16_t{-1} : std::int16_t{0};
}

std::wstring sql_string(std::wstring_view text) {
    return between(L"'", text);
}

Notice sql_needs_a_number(std::optional<std::wstring> title) {
    return {L"Error en la función SQL.Conv_Double: el valor no es numérico", NoticeStyle::critical,
            std::move(title)};
}

}  // namespace kovrel
