// The class factories of an automation library's DLL, which need not be registered.
#pragma once

#include <windows.h>
#include <unknwn.h>

#include "automation/com_ptr.h"

namespace kovrel::bench {

/// Empty when the DLL does not load or does not have the class.
inline ComPtr<IClassFactory> factory_of(const wchar_t* dll, const CLSID& class_id) {
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    using Entry = void (*)();
    ComPtr<IClassFactory> factory;
    const auto get_class_object = reinterpret_cast<GetClassObject>(
        reinterpret_cast<Entry>(GetProcAddress(LoadLibraryW(dll), "DllGetClassObject")));
    if (get_class_object != nullptr) {
        get_class_object(class_id, IID_IClassFactory, factory.put_void());
    }
    return factory;
}

/// A new object of the class, by one of its interfaces; empty when there is none.
template <class Interface>
ComPtr<Interface> object_of(const wchar_t* dll, const CLSID& class_id,
                            const IID& interface_id = __uuidof(Interface)) {
    ComPtr<Interface> object;
    if (const auto factory = factory_of(dll, class_id)) {
        factory->CreateInstance(nullptr, interface_id, object.put_void());
    }
    return object;
}

}  // namespace kovrel::bench
