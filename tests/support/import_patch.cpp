#include "tests/support/import_patch.h"

#include <functional>
#include <map>
#include <string_view>

namespace kovrel::test {
namespace {

/// The place in a module's import tables that holds a function's address.
void** import_entry(char* module, std::string_view function) {
    const auto* const header = reinterpret_cast<const IMAGE_NT_HEADERS*>(
        module + reinterpret_cast<const IMAGE_DOS_HEADER*>(module)->e_lfanew);
    const auto& directory = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library =
        reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(module + directory.VirtualAddress);
    for (; library->OriginalFirstThunk != 0; ++library) {
        const auto* name =
            reinterpret_cast<const IMAGE_THUNK_DATA*>(module + library->OriginalFirstThunk);
        auto* entry = reinterpret_cast<void**>(module + library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++entry) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
            const auto* const by_name =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(module + name->u1.AddressOfData);
            if (function == reinterpret_cast<const char*>(by_name->Name)) return entry;
        }
    }
    return nullptr;
}

/// What the modules get for functions that they look up at run time.
std::map<std::string, void*, std::less<>> found_instead;

FARPROC WINAPI find_function(HMODULE module, const char* name) {
    const auto found = found_instead.find(std::string_view(name));
    return found == found_instead.end() ? GetProcAddress(module, name)
                                        : reinterpret_cast<FARPROC>(found->second);
}

}  // namespace

ImportPatch::ImportPatch(const wchar_t* module, const char* function, void* replacement) {
    auto* const base = reinterpret_cast<char*>(GetModuleHandleW(module));
    if (base == nullptr) return;
    entry_ = import_entry(base, function);
    if (entry_ == nullptr) {
        entry_ = import_entry(base, "GetProcAddress");
        looked_up_ = function;
        found_instead[looked_up_] = replacement;
        replacement = reinterpret_cast<void*>(&find_function);
    }
    if (entry_ != nullptr) original_ = put(replacement);
}

ImportPatch::~ImportPatch() {
    if (!looked_up_.empty()) found_instead.erase(looked_up_);
    if (entry_ != nullptr) put(original_);
}

void* ImportPatch::put(void* address) {
    DWORD protection = 0;
    VirtualProtect(entry_, sizeof(void*), PAGE_READWRITE, &protection);
    void* const before = *entry_;
    *entry_ = address;
    VirtualProtect(entry_, sizeof(void*), protection, &protection);
    return before;
}

}  // namespace kovrel::test
