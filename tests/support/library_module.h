// The library as a module: where its file lies, and what it exports, for a module that need not be
// registered.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

#include "automation/com_ptr.h"

namespace kovrel::test {

/// The file of the kovrel.dll that was loaded first.
inline std::filesystem::path library_file() {
    constexpr DWORD longest_path = 32768;
    std::wstring path(longest_path, L'\0');
    path.resize(GetModuleFileNameW(GetModuleHandleW(L"kovrel.dll"), path.data(), longest_path));
    return path;
}

template <class Function>
Function exported(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

/// Null where the module has no such class.
inline ComPtr<IDispatch> create_from(HMODULE module, REFCLSID class_id) {
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    ComPtr<IClassFactory> factory;
    ComPtr<IDispatch> instance;
    if (SUCCEEDED(exported<GetClassObject>(module, "DllGetClassObject")(class_id, IID_IClassFactory,
                                                                        factory.put_void()))) {
        factory->CreateInstance(nullptr, IID_IDispatch, instance.put_void());
    }
    return instance;
}

inline HRESULT can_unload(HMODULE module) {
    return exported<HRESULT(STDAPICALLTYPE*)()>(module, "DllCanUnloadNow")();
}

}  // namespace kovrel::test
