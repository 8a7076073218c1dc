// Euro amounts in words against ICU's Spanish spell-out of the same amounts, in one run.
// The budget of the first is 0.25 of the second.
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdint>
#include <random>
#include <unicode/locid.h>
#include <unicode/rbnf.h>
#include <vector>

#include "numbers/words.h"
#include "tests/support/spanish_regional.h"

namespace {

/// 100,000 amounts with cents, as many of each length from cents to hundreds of millions.
std::vector<double> amounts() {
    std::mt19937_64 random(20240315);  // fixed: both sides and every run take the same amounts
    std::uniform_real_distribution<double> exponent(0, 10.5);
    constexpr std::size_t wanted = 100'000;
    std::vector<double> result;
    result.reserve(wanted);
    while (result.size() < wanted) {
        result.push_back(std::round(std::pow(10.0, exponent(random))) / 100);
    }
    return result;
}

void euros_in_words(benchmark::State& state) {
    const auto values = amounts();
    const kovrel::testing_support::SpanishRegional regional;
    const kovrel::WordsContext context{regional, [](const kovrel::Failure&) {}};
    for (auto _ : state) {
        for (const double value : values) {
            benchmark::DoNotOptimize(kovrel::euros_in_words(value, context));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}
BENCHMARK(euros_in_words)->Unit(benchmark::kMillisecond);

void icu_spell_out(benchmark::State& state) {
    const auto values = amounts();
    UErrorCode status = U_ZERO_ERROR;
    const icu::RuleBasedNumberFormat spell_out(icu::URBNF_SPELLOUT, icu::Locale("es"), status);
    if (U_FAILURE(status)) {
        state.SkipWithError("ICU has no Spanish spell-out");
        return;
    }
    for (auto _ : state) {
        for (const double value : values) {
            icu::UnicodeString text;
            spell_out.format(value, text);
            benchmark::DoNotOptimize(text);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}
BENCHMARK(icu_spell_out)->Unit(benchmark::kMillisecond);

}  // namespace
