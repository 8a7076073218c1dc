#include "tests/robustness/last_words.h"

#include <windows.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <utility>

namespace kovrel::test {
namespace {

std::mutex guard;
std::string doing_now;
unsigned long long begun_at = 0;  // milliseconds
constexpr unsigned long long longest = 40'000;

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
    // Without the lock, which the crashed thread may hold.
    std::printf("FAILED: %s while %s\n", what, doing_now.c_str());
    print_return_addresses();
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 3);
    std::abort();
}

LONG WINAPI on_crash(EXCEPTION_POINTERS* exception) {
    const void* const address = exception->ExceptionRecord->ExceptionAddress;
    HMODULE module = nullptr;
    GetModuleHandleExA(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        static_cast<const char*>(address), &module);
    char name[MAX_PATH] = "no module";
    if (module != nullptr) GetModuleFileNameA(module, name, MAX_PATH);
    const auto offset = static_cast<const char*>(address) - reinterpret_cast<const char*>(module);
    char text[MAX_PATH + 100];
    std::snprintf(text, sizeof text, "exception %08lx at %s+%llx",
                  exception->ExceptionRecord->ExceptionCode, name,
                  static_cast<unsigned long long>(offset));
    say(text);
}

void on_abort(int /*signal*/) {
    say("abort");
}

/// Prints the words on the thread's stack that point into the library's code.
void print_stack_of(HANDLE thread) {
    CONTEXT context{};
    context.ContextFlags = CONTEXT_CONTROL;
    if (SuspendThread(thread) == static_cast<DWORD>(-1) || !GetThreadContext(thread, &context)) {
        std::printf("the thread is gone: its stack has overflowed\n");
        return;
    }
#ifdef _WIN64
    const auto* stack = reinterpret_cast<const std::uintptr_t*>(context.Rsp);
    const auto at = static_cast<std::uintptr_t>(context.Rip);
#else
    const auto* stack = reinterpret_cast<const std::uintptr_t*>(context.Esp);
    const auto at = static_cast<std::uintptr_t>(context.Eip);
#endif
    const auto base = reinterpret_cast<std::uintptr_t>(GetModuleHandleW(L"kovrel.dll"));
    std::printf("at kovrel.dll+%llx, words on the stack:",
                static_cast<unsigned long long>(at - base));
    constexpr int words = 600;
    for (int index = 0; index < words; ++index) {
        const std::uintptr_t offset = stack[index] - base;
        if (offset > 0x1000 && offset < 0x400000) {
            std::printf(" %llx", static_cast<unsigned long long>(offset));
        }
    }
    std::printf("\n");
}

/// Watches for an announced action that takes too long.
DWORD WINAPI watch(void* thread) {
    for (;;) {
        Sleep(1'000);
        const std::scoped_lock lock(guard);
        if (doing_now.empty() || GetTickCount64() - begun_at < longest) continue;
        print_stack_of(thread);
        say("no end");
    }
}

}  // namespace

void install_last_words() {
    HANDLE thread = nullptr;
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &thread, 0, FALSE,
                    DUPLICATE_SAME_ACCESS);
    CloseHandle(CreateThread(nullptr, 0, &watch, thread, 0, nullptr));
    SetUnhandledExceptionFilter(&on_crash);
    std::signal(SIGABRT, &on_abort);
}

void announce(std::string doing) {
    const std::scoped_lock lock(guard);
    doing_now = std::move(doing);
    begun_at = GetTickCount64();
}

}  // namespace kovrel::test
