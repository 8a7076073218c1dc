#include "tests/robustness/last_words.h"

#include <windows.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace kovrel::test {
namespace {

std::string doing_now;

void print_return_addresses() {
    void* frames[40];
    const USHORT count = CaptureStackBackTrace(0, 40, frames, nullptr);
    const auto* const base = reinterpret_cast<const char*>(GetModuleHandleW(L"kovrel.dll"));
    std::printf("stack (offsets in kovrel.dll):");
    for (USHORT index = 0; index < count; ++index) {
        const auto offset = static_cast<const char*>(frames[index]) - base;
        if (base != nullptr && offset > 0 && offset < 0x1000000) {
            std::printf(" %lx", static_cast<unsigned long>(offset));
        }
    }
    std::printf("\n");
}

[[noreturn]] void say(const char* what) {
    std::printf("FAILED: %s while %s\n", what, doing_now.c_str());
    print_return_addresses();
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 3);
    std::abort();
}

LONG WINAPI on_crash(EXCEPTION_POINTERS* exception) {
    char text[100];
    const auto address =
        reinterpret_cast<std::uintptr_t>(exception->ExceptionRecord->ExceptionAddress);
    const auto base = reinterpret_cast<std::uintptr_t>(GetModuleHandleW(L"kovrel.dll"));
    std::snprintf(text, sizeof text, "exception %08lx at kovrel.dll+%llx",
                  exception->ExceptionRecord->ExceptionCode,
                  static_cast<unsigned long long>(address - base));
    say(text);
}

void on_abort(int /*signal*/) {
    say("abort");
}

}  // namespace

void install_last_words() {
    SetUnhandledExceptionFilter(&on_crash);
    std::signal(SIGABRT, &on_abort);
}

void announce(std::string doing) {
    doing_now = std::move(doing);
}

}  // namespace kovrel::test
