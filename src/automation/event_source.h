// The events of an object: the connection point at which hosts attach what receives them.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <ocidl.h>
#include <span>
#include <vector>

#include "automation/class_info.h"
#include "automation/com_ptr.h"

namespace kovrel {

class ObjectBase;

/// A member of a class that has events, which are those of the class's EventsInfo. It shares the
/// identity and the references of the instance that it is in.
class EventSource {
 public:
    explicit EventSource(const EventsInfo& events) noexcept;
    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;
    ~EventSource() = default;

    /// The instance's container of connection points, without a reference.
    [[nodiscard]] IConnectionPointContainer* container(ObjectBase& instance) noexcept;

    [[nodiscard]] bool has_sinks() const noexcept { return !sinks_.empty(); }

    /// Calls every sink in the order in which they were attached, with the arguments in the order
    /// of the declaration; those by reference refer to variables of the caller. A sink that fails,
    /// that detaches itself or others, or that lets go of the instance harms nobody.
    void fire(DISPID event, std::span<const VARIANT> arguments) noexcept;

 private:
    struct Sink {
        ComPtr<IDispatch> object;
        DWORD cookie;
    };

    class Container final : public IConnectionPointContainer {
     public:
        explicit Container(EventSource& source) noexcept : source_(source) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override;
        ULONG STDMETHODCALLTYPE AddRef() override;
        ULONG STDMETHODCALLTYPE Release() override;
        HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** result) override;
        HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id,
                                                      IConnectionPoint** result) override;

     private:
        EventSource& source_;
    };

    /// An object of its own, as its interface wants it, that lives as long as the instance.
    class Point final : public IConnectionPoint {
     public:
        explicit Point(EventSource& source) noexcept : source_(source) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override;
        ULONG STDMETHODCALLTYPE AddRef() override;
        ULONG STDMETHODCALLTYPE Release() override;
        HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* result) override;
        HRESULT STDMETHODCALLTYPE
        GetConnectionPointContainer(IConnectionPointContainer** result) override;
        HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
        HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
        HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** result) override;

     private:
        EventSource& source_;
    };

    [[nodiscard]] const Sink* find(DWORD cookie) const noexcept;

    const EventsInfo& events_;
    ObjectBase* instance_ = nullptr;  ///< known once a host has asked for the container
    Container container_{*this};
    Point point_{*this};
    std::vector<Sink> sinks_;
    DWORD last_cookie_ = 0;
};

}  // namespace kovrel
