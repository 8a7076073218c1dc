// Numbers of every size as texts, compared with the exact digits that the C library writes.
#include <algorithm>
#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "runtime/number_format.h"

namespace kovrel {
namespace {

/// Drops the digits from `count` on, rounding half away from zero; a carry lengthens the text.
std::string rounded(std::string digits, std::size_t count) {
    const bool up = count < digits.size() && digits[count] >= '5';
    digits.resize(count, '0');
    if (!up) return digits;
    const auto place = digits.find_last_not_of('9');
    if (place == std::string::npos) return '1' + std::string(count, '0');
    ++digits[place];
    std::fill(digits.begin() + static_cast<std::ptrdiff_t>(place) + 1, digits.end(), '0');
    return digits;
}

/// A number's first 15 digits, and how many of them stand before the decimal point.
struct Digits {
    std::string text;
    int before_point = 0;
};

Digits digits_of(double value) {
    // No double has more than 767 significant digits.
    constexpr int all_digits = 767;
    std::string text(1000, '\0');
    text.resize(static_cast<std::size_t>(
        std::snprintf(text.data(), text.size(), "%.*e", all_digits, std::abs(value))));
    const auto mark = text.find('e');
    Digits result{text.substr(0, mark), std::stoi(text.substr(mark + 1)) + 1};
    result.text.erase(1, 1);
    result.text = rounded(result.text, 15);
    if (result.text.size() > 15) ++result.before_point;
    result.text.resize(15);
    return result;
}

std::string expected_text(double value) {
    if (value == 0) return "0";
    auto [digits, before_point] = digits_of(value);
    digits.erase(digits.find_last_not_of('0') + 1);
    const int after_point = static_cast<int>(digits.size()) - before_point;
    std::string text = value < 0 ? "-" : "";
    if (before_point > 15 || after_point > 15) {
        const int exponent = before_point - 1;
        text += digits.substr(0, 1);
        if (digits.size() > 1) text += ',' + digits.substr(1);
        std::string power = std::to_string(std::abs(exponent));
        if (power.size() < 2) power.insert(0, 1, '0');
        return text + (exponent < 0 ? "E-" : "E+") + power;
    }
    if (before_point <= 0) {
        return text + "0," + std::string(static_cast<std::size_t>(-before_point), '0') + digits;
    }
    const auto whole = static_cast<std::size_t>(before_point);
    if (after_point <= 0) return text + digits + std::string(whole - digits.size(), '0');
    return text + digits.substr(0, whole) + ',' + digits.substr(whole);
}

std::string expected_format(double value, int decimals) {
    auto [digits, before_point] = digits_of(value);
    if (before_point < 1) {
        digits.insert(0, static_cast<std::size_t>(1 - before_point), '0');
        before_point = 1;
    }
    const int kept = before_point + decimals;
    std::string text = rounded(digits, static_cast<std::size_t>(kept));
    const auto point = text.size() - static_cast<std::size_t>(decimals);
    const bool negative = value < 0 && text.find_first_not_of('0') != std::string::npos;
    if (decimals > 0) text.insert(point, 1, ',');
    return (negative ? "-" : "") + text;
}

std::string narrow(const std::wstring& text) {
    std::string result;
    for (const wchar_t character : text) result.push_back(static_cast<char>(character));
    return result;
}

void expect_agreement(double value) {
    SCOPED_TRACE(std::to_string(std::bit_cast<std::uint64_t>(value)));
    ASSERT_EQ(narrow(number_to_text(value, L',')), expected_text(value));
    ASSERT_EQ(narrow(format_number(value, patterns::whole, L',')), expected_format(value, 0));
    ASSERT_EQ(narrow(format_number(value, patterns::two_decimals, L',')),
              expected_format(value, 2));
    ASSERT_EQ(narrow(format_number(value, patterns::four_decimals, L',')),
              expected_format(value, 4));
}

void expect_agreement_of_both_signs(double value) {
    expect_agreement(value);
    expect_agreement(-value);
}

TEST(NumberDigits, OfRandomBits) {
    std::mt19937_64 random(20240315);  // fixed: the same numbers in every run
    for (int count = 0; count < 50'000 && !HasFatalFailure();) {
        const auto value = std::bit_cast<double>(random());
        if (!std::isfinite(value)) continue;
        expect_agreement(value);
        ++count;
    }
}

TEST(NumberDigits, OfAmounts) {
    std::mt19937_64 random(20240316);
    std::uniform_real_distribution<double> exponents(-20, 20);
    std::uniform_int_distribution<std::int64_t> cents(0, 1'000'000'000'000);
    for (int count = 0; count < 25'000 && !HasFatalFailure(); ++count) {
        expect_agreement_of_both_signs(std::pow(10, exponents(random)));
        // Halves of the last decimal, which binary fractions only approximate.
        expect_agreement(static_cast<double>(cents(random)) / 2000);
    }
}

TEST(NumberDigits, OfSubnormalNumbers) {
    std::mt19937_64 random(20240317);
    for (int count = 0; count < 2000 && !HasFatalFailure(); ++count) {
        expect_agreement_of_both_signs(std::bit_cast<double>(random() >> (12 + random() % 52)));
    }
}

TEST(NumberDigits, OfTheLimitsAndOfHalves) {
    for (const double value : {0.0,
                               0.5,
                               1.5,
                               2.5,
                               0.125,
                               0.375,
                               0.00005,
                               1e15,
                               1e16,
                               1e22,
                               1e23,
                               999999999999999.5,
                               100000000000000.5,
                               0.999999999999999,
                               0.9999999999999999,
                               9.999999999999995e-5,
                               5e-324,
                               DBL_MIN,
                               DBL_MAX,
                               4503599627370495.5,
                               9007199254740993.0}) {
        expect_agreement_of_both_signs(value);
    }
    for (int power = -1074; power < 1024 && !HasFatalFailure(); ++power) {
        expect_agreement_of_both_signs(std::ldexp(1, power));
    }
}

}  // namespace
}  // namespace kovrel
