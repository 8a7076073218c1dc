#include "tests/support/import_patch.h"

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

}  // namespace

ImportPatch::ImportPatch(const wchar_t* module, const char* function, void* replacement) {
    auto* const base = reinterpret_cast<char*>(GetModuleHandleW(module));
    if (base == nullptr) return;
    entry_ = import_entry(base, function);
    if (entry_ != nullptr) original_ = put(replacement);
}

ImportPatch::~ImportPatch() {
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
