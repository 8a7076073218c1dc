#include "services/dynamic_library.h"

#include <cstring>

#include "runtime/text.h"

namespace kovrel {

Failure failure_over(FailureNumber number, const std::wstring& file) {
    const auto value = static_cast<std::int32_t>(number);
    return {value, concat({failure_description(value), L": ", file})};
}

void* entry_point(HMODULE module, const std::wstring& file, const char* name) {
    const FARPROC address = GetProcAddress(module, name);
    if (address == nullptr) {
        const std::wstring missing(name, name + std::strlen(name));
        throw failure_over(FailureNumber::dll_function_not_found, missing + L", " + file);
    }
    return reinterpret_cast<void*>(address);
}

void* system_entry_point(const wchar_t* file, const char* name) {
    HMODULE const module = LoadLibraryExW(file, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (module == nullptr) throw failure_over(FailureNumber::dll_load, file);
    return entry_point(module, file, name);
}

}  // namespace kovrel
