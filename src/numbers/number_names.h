// The Spanish names of numbers: below a hundred, of the hundreds and of the scale.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace kovrel::number_names {

using Words = std::array<std::wstring_view, 10>;

inline constexpr Words units{L"",      L"un",   L"dos",   L"tres", L"cuatro",
                             L"cinco", L"seis", L"siete", L"ocho", L"nueve"};
inline constexpr Words teens{L"diez",   L"once",      L"doce",       L"trece",     L"catorce",
                             L"quince", L"dieciséis", L"diecisiete", L"dieciocho", L"diecinueve"};
inline constexpr Words twenties{L"veinte",       L"veintiun",    L"veintidós",  L"veintitrés",
                                L"veinticuatro", L"veinticinco", L"veintiseis", L"veintisiete",
                                L"veintiocho",   L"veintinueve"};
inline constexpr Words tens{L"",          L"",        L"",        L"treinta", L"cuarenta",
                            L"cincuenta", L"sesenta", L"setenta", L"ochenta", L"noventa"};
inline constexpr Words hundreds{
    L"",           L"ciento",      L"doscientos",  L"trescientos", L"cuatrocientos",
    L"quinientos", L"seiscientos", L"setecientos", L"ochocientos", L"novecientos"};

/// A text built at compile time.
class Phrase {
 public:
    consteval void append(std::wstring_view word) {
        for (const wchar_t letter : word) letters_[length_++] = letter;
    }
    /// Writes the text and returns its end. All of `capacity` is written, which is faster than the
    /// text's own length.
    wchar_t* write(wchar_t* target) const {
        std::copy(letters_.begin(), letters_.end(), target);
        return target + length_;
    }

    static constexpr std::size_t capacity = 20;

 private:
    std::array<wchar_t, capacity> letters_{};
    std::size_t length_ = 0;
};

/// The numbers from 0 (empty) to 99.
consteval std::array<Phrase, 100> make_below_hundred() {
    std::array<Phrase, 100> phrases{};
    for (std::size_t number = 0; number < phrases.size(); ++number) {
        const auto ten = number / 10;
        const auto unit = number % 10;
        auto& phrase = phrases[number];
        if (ten == 1) {
            phrase.append(teens[unit]);
        } else if (ten == 2) {
            phrase.append(twenties[unit]);
        } else {
            phrase.append(tens[ten]);
            if (ten != 0 && unit != 0) phrase.append(L" y ");
            phrase.append(units[unit]);
        }
    }
    return phrases;
}

/// The hundreds before tens or units, with a blank after each; empty for 0.
consteval std::array<Phrase, 10> make_hundreds() {
    std::array<Phrase, 10> phrases{};
    for (std::size_t hundred = 1; hundred < phrases.size(); ++hundred) {
        phrases[hundred].append(hundreds[hundred]);
        phrases[hundred].append(L" ");
    }
    return phrases;
}

inline constexpr auto below_hundred = make_below_hundred();
inline constexpr auto leading_hundreds = make_hundreds();

/// The scale words with their blanks: the thousands, then a singular and a plural for each power
/// of a million. The plural of octillion has no blank after it; documents in use carry the words
/// run together.
inline constexpr std::array<std::wstring_view, 41> scale{
    L" mil ",
    L" millón ",
    L" millones ",
    L" billón ",
    L" billones ",
    L" trillón ",
    L" trillones ",
    L" cuatrillón ",
    L" cuatrillones ",
    L" quintillón ",
    L" quintillones ",
    L" sextillón ",
    L" sextillones ",
    L" septillón ",
    L" septillones ",
    L" octillón ",
    L" octillones",
    L" nonillón ",
    L" nonillones ",
    L" decillón ",
    L" decillones ",
    L" undecillón ",
    L" undecillones ",
    L" duodecillón ",
    L" duodecillones ",
    L" tredecillón ",
    L" tredecillones ",
    L" cuatordecillón ",
    L" cuatordecillones ",
    L" quindecillón ",
    L" quindecillones ",
    L" sexdecillón ",
    L" sexdecillones ",
    L" septendecillón ",
    L" septendecillones ",
    L" octodecillón ",
    L" octodecillones ",
    L" novendecillón ",
    L" novendecillones ",
    L" vigintillón ",
    L" vigintillones ",
};

}  // namespace kovrel::number_names
