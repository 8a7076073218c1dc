#include "numbers/words.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <new>
#include <optional>
#include <stdexcept>

#include "numbers/number_names.h"
#include "numbers/number_token.h"
#include "runtime/number_format.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

using namespace std::string_view_literals;
using namespace number_names;

/// Runs one step of the conversion, which appends to `result`. A failure is reported to the context
/// and what the step appended is removed.
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

/// The number rounded to a whole one, without sign, in groups of three digits. A text that is no
/// number is kept and padded to whole groups.
class GroupedDigits {
 public:
    GroupedDigits(std::wstring_view text, const Regional& regional) {
        text = trim(text);
        if (!text.empty() && !is_digit(text.front()) && !regional.number(text.substr(0, 1))) {
            text.remove_prefix(1);
        }
        if (!text.empty() && is_digits(text)) {
            fill_up(without_leading_zeros(text));
        } else {
            fill_up(format_number(text, patterns::whole, regional));
        }
    }
    GroupedDigits(const GroupedDigits&) = delete;
    GroupedDigits& operator=(const GroupedDigits&) = delete;

    [[nodiscard]] std::wstring_view text() const { return text_; }

 private:
    void fill_up(std::wstring_view digits) {
        const auto zeros = (3 - digits.size() % 3) % 3;
        const auto size = zeros + digits.size();
        wchar_t* first = few_.data();
        if (size > few_.size()) {
            many_.resize(size);
            first = many_.data();
        }
        text_ = {first, size};
        std::copy(digits.begin(), digits.end(), std::fill_n(first, zeros, L'0'));
    }

    /// Most numbers fit in here.
    std::array<wchar_t, 24> few_;
    std::wstring many_;
    std::wstring_view text_;
};

/// Appends the words of a number below a thousand.
void append_group(std::wstring& result, std::size_t number) {
    const auto hundred = number / 100;
    const auto rest = number % 100;
    if (rest == 0) {
        result += hundred == 1 ? L"cien"sv : hundreds[hundred];
        return;
    }
    std::array<wchar_t, 2 * Phrase::capacity> words;
    wchar_t* const end = below_hundred[rest].write(leading_hundreds[hundred].write(words.data()));
    result.append(words.data(), end);
}

/// The value of three characters, which must be digits (failure 13).
std::size_t value_of(std::wstring_view group) {
    if (!is_digits(group)) throw Failure(FailureNumber::type_mismatch);
    std::size_t value = 0;
    for (const wchar_t digit : group) value = value * 10 + static_cast<std::size_t>(digit - L'0');
    return value;
}

void append_group(std::wstring& result, std::wstring_view text, const UnitNames& unit,
                  const WordsContext& context);
void append_whole_number(std::wstring& result, std::wstring_view text, const UnitNames& unit,
                         const WordsContext& context);
void append_text(std::wstring& result, std::wstring_view text, const UnitNames& unit,
                 const UnitNames& subunit, const WordsContext& context);

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

/// Appends groups of three digits, each by `append` from the left on, with their scale words.
template <typename Append>
void join_groups(std::wstring& result, std::size_t count, const UnitNames& unit,
                 const Append& append) {
    std::size_t leftmost_end = result.size();
    for (std::size_t index = 0; index < count; ++index) {
        const auto start = result.size();
        append(index);
        append_scale_word(result, start, count - 1 - index, unit);
        if (index == 0) leftmost_end = result.size();
    }
    // "mil millones": thousands of a power of a million carry its name only where they come first
    // and no later group carries it.
    if (count % 2 == 0 && count > 2) {
        const auto plural = scale[count - 2];
        if (!contains_without_case(tail(result, leftmost_end), plural)) {
            result.insert(leftmost_end, plural.substr(1));
        }
    }
}

/// Appends the words of several groups of three digits; false, and "?" alone, where the scale has
/// no word for one.
bool append_groups(std::wstring& result, std::wstring_view digits, const UnitNames& unit,
                   const WordsContext& context) {
    const auto start = result.size();
    const auto count = digits.size() / 3;
    if (count > scale.size()) {
        // Failures in the groups before the first nameless one are still reported.
        const auto told = (scale.size() + 1) * 3;
        for (auto rest = digits.substr(digits.size() - told); !rest.empty();
             rest.remove_prefix(3)) {
            append_group(result, rest.substr(0, 3), {}, context);
        }
        result.resize(start);
        result.push_back(L'?');
        return false;
    }
    join_groups(result, count, unit, [&](std::size_t index) {
        append_group(result, digits.substr(index * 3, 3), {}, context);
    });
    return true;
}

/// Unit names for decimals of a whole part, which it can have only when written with an exponent.
constexpr UnitNames whole_part_subunit{L"1", L""};

