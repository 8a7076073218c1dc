#include "numbers/sql_literal.h"

#include <utility>

#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {

std::wstring sql_number(std::wstring_view rounded, std::size_t decimals) {
    if (rounded.size() < decimals + 1) throw Failure(FailureNumber::invalid_argument);
    const auto separator = rounded.size() - decimals - 1;
    std::wstring result(rounded);
    result[separator] = L'.';
    return result;
}

std::wstring sql_date(int year, int month, int day) {
    const auto digits = [](int number, std::size_t width) {
        return with_leading_zeros(decimal_text(number), width);
    };
    return concat({L"#", digits(month, 2), L"/", digits(day, 2), L"/", digits(year, 4), L"#"});
}

std::wstring sql_date(std::wstring_view text) {
    return concat({L"#", text, L"#"});
}

std::int16_t sql_boolean(bool value) noexcept {
    return value ? std::int16_t{-1} : std::int16_t{0};
}

std::wstring sql_string(std::wstring_view text) {
    return concat({L"'", text, L"'"});
}

Notice sql_needs_a_number(std::optional<std::wstring> title) {
    return {L"Error en la función SQL.Conv_Double: el valor no es numérico", NoticeStyle::critical,
            std::move(title)};
}

}  // namespace kovrel
