#include "validation/keystroke.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <initializer_list>

#include "runtime/failure.h"
#include "tests/support/failure_of.h"
#include "tests/support/spanish_regional.h"

namespace kovrel {
namespace {

// Windows-1252 from 128 to 159; the rest is as in Unicode.
constexpr std::array<wchar_t, 32> upper_controls{
    L'\u20AC', L'\x81',   L'\u201A', L'\u0192', L'\u201E', L'\u2026', L'\u2020', L'\u2021',
    L'\u02C6', L'\u2030', L'\u0160', L'\u2039', L'\u0152', L'\x8D',   L'\u017D', L'\x8F',
    L'\x90',   L'\u2018', L'\u2019', L'\u201C', L'\u201D', L'\u2022', L'\u2013', L'\u2014',
    L'\u02DC', L'\u2122', L'\u0161', L'\u203A', L'\u0153', L'\x9D',   L'\u017E', L'\u0178'};

constexpr AnsiCodePage windows_1252{
    [](std::uint8_t code) {
        return code >= 0x80 && code < 0xA0 ? upper_controls[code - 0x80U]
                                           : static_cast<wchar_t>(code);
    },
    [](wchar_t character) -> std::optional<std::uint8_t> {
        const auto* const found =
            std::find(upper_controls.begin(), upper_controls.end(), character);
        if (found != upper_controls.end()) {
            return static_cast<std::uint8_t>(0x80 + (found - upper_controls.begin()));
        }
        if (character > 0xFF) return std::nullopt;
        return static_cast<std::uint8_t>(character);
    }};

/// Knows capitals that the code page has and one that it lacks.
class Capitals final : public testing_support::SpanishRegional {
 public:
    [[nodiscard]] std::wstring capitals(std::wstring_view text) const override {
        if (text == L"\u0161") return L"\u0160";
        return text == L"\u0192" ? L"\u0191" : SpanishRegional::capitals(text);
    }
};

std::int16_t capital(std::int16_t key) {
    return capital_key(key, windows_1252, Capitals());
}

TEST(NumberKey, LetsDigitsSeparatorsAndEditingKeysPass) {
    for (const int code : {8, 9, 27, 44, 45, 46, 48, 49, 50, 51, 52, 53, 54, 55, 56, 57}) {
        const auto key = static_cast<std::int16_t>(code);
        EXPECT_EQ(filter_number_key(key, false, false), (FilteredKey{key, key}));
    }
}

TEST(NumberKey, DiscardsEverythingElse) {
    for (std::int16_t key = 0; key < 256; ++key) {
        const bool passes = key == 8 || key == 9 || key == 27 || (key >= 44 && key <= 46) ||
                            (key >= 48 && key <= 57);
        const std::int16_t result = passes ? key : std::int16_t{0};
        EXPECT_EQ(filter_number_key(key, false, false), (FilteredKey{result, result})) << key;
    }
    EXPECT_EQ(filter_number_key(13, false, false), (FilteredKey{0, 0}));
}

TEST(NumberKey, RefusesMinusWhereOnlyPositiveNumbersGo) {
    EXPECT_EQ(filter_number_key(45, true, false), (FilteredKey{0, 0}));
    EXPECT_EQ(filter_number_key(45, true, true), (FilteredKey{0, 0}));
    EXPECT_EQ(filter_number_key(45, false, true), (FilteredKey{45, 45}));
    EXPECT_EQ(filter_number_key(44, true, false), (FilteredKey{44, 44}));
}

TEST(NumberKey, MakesAPointACommaInTheKeyAlone) {
    EXPECT_EQ(filter_number_key(46, false, true), (FilteredKey{44, 46}));
    EXPECT_EQ(filter_number_key(46, true, true), (FilteredKey{44, 46}));
    EXPECT_EQ(filter_number_key(46, false, false), (FilteredKey{46, 46}));
    EXPECT_EQ(filter_number_key(44, false, true), (FilteredKey{44, 44}));
}

TEST(DateKey, LetsDigitsSlashMinusAndBackspacePass) {
    for (std::int16_t key = 0; key < 256; ++key) {
        const bool passes = key == 8 || key == 45 || key == 47 || (key >= 48 && key <= 57);
        const std::int16_t result = passes ? key : std::int16_t{0};
        EXPECT_EQ(filter_date_key(key), (FilteredKey{result, result})) << key;
    }
}

TEST(CapitalKey, GoesThroughTheCodePageBothWays) {
    EXPECT_EQ(capital('a'), 'A');
    EXPECT_EQ(capital('Z'), 'Z');
    EXPECT_EQ(capital(0xF1), 0xD1);  // ñ
    EXPECT_EQ(capital(0xE1), 0xC1);  // á
    EXPECT_EQ(capital(0xFC), 0xDC);  // ü
    EXPECT_EQ(capital(0x9A), 0x8A);  // š
    EXPECT_EQ(capital(0xFF), 0x9F);  // ÿ
}

TEST(CapitalKey, StaysWhereTheCodePageLacksTheCapital) {
    EXPECT_EQ(capital(0x83), 0x83);  // ƒ
}

TEST(CapitalKey, KeepsEveryOtherKey) {
    for (const std::int16_t key :
         std::initializer_list<std::int16_t>{0, 8, 9, 13, 27, 32, 48, 0x80, 0xD7, 0xDF, 0xF7}) {
        EXPECT_EQ(capital(key), key);
    }
    for (std::int16_t key = 0; key < 256; ++key) EXPECT_EQ(capital(capital(key)), capital(key));
}

TEST(Keystroke, ACodeOutsideOneByteFails) {
    for (const int code : {-32768, -1, 256, 32767}) {
        const auto key = static_cast<std::int16_t>(code);
        EXPECT_EQ(failure_of([key] { return filter_number_key(key, false, false); }), 5);
        EXPECT_EQ(failure_of([key] { return filter_date_key(key); }), 5);
        EXPECT_EQ(failure_of([key] { return capital(key); }), 5);
    }
}

}  // namespace
}  // namespace kovrel
