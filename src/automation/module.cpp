#include "automation/module.h"

namespace kovrel {

HMODULE own_module() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const wchar_t*>(&own_module), &module);
    return module;
}

std::wstring own_module_path() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(own_module(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

std::wstring own_module_folder() {
    std::wstring path = own_module_path();
    path.resize(path.rfind(L'\\') + 1);
    return path;
}

}  // namespace kovrel
