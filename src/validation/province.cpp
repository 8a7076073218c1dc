#include "validation/province.h"

#include <cstdlib>
#include <string>

#include "runtime/conversion.h"
#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::size_t postal_code_length = 5;

std::wstring five_digits(std::int16_t number) {
    return (number < 0 ? L"-" : L"") +
           with_leading_zeros(decimal_text(std::abs(number)), postal_code_length);
}

}  // namespace

std::optional<Notice> postal_code_notice(std::wstring_view postal_code) {
    if (postal_code.size() <= postal_code_length) return std::nullopt;
    return Notice{L"Error en el Código Postal", NoticeStyle::critical, std::nullopt};
}

std::uint8_t province_of(std::wstring_view postal_code, const Regional& regional) {
    if (postal_code.size() > postal_code_length) {
        // The result for such a code is -1, which overflows the 8-bit result type.
        throw Failure(FailureNumber::overflow);
    }
    std::wstring digits(postal_code);
    if (digits.size() < postal_code_length) digits = five_digits(to_int16(digits, regional));
    return to_uint8(std::wstring_view(digits).substr(0, 2), regional);
}

}  // namespace kovrel
