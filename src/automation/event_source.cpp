#include "automation/event_source.h"

#include <olectl.h>

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

#include "automation/enumerator.h"
#include "automation/floating_point.h"
#include "automation/object.h"

namespace kovrel {
namespace {

struct PointTraits {
    using Interface = IEnumConnectionPoints;
    using Raw = IConnectionPoint*;
    using Held = ComPtr<IConnectionPoint>;

    static HRESULT copy(const Held& held, Raw& raw) noexcept {
        raw = Held(held).detach();
        return S_OK;
    }
    static void clear(Raw raw) noexcept { raw->Release(); }
};

struct Connection {
    ComPtr<IUnknown> sink;
    DWORD cookie;
};

struct ConnectionTraits {
    using Interface = IEnumConnections;
    using Raw = CONNECTDATA;
    using Held = Connection;

    static HRESULT copy(const Held& held, Raw& raw) noexcept {
        raw = {ComPtr<IUnknown>(held.sink).detach(), held.cookie};
        return S_OK;
    }
    static void clear(Raw& raw) noexcept { raw.pUnk->Release(); }
};

/// What runs of the library for a host that waits only for an HRESULT.
template <class Body>
HRESULT without_exceptions(Body body) noexcept {
    try {
        body();
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

void call(IDispatch& sink, DISPID event, std::vector<VARIANT>& reversed) noexcept {
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    EXCEPINFO exception{};
    const HostFloatingPoint host;
    sink.Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                &exception, nullptr);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
}

}  // namespace

EventSource::EventSource(const EventsInfo& events) noexcept : events_(events) {}

IConnectionPointContainer* EventSource::container(ObjectBase& instance) noexcept {
    instance_ = &instance;
    return &container_;
}

const EventSource::Sink* EventSource::find(DWORD cookie) const noexcept {
    const auto found = std::find_if(sinks_.begin(), sinks_.end(),
                                    [cookie](const Sink& sink) { return sink.cookie == cookie; });
    return found != sinks_.end() ? &*found : nullptr;
}

void EventSource::fire(DISPID event, std::span<const VARIANT> arguments) noexcept {
    if (sinks_.empty()) return;
    const ComPtr<IDispatch> alive(instance_->dispatch());
    (void)without_exceptions([&] {
        // A sink may attach and detach others.
        const std::vector<Sink> called = sinks_;
        std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
        for (const Sink& sink : called) {
            if (find(sink.cookie) != nullptr) call(*sink.object.get(), event, reversed);
        }
    });
}

HRESULT STDMETHODCALLTYPE EventSource::Container::QueryInterface(REFIID id, void** result) {
    return source_.instance_->dispatch()->QueryInterface(id, result);
}

ULONG STDMETHODCALLTYPE EventSource::Container::AddRef() {
    return source_.instance_->add_ref();
}

ULONG STDMETHODCALLTYPE EventSource::Container::Release() {
    return source_.instance_->release();
}

HRESULT STDMETHODCALLTYPE
EventSource::Container::EnumConnectionPoints(IEnumConnectionPoints** result) {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    return without_exceptions([&] {
        ComPtr<IConnectionPoint> point(&source_.point_);
        *result = Enumerator<PointTraits>::over({std::move(point)}).detach();
    });
}

HRESULT STDMETHODCALLTYPE EventSource::Container::FindConnectionPoint(REFIID id,
                                                                      IConnectionPoint** result) {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (!IsEqualIID(id, source_.events_.id)) return CONNECT_E_NOCONNECTION;
    *result = ComPtr<IConnectionPoint>(&source_.point_).detach();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE EventSource::Point::QueryInterface(REFIID id, void** result) {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IConnectionPoint)) {
        return E_NOINTERFACE;
    }
    *result = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
}

ULONG STDMETHODCALLTYPE EventSource::Point::AddRef() {
    return source_.instance_->add_ref();
}

ULONG STDMETHODCALLTYPE EventSource::Point::Release() {
    return source_.instance_->release();
}

HRESULT STDMETHODCALLTYPE EventSource::Point::GetConnectionInterface(IID* result) {
    if (result == nullptr) return E_POINTER;
    *result = source_.events_.id;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE
EventSource::Point::GetConnectionPointContainer(IConnectionPointContainer** result) {
    if (result == nullptr) return E_POINTER;
    *result = ComPtr<IConnectionPointContainer>(&source_.container_).detach();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE EventSource::Point::Advise(IUnknown* sink, DWORD* cookie) {
    if (cookie != nullptr) *cookie = 0;
    if (sink == nullptr || cookie == nullptr) return E_POINTER;
    // Sinks of script hosts answer to the events' interface, others to IDispatch alone.
    ComPtr<IDispatch> object;
    if (FAILED(sink->QueryInterface(source_.events_.id, object.put_void())) &&
        FAILED(sink->QueryInterface(IID_IDispatch, object.put_void()))) {
        return CONNECT_E_CANNOTCONNECT;
    }
    return without_exceptions([&] {
        source_.sinks_.push_back({std::move(object), source_.last_cookie_ + 1});
        *cookie = ++source_.last_cookie_;
    });
}

HRESULT STDMETHODCALLTYPE EventSource::Point::Unadvise(DWORD cookie) {
    const Sink* const sink = source_.find(cookie);
    if (sink == nullptr) return CONNECT_E_NOCONNECTION;
    // Released when it is no longer in the list: it may let go of the instance.
    const ComPtr<IDispatch> alive(source_.instance_->dispatch());
    const ComPtr<IDispatch> object(sink->object);
    source_.sinks_.erase(source_.sinks_.begin() + (sink - source_.sinks_.data()));
    return S_OK;
}

HRESULT STDMETHODCALLTYPE EventSource::Point::EnumConnections(IEnumConnections** result) {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    return without_exceptions([&] {
        std::vector<Connection> connections;
        for (const Sink& sink : source_.sinks_) {
            connections.push_back({sink.object.query<IUnknown>(), sink.cookie});
        }
        *result = Enumerator<ConnectionTraits>::over(std::move(connections)).detach();
    });
}

}  // namespace kovrel
