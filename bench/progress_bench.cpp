// The progress window, updated a thousand times as by a busy host: time of one update with and
// without a change, and leaked GDI objects and windows.
#include <windows.h>
#include <ole2.h>
#include <psapi.h>

#include <chrono>
#include <cstdio>
#include <string>

#include "automation/host_object.h"
#include "automation/object.h"
#include "library/clsFGen.h"
#include "services/modal.h"
#include "tests/support/gui_objects.h"

namespace kovrel::bench {

constexpr int updates = 1'000;

std::size_t committed_kilobytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage / 1024;
}

template <class Update>
void measure(const char* name, const Update& update) {
    update(0);
    const test::GuiObjects before = test::gui_objects();
    const std::size_t memory = committed_kilobytes();
    const auto begin = std::chrono::steady_clock::now();
    for (int round = 0; round < updates; ++round) update(round);
    const std::chrono::duration<double, std::milli> spent =
        std::chrono::steady_clock::now() - begin;
    const test::GuiObjects after = test::gui_objects();
    std::printf("%-16s %8.3f %8zu %8zu %8zu %8zu %10zu %10zu\n", name, spent.count() / updates,
                before.drawing, after.drawing, before.windows, after.windows, memory,
                committed_kilobytes());
}

void run() {
    const HostObject general(create_instance<clsFGen>());
    general.call(L"BarraProgresoInicia",
                 {Variant(L"Recibos"), Variant(L"Se generan los recibos"), Variant(true)});
    pump_events();
    const Variant same(L"Se generan los recibos");
    std::printf("%-16s %8s %17s %17s %21s\n", "1,000 updates", "ms each", "GDI objects", "windows",
                "committed KB");
    measure("bar alone", [&](int round) {
        general.call(L"BarraProgresoActualiza", {Variant(std::int32_t{round / 10}), same});
    });
    measure("bar and message", [&](int round) {
        general.call(L"BarraProgresoActualiza", {Variant(std::int32_t{round / 10}),
                                                 Variant(L"Recibo " + std::to_wstring(round))});
    });
    general.call(L"BarraProgresoFinaliza");
}

}  // namespace kovrel::bench

int main() {
    if (FAILED(OleInitialize(nullptr))) return 1;
    kovrel::bench::run();
    OleUninitialize();
    return 0;
}
