#include "automation/server.h"

#include <olectl.h>

#include <atomic>
#include <cxxabi.h>

#include "automation/boundary.h"
#include "automation/module.h"
#include "automation/object.h"
#include "automation/registration.h"
#include "automation/single_interface.h"

namespace kovrel {
namespace {

std::atomic<LONG> server_locks{0};

class ClassFactory final : public SingleInterface<IClassFactory> {
 public:
    explicit ClassFactory(const ClassInfo& info) noexcept : info_(info) { ++server_locks; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** result) override {
        if (result == nullptr) return E_POINTER;
        *result = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        HRESULT queried = E_UNEXPECTED;
        const HRESULT created = boundary(info_.prog_id, [&] {
            const auto instance = ComPtr<IDispatch>::attach(info_.create());
            queried = instance->QueryInterface(id, result);
        });
        return FAILED(created) ? created : queried;
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        server_locks += lock != FALSE ? 1 : -1;
        return S_OK;
    }

 private:
    ~ClassFactory() override { --server_locks; }

    const ClassInfo& info_;
};

}  // namespace

// A statically linked module that has thrown leaks a thread-local slot at each unload, and a host
// that loads and unloads it a thousand times runs out of them. So it stays loaded once used.
void stay_loaded() noexcept {
    HMODULE pinned = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const wchar_t*>(&stay_loaded), &pinned);
}

HRESULT get_class_object(const LibraryInfo& library, REFCLSID class_id, REFIID interface_id,
                         void** result) noexcept {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    stay_loaded();
    // Allocates this thread's exception store now: allocated at the first throw, it would end the
    // process if memory had run out by then.
    [[maybe_unused]] const void* volatile made = abi::__cxa_get_globals();
    for (const ClassInfo* info : library.classes) {
        if (!IsEqualCLSID(class_id, info->class_id)) continue;
        if (info->instancing == Instancing::given) break;
        const auto factory = ComPtr<IClassFactory>::attach(new (std::nothrow) ClassFactory(*info));
        if (!factory) return E_OUTOFMEMORY;
        return factory->QueryInterface(interface_id, result);
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT can_unload_now() noexcept {
    return live_objects() == 0 && server_locks == 0 ? S_OK : S_FALSE;
}

HRESULT register_server(const LibraryInfo& library) noexcept {
    const HRESULT result =
        boundary(library.name, [&library] { register_library(library, own_module_path()); });
    return FAILED(result) ? SELFREG_E_CLASS : S_OK;
}

HRESULT unregister_server(const LibraryInfo& library) noexcept {
    const HRESULT result = boundary(library.name, [&library] {
        try {
            unregister_library(library, RegistrationScope::machine);
        } catch (const Failure& failure) {
            // Without the right to write there, only the user's registration exists.
            if (!failure.is(FailureNumber::permission_denied)) throw;
        }
        unregister_library(library, RegistrationScope::user);
    });
    return FAILED(result) ? SELFREG_E_CLASS : S_OK;
}

}  // namespace kovrel
