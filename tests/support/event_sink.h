// What a host attaches to a connection point. The test gives its reaction to an event, whose
// arguments come in reverse order.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <functional>
#include <ocidl.h>
#include <utility>

#include "automation/com_ptr.h"

namespace kovrel::test {

class EventSink final : public IDispatch {
 public:
    using Reaction = std::function<HRESULT(DISPID, DISPPARAMS&)>;

    /// `id` is the interface that it answers to.
    static ComPtr<EventSink> make(const GUID& id, Reaction reaction) {
        return ComPtr<EventSink>::attach(new EventSink(id, std::move(reaction)));
    }
    EventSink(const EventSink&) = delete;
    EventSink& operator=(const EventSink&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        *result = nullptr;
        if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, id_)) return E_NOINTERFACE;
        *result = this;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* /*count*/) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/,
                                          ITypeInfo** /*result*/) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*id*/, LPOLESTR* /*names*/, UINT /*count*/,
                                            LCID /*locale*/, DISPID* /*ids*/) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID /*id*/, LCID /*locale*/, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* /*result*/,
                                     EXCEPINFO* exception, UINT* /*bad_argument*/) override {
        if (flags != DISPATCH_METHOD || parameters->cNamedArgs != 0) return E_INVALIDARG;
        ++calls;
        const ComPtr<EventSink> alive(this);
        const HRESULT result = reaction_(member, *parameters);
        if (result == DISP_E_EXCEPTION) exception->bstrDescription = SysAllocString(L"falla");
        return result;
    }

    int calls = 0;
    ULONG references = 1;

 private:
    EventSink(const GUID& id, Reaction reaction) : id_(id), reaction_(std::move(reaction)) {}
    ~EventSink() = default;

    const GUID id_;
    const Reaction reaction_;
};

/// The connection point of an object's events; null where it has none.
inline ComPtr<IConnectionPoint> connection_point(IDispatch* object, const GUID& events) {
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    if (SUCCEEDED(object->QueryInterface(IID_IConnectionPointContainer, container.put_void()))) {
        container->FindConnectionPoint(events, point.put());
    }
    return point;
}

/// The cookie of the sink's connection; 0 when it is refused.
inline DWORD attach(IDispatch* object, const GUID& events, EventSink& sink) {
    DWORD cookie = 0;
    const auto point = connection_point(object, events);
    if (point) point->Advise(&sink, &cookie);
    return cookie;
}

}  // namespace kovrel::test
