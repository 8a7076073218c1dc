// Number words parsed back to their numbers.
#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <unordered_map>

#include "numbers/words.h"
#include "runtime/text.h"
#include "tests/support/spanish_regional.h"

namespace kovrel {
namespace {

/// Parses number words by the value of each word.
class WordReader {
 public:
    WordReader() {
        const auto add = [this](std::wstring_view list, std::int64_t value, std::int64_t step) {
            for (const auto word : split(list, L' ')) {
                values_[word] = value;
                value += step;
            }
        };
        add(L"cero uno dos tres cuatro cinco seis siete ocho nueve diez once doce trece catorce "
            L"quince dieciséis diecisiete dieciocho diecinueve veinte veintiuno veintidós "
            L"veintitrés veinticuatro veinticinco veintiseis veintisiete veintiocho veintinueve",
            0, 1);
        add(L"treinta cuarenta cincuenta sesenta setenta ochenta noventa cien", 30, 10);
        add(L"ciento doscientos trescientos cuatrocientos quinientos seiscientos setecientos "
            L"ochocientos novecientos",
            100, 100);
        values_[L"un"] = 1;
        values_[L"veintiun"] = 21;
    }

    std::int64_t read(std::wstring_view words) const {
        std::int64_t total = 0;
        std::int64_t group = 0;
        bool needs_unit = false;
        for (std::size_t first = 0; first < words.size();) {
            const auto end = std::min(words.find(L' ', first), words.size());
            const auto word = words.substr(first, end - first);
            first = end + 1;
            if (word.empty()) continue;
            if (word == L"y") {
                if (group % 100 < 30 || group % 10 != 0 || needs_unit) return -1;
                needs_unit = true;
            } else if (word == L"mil") {
                group = std::max<std::int64_t>(group, 1) * 1000;
            } else if (word == L"millón" || word == L"millones") {
                if ((group == 1) != (word == L"millón")) return -1;
                total += group * 1'000'000;
                group = 0;
            } else {
                const auto found = values_.find(word);
                if (found == values_.end() || (needs_unit && found->second > 9)) return -1;
                if (!needs_unit && group % 100 != 0) return -1;
                group += found->second;
                needs_unit = false;
            }
        }
        return needs_unit ? -1 : total + group;
    }

 private:
    std::unordered_map<std::wstring_view, std::int64_t> values_;
};

std::wstring words_of(std::int64_t value) {
    const testing_support::SpanishRegional regional;
    const WordsContext context{regional, [](const Failure&) { FAIL(); }};
    return text_in_words(std::to_wstring(value), {}, {}, context);
}

TEST(WordsReadBack, EveryNumberToAMillion) {
    const WordReader reader;
    for (std::int64_t value = 0; value <= 1'000'000; ++value) {
        const auto words = words_of(value);
        ASSERT_EQ(reader.read(words), value);
        ASSERT_EQ(words.find(L"  "), std::wstring::npos);
    }
}

TEST(WordsReadBack, NumbersOfMillions) {
    const WordReader reader;
    std::mt19937_64 random(20240315);  // fixed: the same numbers in every run
    std::uniform_int_distribution<std::int64_t> numbers(0, 999'999'999);
    for (int turn = 0; turn < 20000; ++turn) {
        const auto value = numbers(random);
        ASSERT_EQ(reader.read(words_of(value)), value);
    }
}

}  // namespace
}  // namespace kovrel
