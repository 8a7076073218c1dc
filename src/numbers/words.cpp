#include "numbers/words.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <new>
#include <optional>
#include <stdexcept>

#include "runtime/number_format.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

using namespace std::string_view_literals;

/// A word in an array of fixed size, which can be copied without a look at its length.
struct Word {
    static constexpr std::size_t room = 16;
    std::array<wchar_t, room> letters{};
    std::size_t length = 0;

    template <std::size_t size>
    consteval Word(const wchar_t (&word)[size]) : length(size - 1) {
        std::copy(word, word + length, letters.begin());
    }
};

using Words = std::array<Word, 10>;

constexpr Words units{L"",      L"un",   L"dos",   L"tres", L"cuatro",
                      L"cinco", L"seis", L"siete", L"ocho", L"nueve"};
constexpr Words teens{L"diez",   L"once",      L"doce",       L"trece",     L"catorce",
                      L"quince", L"dieciséis", L"diecisiete", L"dieciocho", L"diecinueve"};
constexpr Words twenties{L"veinte",       L"veintiun",    L"veintidós",  L"veintitrés",
                         L"veinticuatro", L"veinticinco", L"veintiseis", L"veintisiete",
                         L"veintiocho",   L"veintinueve"};
constexpr Words tens{L"",          L"",        L"",        L"treinta", L"cuarenta",
                     L"cincuenta", L"sesenta", L"setenta", L"ochenta", L"noventa"};
constexpr Words hundreds{
    L"",           L"ciento",      L"doscientos",  L"trescientos", L"cuatrocientos",
    L"quinientos", L"seiscientos", L"setecientos", L"ochocientos", L"novecientos"};
constexpr Word hundred_alone{L"cien"};
constexpr Word blank{L" "};
constexpr Word between_tens_and_units{L" y "};

