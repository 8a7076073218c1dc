#include "validation/province.h"

#include <cstddef>
#include <cstdlib>
#include <string>

#include "runtime/conversion.h"
#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::size_t postal_code_length = 5;

std::wstring five_digits(std::int16_t number) {
    std::wstring digits = decimal_text(std::abs(number));
    digits.insert(0, postal_code_length - digits.size(), L'0');
    if (number < 0) digits.insert(0, 1, L'-');
    return digits;
}

}  // namespace

std::optional<Notice> postal_code_notice(std::wstring_view postal_code) {
    if (postal_code.size() <= postal_code_length) return std::nullopt;
    return Notice{L"Error en el Código Postal", NoticeStyle::critical, std::nullopt};
}

std::uint8_t province_of(std::wstring_view postal_code, const Regional& regional) {
    if (postal_code.size() > postal_code_length) {
        // No 8-bit number says "none": the -1 meant for it does not fit.
        throw Failure(FailureNumber::overflow);
    }
    std::wstring digits(postal_code);
    if (digits.size() < postal_code_length) digits = five_digits(to_int16(digits, regional));
    return to_uint8(std::wstring_view(digits).substr(0, 2), regional);
}

}  // namespace kovrel
