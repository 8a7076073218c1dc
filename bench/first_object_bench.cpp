// The time from loading an automation library to the first answer of its first object, each time in
// a fresh process: first_object_bench kovrel.dll minimal_server.dll
#include <windows.h>
#include <oleauto.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/minimal_server.h"
#include "bench/server.h"
#include "kovrel.h"

namespace {

constexpr int processes = 21;

[[noreturn]] void give_up(const char* why) {
    std::fprintf(stderr, "first_object_bench: %s\n", why);
    std::exit(1);
}

LONGLONG now() {
    LARGE_INTEGER ticks;
    QueryPerformanceCounter(&ticks);
    return ticks.QuadPart;
}

/// Whether the library loads and a first object of it answers that 2024 is a leap year.
bool use(const wchar_t* library, const CLSID& class_id) {
    const auto object = kovrel::bench::object_of<IDispatch>(library, class_id);
    if (!object) return false;
    wchar_t member[] = L"EsBisiesto";
    wchar_t* name = member;
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id))) return false;
    VARIANT year{};
    year.vt = VT_I2;
    year.iVal = 2024;
    DISPPARAMS parameters{&year, nullptr, 1, 0};
    VARIANT result{};
    return SUCCEEDED(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                    &result, nullptr, nullptr)) &&
           result.vt == VT_BOOL && result.boolVal == VARIANT_TRUE;
}

/// In the fresh process: its exit code is the time in ticks, 0 a failure.
int measure(const wchar_t* library, bool is_minimal) {
    const LONGLONG start = now();
    const bool right = use(library, is_minimal ? minimal_class : Kovrel::CLSID_clsFFechas);
    return right ? static_cast<int>(now() - start) : 0;
}

double milliseconds_in_a_fresh_process(const wchar_t* program, const wchar_t* kind,
                                       const wchar_t* library) {
    std::wstring command = std::wstring(L"\"") + program + L"\" " + kind + L" \"" + library + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &startup, &process) == FALSE) {
        give_up("no process");
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD ticks = 0;
    GetExitCodeProcess(process.hProcess, &ticks);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    if (ticks == 0) give_up("an object does not answer");
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return 1e3 * ticks / static_cast<double>(frequency.QuadPart);
}

double median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 3) give_up("the paths of kovrel.dll and minimal_server.dll are missing");
    const std::wstring first = arguments[1];
    if (first == L"own" || first == L"minimal") return measure(arguments[2], first == L"minimal");
    // Taken in turn, so that both meet the same machine.
    std::array<std::vector<double>, 2> times;
    for (int process = 0; process < processes; ++process) {
        times[0].push_back(milliseconds_in_a_fresh_process(arguments[0], L"own", arguments[1]));
        times[1].push_back(milliseconds_in_a_fresh_process(arguments[0], L"minimal", arguments[2]));
    }
    std::printf("first object: %.2f ms; minimal server: %.2f ms\n", median(times[0]),
                median(times[1]));
    return 0;
}