/// The scale words with their blanks: the thousands, then a singular and a plural for each power
/// of a million. The plural of octillion has no blank after it; documents in use carry the words
/// run together.
constexpr std::array<std::wstring_view, 41> scale{
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

/// Runs one step of the conversion, which appends to `result`. A failure in it is told and leaves
/// nothing of what the step appended.
template <typename Step>
void guarded_step(std::wstring& result, const WordsContext& context, const Step& step) {
    const auto start = result.size();
    const auto give_up = [&](const Failure& failure) {
        result.resize(start);
        context.on_failure(failure);
    };
    try {
        step();
    } catch (const Failure& failure) {
        give_up(failure);
    } catch (const std::bad_alloc&) {
        give_up(Failure(FailureNumber::out_of_memory));
    } catch (const std::length_error&) {
        give_up(Failure(FailureNumber::out_of_memory));
    }
}

/// Trims what was appended after `start`.
void trim_from(std::wstring& text, std::size_t start) {
    while (text.size() > start && text.back() == L' ') text.pop_back();
    if (text.size() > start && text[start] == L' ') {
        text.erase(start, text.find_first_not_of(L' ', start) - start);
    }
}

std::wstring_view tail(const std::wstring& text, std::size_t start) {
    return std::wstring_view(text).substr(start);
}

bool is_digits(std::wstring_view text) noexcept {
    return std::all_of(text.begin(), text.end(), is_digit);
}

/// The digits without zeros in front; the last digit stays.
std::wstring_view without_leading_zeros(std::wstring_view digits) {
    return digits.substr(std::min(digits.find_first_not_of(L'0'), digits.size() - 1));
}

/// The number rounded to a whole one, without a sign, in groups of three digits. What is no number
/// stays as it is, filled up to groups.
std::wstring grouped_digits(std::wstring_view text, const Regional& regional) {
    text = trim(text);
    if (!text.empty() && !is_digit(text.front()) && !regional.number(text.substr(0, 1))) {
        text.remove_prefix(1);
    }
    std::wstring rounded;
    if (text.empty() || !is_digits(text)) {
        rounded = format_number(text, patterns::whole, regional);
        text = rounded;
    } else {
        text = without_leading_zeros(text);
    }
    const auto fill = (3 - text.size() % 3) % 3;
    std::wstring digits;
    digits.reserve(fill + text.size());
    digits.append(fill, L'0');
    digits += text;
    return digits;
}

/// Appends the words of three characters, which must be digits (failure 13).
void append_three_digits(std::wstring& result, std::wstring_view group) {
    if (!is_digits(group)) throw Failure(FailureNumber::type_mismatch);
    const auto digit = [group](std::size_t index) {
        return static_cast<std::size_t>(group[index] - L'0');
    };
    const auto hundred = digit(0);
    const auto ten = digit(1);
    const auto unit = digit(2);

    // At most a hundred, a blank, tens, " y " and a unit.
    std::array<wchar_t, 5 * Word::room> letters;
    wchar_t* end = letters.data();
    const auto put = [&end](const Word& word) {
        std::copy(word.letters.begin(), word.letters.end(), end);
        end += word.length;
    };
    const bool has_rest = ten != 0 || unit != 0;
    if (hundred != 0) {
        put(hundred == 1 && !has_rest ? hundred_alone : hundreds[hundred]);
        if (has_rest) put(blank);
    }
    if (ten == 1) {
        put(teens[unit]);
    } else if (ten == 2) {
        put(twenties[unit]);
    } else {
        put(tens[ten]);
        if (ten != 0 && unit != 0) put(between_tens_and_units);
        put(units[unit]);
    }
    result.append(letters.data(), end);
}

void append_group(std::wstring& result, std::wstring_view text, const UnitNames& unit,
                  const WordsContext& context);
void append_whole_number(std::wstring& result, std::wstring_view text, const UnitNames& unit,
                         const WordsContext& context);
void append_text(std::wstring& result, std::wstring_view text, const UnitNames& unit,
                 const UnitNames& subunit, const WordsContext& context);

bool contains_without_case(std::wstring_view text, std::wstring_view searched) {
    return std::search(text.begin(), text.end(), searched.begin(), searched.end(),
                       [](wchar_t left, wchar_t right) {
                           return to_upper(left) == to_upper(right);
                       }) != text.end();
}

/// Puts the scale word after the group that was appended at `start`. `place` counts the groups
/// from the right, from 0.
void append_scale_word(std::wstring& result, std::size_t start, std::size_t place,
                       const UnitNames& unit) {
    const auto words = tail(result, start);
    const bool is_one = words == L"un"sv;
    if (place == 0) {
        if (unit.one.empty() && unit.other.empty() && words.ends_with(L"un"sv)) {
            result.push_back(L'o');
        }
    } else if (place % 2 == 1) {
        // One thousand is "mil", never "un mil".
        const bool is_empty = words.empty();
        if (is_one) result.resize(start);
        if (!is_empty) result += scale[0];
    } else if (is_one) {
        result += scale[place - 1];
    } else if (!words.empty()) {
        result += scale[place];
    }
}

/// Appends the words of several groups of three digits; false, and "?" alone, where the scale has
/// no word for one.
bool append_groups(std::wstring& result, std::wstring_view digits, const UnitNames& unit,
                   const WordsContext& context) {
    const auto start = result.size();
    auto place = digits.size() / 3;
    if (place > scale.size()) {
        // What fails in the groups up to the first nameless one is still told.
        const auto told = (scale.size() + 1) * 3;
        for (auto rest = digits.substr(digits.size() - told); !rest.empty();
             rest.remove_prefix(3)) {
            append_group(result, rest.substr(0, 3), {}, context);
        }
        result.resize(start);
        result.push_back(L'?');
        return false;
    }
    std::size_t leftmost_end = start;
    for (std::size_t index = 0; index < digits.size(); index += 3) {
        --place;
        const auto group_start = result.size();
        append_group(result, digits.substr(index, 3), {}, context);
        append_scale_word(result, group_start, place, unit);
        if (index == 0) leftmost_end = result.size();
    }
    // "mil millones": the thousands of a power of a million name it themselves only where they
    // lead the number and nothing after them names it.
    const auto leading_place = digits.empty() ? 0 : digits.size() / 3 - 1;
    if (leading_place % 2 == 1 && leading_place > 1) {
        const auto plural = scale[leading_place - 1];
        if (!contains_without_case(tail(result, leftmost_end), plural)) {
            result.insert(leftmost_end, plural.substr(1));
        }
    }
    return true;
}

/// What a token stands for.
class Token {
 public:
    Token(std::wstring_view token, const Regional& regional) {
        if (!read_short(token, regional.settings().decimal_separator)) read(token, regional);
    }
    Token(const Token&) = delete;
    Token& operator=(const Token&) = delete;

    [[nodiscard]] bool is_number() const { return is_number_; }
    [[nodiscard]] bool is_negative() const { return is_negative_; }
    /// The whole part by the reading that knows no regional settings, as text, where the
    /// regional value lies above it; else empty.
    [[nodiscard]] std::wstring_view whole_part() const { return whole_part_; }

 private:
    bool read_short(std::wstring_view token, wchar_t separator);
    void read(std::wstring_view token, const Regional& regional);

    bool is_number_ = false;
    bool is_negative_ = false;
    std::wstring_view whole_part_;
    std::wstring storage_;
};

/// The reading of a positive number of few digits, which needs no arithmetic: both readings have
/// its whole part, and its value lies above that if it has decimals other than zero. False for a
/// token that this reading does not cover.
bool Token::read_short(std::wstring_view token, wchar_t separator) {
    constexpr std::size_t exact_digits = 15;
    if (token.size() > exact_digits) return false;
    std::size_t whole_digits = 0;
    while (whole_digits < token.size() && is_digit(token[whole_digits])) ++whole_digits;
    if (whole_digits == 0) return false;
    if (whole_digits < token.size()) {
        const auto decimals = token.substr(whole_digits + 1);
        if (token[whole_digits] != separator || !is_digits(decimals)) return false;
        if (decimals.find_first_not_of(L'0') != std::wstring_view::npos) {
            whole_part_ = without_leading_zeros(token.substr(0, whole_digits));
        }
    }
    is_number_ = true;
    return true;
}

void Token::read(std::wstring_view token, const Regional& regional) {
    const auto separator = regional.settings().decimal_separator;
    auto value = plain_number(token, separator);
    if (!value) value = regional.number(token);
    if (!value) return;
    is_number_ = true;
    is_negative_ = *value < 0;
    // Past the range of a double the decimals of a plain number do not matter any more.
    if (std::isinf(*value)) return;
    const double whole = std::floor(leading_number(token));
    if (*value > whole) {
        storage_ = number_to_text(whole, separator);
        // A token that is the text of its own whole part has no decimals, whichever way its last
        // bits were read.
        if (storage_ != token) whole_part_ = storage_;
    }
}

/// The names for the decimals of a whole part, which only a whole part written with an exponent
/// can come to have.
constexpr UnitNames whole_part_subunit{L"1", L""};

/// Appends the words of a token, or the token itself where it is no number.
///
/// The whole part of a number with decimals is converted as a text again. That ends: the text of a
/// whole number either reads as that whole number in both ways, or it is written with an exponent
/// and a regional separator at which the second reading stops, and then its own whole part is the
/// one digit before the separator.
void append_token(std::wstring& result, std::wstring_view token, const UnitNames& unit,
                  const UnitNames& subunit, const WordsContext& context) {
    const Token reading(token, context.regional);
    if (!reading.is_number()) {
        result += token;
        return;
    }
    const auto whole = reading.whole_part();
    if (whole.empty()) {
        if (reading.is_negative()) result += L"menos "sv;
        append_whole_number(result, token, unit, context);
        return;
    }
    if (whole.front() == L'-') result += L"menos "sv;
    append_text(result, whole, unit, whole_part_subunit, context);
    result += L" con "sv;
    append_whole_number(result, middle(token, whole.size() + 2), subunit, context);
}

/// The first step: a text with numbers mixed in.
void append_text(std::wstring& result, std::wstring_view text, const UnitNames& unit,
                 const UnitNames& subunit, const WordsContext& context) {
    guarded_step(result, context, [&] {
        const auto start = result.size();
        text = trim(text);
        for (std::size_t first = 0; first < text.size();) {
            const auto end = std::min(text.find(L' ', first), text.size());
            append_token(result, text.substr(first, end - first), unit, subunit, context);
            result.push_back(L' ');
            first = end + 1;
        }
        trim_from(result, start);
    });
}

/// The second step: one whole number with its unit.
void append_whole_number(std::wstring& result, std::wstring_view text, const UnitNames& unit,
                         const WordsContext& context) {
    guarded_step(result, context, [&] {
        const auto start = result.size();
        const auto digits = grouped_digits(text, context.regional);
        if (digits.size() == 3) {
            append_three_digits(result, digits);
            if (result.size() == start) result += L"cero"sv;
            // A single group looks at the singular name alone, several groups at both names.
            if (unit.one.empty() && tail(result, start).ends_with(L"un"sv)) result.push_back(L'o');
        } else if (!append_groups(result, digits, unit, context)) {
            return;
        }
        result.push_back(L' ');
        result += digits == L"001"sv ? unit.one : unit.other;
        trim_from(result, start);
    });
}

/// The third step: one group of three digits, with nothing added.
void append_group(std::wstring& result, std::wstring_view text, const UnitNames& unit,
                  const WordsContext& context) {
    guarded_step(result, context, [&] {
        const auto start = result.size();
        if (text.size() == 3 && is_digits(text)) return append_three_digits(result, text);
        const auto digits = grouped_digits(text, context.regional);
        if (digits.size() == 3) return append_three_digits(result, digits);
        append_groups(result, digits, unit, context);
        trim_from(result, start);
    });
}

/// Room for most amounts, so that the text grows in place.
constexpr std::size_t usual_length = 128;

}  // namespace

std::wstring text_in_words(std::wstring_view text, UnitNames unit, UnitNames subunit,
                           const WordsContext& context) {
    std::wstring result;
    result.reserve(usual_length);
    append_text(result, text, unit, subunit, context);
    return result;
}

std::wstring number_in_words(std::wstring_view text, UnitNames unit, const WordsContext& context) {
    std::wstring result;
    append_whole_number(result, text, unit, context);
    return result;
}

std::wstring group_in_words(std::wstring_view text, UnitNames unit, const WordsContext& context) {
    std::wstring result;
    append_group(result, text, unit, context);
    return result;
}

std::wstring euros_in_words(double amount, const WordsContext& context) {
    const auto amount_text = format_number(amount, patterns::two_decimals,
                                           context.regional.settings().decimal_separator);
    auto words =
        text_in_words(amount_text, {L"Euro"sv, L"Euros"sv}, {L"Céntimo"sv, L"Céntimos"sv}, context);
    make_upper(words);
    return words;
}

}  // namespace kovrel
