// Checks of identifiers with their reasons: a million texts of a kind, right and wrong ones, as a
// list of customers has them. The budget is 60 ns for a NIF and 120 ns for an IBAN.
#include <array>
#include <benchmark/benchmark.h>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "identifiers/identifier.h"

namespace {

using kovrel::Identifier;

constexpr std::size_t list_length = 1'000'000;

// Each text with running digits in the place of its first 0s, so that no two neighbours are alike.
std::vector<std::wstring> list_of(const std::vector<std::wstring_view>& samples) {
    std::vector<std::wstring> list;
    list.reserve(list_length);
    for (std::size_t i = 0; i < list_length; ++i) {
        std::wstring text(samples[i % samples.size()]);
        if (i % 2 == 0) {
            std::size_t number = i;
            for (wchar_t& character : text) {
                if (character < L'0' || character > L'9') continue;
                character = static_cast<wchar_t>(L'0' + number % 10);
                number /= 10;
            }
        }
        list.push_back(std::move(text));
    }
    return list;
}

void check_list(benchmark::State& state, Identifier kind,
                const std::vector<std::wstring_view>& samples) {
    const auto list = list_of(samples);
    for (auto _ : state) {
        for (const auto& text : list) {
            benchmark::DoNotOptimize(kovrel::identifier_fault(kind, text));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(list_length));
}
BENCHMARK_CAPTURE(check_list, nif, Identifier::nif,
                  {L"12345678Z", L"12.345.678-Z", L"X2482300W", L"K1234567L", L"A28015865",
                   L"b-12345674", L"Q2826000H", L"V12345674", L"1234567L", L"W1234567D"})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(check_list, iban, Identifier::iban,
                  {L"ES9121000418450200051332", L"ES91 2100 0418 4502 0005 1332",
                   L"IBAN ES91 2100 0418 4502 0005 1332", L"GB29 NWBK 6016 1331 9268 19",
                   L"DE89370400440532013000", L"FR14 2004 1010 0505 0001 3M02 606"})
    ->Unit(benchmark::kMillisecond);

}  // namespace
