#include "runtime/exact_number.h"

#include <array>
#include <utility>

#include "runtime/decimal_digits.h"
#include "runtime/number_format.h"

namespace kovrel {
namespace {

/// The most digits of a number that databases with fixed decimals hold.
constexpr std::ptrdiff_t most_decimal_digits = 38;

/// Digits up to which a double or a float may have to be written to be read back the same.
struct ExactDigits {
    std::ptrdiff_t fewest;
    std::ptrdiff_t most;
};
constexpr ExactDigits double_digits{15, 17};
constexpr ExactDigits float_digits{6, 9};

/// The number in the notation of the language's own literals, without its sign.
std::string literal_of(const DecimalDigits& number) {
    return number.digits + "e" +
           std::to_string(number.point - static_cast<std::ptrdiff_t>(number.digits.size()));
}

template <class Real>
std::wstring shortest(Real value, ExactDigits range) {
    const DecimalDigits all = exact_digits(double{value});
    DecimalDigits number = all;
    for (auto count = range.fewest; count <= range.most; ++count) {
        number = all;
        round_to(number, count);
        const auto read = static_cast<Real>(double_of(literal_of(number)));
        if ((number.negative ? -read : read) == value) break;
    }
    return number_to_text(std::move(number), double_digits.most, L'.');
}

std::wstring written_out(DecimalDigits number) {
    return number_to_text(std::move(number), most_decimal_digits, L'.');
}

}  // namespace

std::wstring exact_number(double value) {
    return shortest(value, double_digits);
}
std::wstring exact_number(float value) {
    return shortest(value, float_digits);
}

std::wstring exact_number(const ScaledInteger& value) {
    constexpr std::uint64_t base = 10;
    constexpr unsigned part_bits = 32;
    std::array<std::uint64_t, 3> parts{value.high, value.low >> part_bits, value.low & 0xFFFFFFFFU};
    DecimalDigits number;
    number.negative = value.negative;
    while ((parts[0] | parts[1] | parts[2]) != 0) {
        std::uint64_t remainder = 0;
        for (std::uint64_t& part : parts) {
            const std::uint64_t left = remainder << part_bits | part;
            part = left / base;
            remainder = left % base;
        }
        number.digits.insert(number.digits.begin(), static_cast<char>('0' + remainder));
    }
    number.point = static_cast<std::ptrdiff_t>(number.digits.size()) -
                   static_cast<std::ptrdiff_t>(value.scale);
    return written_out(std::move(number));
}

std::optional<std::wstring> exact_number(std::wstring_view text, const Regional& regional) {
    const auto& settings = regional.settings();
    if (auto plain = plain_decimal(text, settings.decimal_separator)) {
        return written_out(*std::move(plain));
    }
    const auto value = regional.number(text);
    if (!value) return std::nullopt;
    if (auto grouped = plain_decimal(text, settings.decimal_separator, settings.group_separator)) {
        return written_out(*std::move(grouped));
    }
    return exact_number(*value);
}

}  // namespace kovrel
