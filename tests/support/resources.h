// The memory, handles, GDI and USER objects that this process holds.
#pragma once

#include <windows.h>
#include <winternl.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kovrel::test {

struct Resources {
    SIZE_T bytes = 0;
    DWORD handles = 0;
    DWORD graphics = 0;
    DWORD windows = 0;

    static Resources now() {
        Resources result;
        result.handles = handle_count();
        result.bytes = bytes_in_use();
        result.graphics = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
        result.windows = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
        return result;
    }

    /// Allocated in all heaps, to the byte; the process's own counters change by pages.
    static SIZE_T bytes_in_use() {
        HANDLE heaps[64]{};
        const DWORD count = std::min<DWORD>(GetProcessHeaps(64, heaps), 64);
        SIZE_T bytes = 0;
        for (DWORD index = 0; index < count; ++index) {
            HeapLock(heaps[index]);
            for (PROCESS_HEAP_ENTRY entry{}; HeapWalk(heaps[index], &entry);) {
                if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
            }
            HeapUnlock(heaps[index]);
        }
        return bytes;
    }

    /// From the system's list of processes: Wine answers the query for one process with 0.
    static DWORD handle_count() {
        using Query = NTSTATUS(NTAPI*)(SYSTEM_INFORMATION_CLASS, void*, ULONG, ULONG*);
        static const auto query = reinterpret_cast<Query>(reinterpret_cast<void (*)()>(
            GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
        static std::vector<char> list(1 << 20);
        if (query(SystemProcessInformation, list.data(), static_cast<ULONG>(list.size()),
                  nullptr) != 0) {
            return 0;
        }
        const auto own = static_cast<ULONG_PTR>(GetCurrentProcessId());
        for (const char* at = list.data();;) {
            const auto* const process = reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(at);
            if (reinterpret_cast<ULONG_PTR>(process->UniqueProcessId) == own) {
                return process->HandleCount;
            }
            if (process->NextEntryOffset == 0) return 0;
            at += process->NextEntryOffset;
        }
    }

    /// `slack` is for memory alone, in bytes; a few handles come and go with the system's threads.
    void expect_no_more_than(const Resources& before, SIZE_T slack) const {
        constexpr DWORD few = 10;
        ASSERT_GT(before.bytes, 0U);
        ASSERT_GT(before.handles, 0U);
        EXPECT_LE(bytes, before.bytes + slack) << "memory";
        EXPECT_LE(handles, before.handles + few);
        EXPECT_LE(graphics, before.graphics + few);
        EXPECT_LE(windows, before.windows + few);
    }

    [[nodiscard]] std::string text() const {
        return std::to_string(bytes / 1024) + " KB, " + std::to_string(handles) + " handles, " +
               std::to_string(graphics) + " graphics, " + std::to_string(windows) + " windows";
    }
};

}  // namespace kovrel::test
