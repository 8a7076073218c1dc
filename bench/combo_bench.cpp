// A multi-column combo box filled from record sets of 10 to 100,000 rows: calls made to the host's
// objects and time per row, which must stay flat. The time includes the objects' own work.
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "automation/host_object.h"
#include "automation/object.h"
#include "frame/clsFGen.h"
#include "tests/support/scripted_recordset.h"

namespace {

using kovrel::Variant;
using kovrel::test::ScriptedCombo;
using kovrel::test::ScriptedRecordset;

ScriptedRecordset::Row row_of(std::int32_t number) {
    return {Variant(number), Variant(L"Cliente " + std::to_wstring(number)), Variant(number * 0.5)};
}

double seconds_of_one_load(const kovrel::HostObject& general, const ScriptedCombo& combo,
                           const ScriptedRecordset& records) {
    const auto start = std::chrono::steady_clock::now();
    general.call(L"cargaComboMSFormsDeRecordset", {combo.argument(), records.argument()});
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

int main() {
    const kovrel::HostObject general(kovrel::create_instance<kovrel::clsFGen>());
    std::printf("%10s %10s %10s %14s\n", "rows", "GetRows", "List", "ns per row");
    for (const std::int32_t count : {10, 100, 1'000, 10'000, 100'000}) {
        std::vector<ScriptedRecordset::Row> rows;
        for (std::int32_t number = 0; number < count; ++number) rows.push_back(row_of(number));
        ScriptedCombo combo;
        ScriptedRecordset records(std::move(rows));
        const std::wstring list = L"put List = [" + std::to_wstring(count) + L"x3]";
        seconds_of_one_load(general, combo, records);
        const std::size_t reads = records.object().calls_of(L"GetRows(-1)");
        const std::size_t writes = combo.object().calls_of(list);
        double best = 1e9;
        for (int repeats = 0; repeats < 5; ++repeats) {
            best = std::min(best, seconds_of_one_load(general, combo, records));
        }
        std::printf("%10d %10u %10u %14.1f\n", static_cast<int>(count),
                    static_cast<unsigned>(reads), static_cast<unsigned>(writes),
                    best / count * 1e9);
    }
    return 0;
}
