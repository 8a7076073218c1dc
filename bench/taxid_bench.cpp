// Verification of a tax id. The budget is 60 ns each.
#include <array>
#include <benchmark/benchmark.h>
#include <cstddef>
#include <string_view>

#include "taxid/tax_id.h"
#include "tests/support/spanish_regional.h"

namespace {

using Ids = std::array<std::wstring_view, 4>;

constexpr Ids right_nifs{L"12345678Z", L"12.345.678-Z", L"00000000t", L"54362315K"};
constexpr Ids wrong_nifs{L"12345678A", L"12.345.678-A", L"1234567L", L"54362315"};
constexpr Ids right_nies{L"X1234567L", L"y-1234567-x", L"Z1234567R", L"X2482300W"};
constexpr Ids right_cifs{L"A28015865", L"A-39000013", L"B1234567D", L"a15075062"};
constexpr Ids wrong_cifs{L"A28015866", L"B1234567E", L"B123", L"I12345674"};

void verify_tax_id(benchmark::State& state, const Ids& ids) {
    const kovrel::testing_support::SpanishRegional regional;
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(kovrel::verify_tax_id(ids[next++ % ids.size()], regional));
    }
}
BENCHMARK_CAPTURE(verify_tax_id, right_nif, right_nifs);
BENCHMARK_CAPTURE(verify_tax_id, wrong_nif, wrong_nifs);
BENCHMARK_CAPTURE(verify_tax_id, right_nie, right_nies);
BENCHMARK_CAPTURE(verify_tax_id, right_cif, right_cifs);
BENCHMARK_CAPTURE(verify_tax_id, wrong_cif, wrong_cifs);

}  // namespace
