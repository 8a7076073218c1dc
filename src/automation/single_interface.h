// An object with one interface, which is not an instance of a public class.
#pragma once

#include <windows.h>
#include <unknwn.h>

#include <atomic>

namespace kovrel {

/// Begins with one reference, and is deleted with its last one.
template <class Interface>
class SingleInterface : public Interface {
 public:
    SingleInterface(const SingleInterface&) = delete;
    SingleInterface& operator=(const SingleInterface&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        if (result == nullptr) return E_POINTER;
        *result = nullptr;
        if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, __uuidof(Interface))) {
            return E_NOINTERFACE;
        }
        *result = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

 protected:
    SingleInterface() noexcept = default;
    virtual ~SingleInterface() = default;

 private:
    std::atomic<ULONG> references_{1};
};

}  // namespace kovrel
