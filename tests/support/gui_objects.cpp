#include "tests/support/gui_objects.h"

#include <windows.h>
#include <winternl.h>

#include <cstdint>

namespace kovrel::test {
namespace {

/// An entry of the table of drawing objects that every process can read.
struct HandleEntry {
    std::uint64_t object;
    std::uint16_t process;
    std::uint16_t lock;
    std::uint16_t unique;
    std::uint8_t type;  // 0: free
    std::uint8_t flags;
    std::uint64_t user_pointer;
};
static_assert(sizeof(HandleEntry) == 24);

/// Where the process environment block keeps the table's address.
constexpr std::size_t table_offset = sizeof(void*) == 8 ? 0xF8 : 0x94;

std::size_t drawing_objects() {
    // Wine answers 0; there the table holds the objects of this process only.
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) return counted;
    const auto* const block =
        reinterpret_cast<const char*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const auto* entry = *reinterpret_cast<const HandleEntry* const*>(block + table_offset);
    MEMORY_BASIC_INFORMATION memory{};
    if (entry == nullptr || VirtualQuery(entry, &memory, sizeof memory) == 0) return 0;
    std::size_t count = 0;
    for (std::size_t left = memory.RegionSize / sizeof(HandleEntry); left > 0; --left, ++entry) {
        if (entry->type != 0) ++count;
    }
    return count;
}

BOOL CALLBACK count_window(HWND window, LPARAM count) {
    ++*reinterpret_cast<std::size_t*>(count);
    if (GetAncestor(window, GA_PARENT) == GetDesktopWindow()) {
        EnumChildWindows(window, &count_window, count);
    }
    return TRUE;
}

}  // namespace

GuiObjects gui_objects() {
    GuiObjects objects;
    EnumThreadWindows(GetCurrentThreadId(), &count_window,
                      reinterpret_cast<LPARAM>(&objects.windows));
    // Counted last: enumerating windows for the first time creates drawing objects.
    objects.drawing = drawing_objects();
    return objects;
}

}  // namespace kovrel::test