/// Appends the words of a token, or the token itself where it is no number.
///
/// The whole part of a number with decimals is a text again, since it may be negative or written
/// with an exponent; digits alone are at once one whole number. The recursion ends: the text of a
/// whole number either reads as that whole number in both ways, or it has an exponent and a
/// regional separator at which the second reading stops, and then its own whole part is the one
/// digit before the separator.
void append_token(std::wstring& result, std::wstring_view token, const UnitNames& unit,
                  const UnitNames& subunit, const WordsContext& context) {
    const NumberToken reading(token, context.regional);
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
    if (is_digits(whole)) {
        append_whole_number(result, whole, unit, context);
    } else {
        append_text(result, whole, unit, whole_part_subunit, context);
    }
    result += L" con "sv;
    append_whole_number(result, middle(token, whole.size() + 2), subunit, context);
}

/// The first step: a text with numbers mixed in.
void append_text(std::wstring& result, std::wstring_view text, const UnitNames& unit,
                 const UnitNames& subunit, const WordsContext& context) {
    guarded_step(result, context, [&] {
        const auto start = result.size();
        for (std::size_t first = 0; first < text.size();) {
            auto end = first;
            while (end < text.size() && text[end] != L' ') ++end;
            append_token(result, text.substr(first, end - first), unit, subunit, context);
            result.push_back(L' ');
            first = end + 1;
        }
        trim_from(result, start);
    });
}

/// Appends the words of a single group, which looks at the singular name alone: several groups look
/// at both names.
void append_single_group(std::wstring& result, std::size_t number, const UnitNames& unit) {
    const auto start = result.size();
    append_group(result, number);
    if (number == 0) result += L"cero"sv;
    if (unit.one.empty() && tail(result, start).ends_with(L"un"sv)) result.push_back(L'o');
}

/// Appends the name of the unit to the words that begin at `start`.
void append_unit(std::wstring& result, std::size_t start, std::wstring_view name) {
    result.push_back(L' ');
    result += name;
    trim_from(result, start);
}

/// The second step: one whole number with its unit.
void append_whole_number(std::wstring& result, std::wstring_view text, const UnitNames& unit,
                         const WordsContext& context) {
    guarded_step(result, context, [&] {
        const auto start = result.size();
        const GroupedDigits grouped(text, context.regional);
        const auto digits = grouped.text();
        if (digits.size() == 3) {
            append_single_group(result, value_of(digits), unit);
        } else if (!append_groups(result, digits, unit, context)) {
            return;
        }
        append_unit(result, start, digits == L"001"sv ? unit.one : unit.other);
    });
}

/// The second step for a number whose digits need not be read from a text.
void append_whole_number(std::wstring& result, std::uint64_t number, const UnitNames& unit,
                         const WordsContext& context) {
    guarded_step(result, context, [&] {
        const auto start = result.size();
        if (number < 1000) {
            append_single_group(result, static_cast<std::size_t>(number), unit);
        } else {
            std::array<std::size_t, 7> groups;  // the largest number has 20 digits
            std::size_t first = groups.size();
            for (auto rest = number; rest != 0; rest /= 1000) {
                groups[--first] = static_cast<std::size_t>(rest % 1000);
            }
            join_groups(result, groups.size() - first, unit,
                        [&](std::size_t index) { append_group(result, groups[first + index]); });
        }
        append_unit(result, start, number == 1 ? unit.one : unit.other);
    });
}

/// The third step: one group of three digits, with nothing added.
void append_group(std::wstring& result, std::wstring_view text, const UnitNames& unit,
                  const WordsContext& context) {
    guarded_step(result, context, [&] {
        const auto start = result.size();
        if (text.size() == 3 && is_digits(text)) return append_group(result, value_of(text));
        const GroupedDigits grouped(text, context.regional);
        const auto digits = grouped.text();
        if (digits.size() == 3) return append_group(result, value_of(digits));
        append_groups(result, digits, unit, context);
        trim_from(result, start);
    });
}

/// Reserved up front: enough for most amounts.
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
    constexpr UnitNames euros{L"Euro", L"Euros"};
    constexpr UnitNames cents{L"Céntimo", L"Céntimos"};
    std::wstring words;
    const auto rounded = amount < 0 ? std::nullopt : quickly_rounded(amount, 2);
    if (rounded) {
        // Equal to reading the amount's text, without producing it.
        words.reserve(usual_length);
        append_whole_number(words, *rounded / 100, euros, context);
        if (*rounded % 100 != 0) {
            words += L" con "sv;
            append_whole_number(words, *rounded % 100, cents, context);
        }
    } else {
        const auto text = format_number(amount, patterns::two_decimals,
                                        context.regional.settings().decimal_separator);
        words = text_in_words(text, euros, cents, context);
    }
    make_upper(words);
    return words;
}

}  // namespace kovrel
