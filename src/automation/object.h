// A live instance of a public class: its dual interface, its reference count and the standard
// interfaces that every instance supports.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <atomic>
#include <new>
#include <ocidl.h>

#include "automation/boundary.h"
#include "automation/class_info.h"
#include "automation/com_ptr.h"

namespace kovrel {

/// Objects alive in this process, of all classes, and others that hosts hold: while there are any,
/// the library stays loaded.
[[nodiscard]] ULONG live_objects() noexcept;

/// A member of each of them.
class LiveObject {
 public:
    LiveObject() noexcept;
    LiveObject(const LiveObject&) = delete;
    LiveObject& operator=(const LiveObject&) = delete;
    ~LiveObject();
};

/// Function pointers in sequence, laid out as a vtable.
template <class First, class... Rest>
struct FunctionTable {
    explicit consteval FunctionTable(First function, Rest... others)
        : first(function), rest(others...) {}
    First first;
    FunctionTable<Rest...> rest;
};
template <class Last>
struct FunctionTable<Last> {
    explicit consteval FunctionTable(Last function) : last(function) {}
    Last last;
};

template <class... Functions>
[[nodiscard]] consteval FunctionTable<Functions...> function_table(Functions... functions) {
    return FunctionTable<Functions...>(functions...);
}

/// Base of every instance. It begins with the pointer to a vtable built from the class's
/// declaration, the seven IDispatch entries first, which is the layout of a COM object.
class ObjectBase {
 public:
    ObjectBase(const ObjectBase&) = delete;
    ObjectBase& operator=(const ObjectBase&) = delete;

    [[nodiscard]] const ClassInfo& info() const noexcept { return *info_; }
    /// The instance of the public class, as the class's own members see it.
    [[nodiscard]] void* implementation() const noexcept { return implementation_; }
    [[nodiscard]] IDispatch* dispatch() noexcept { return reinterpret_cast<IDispatch*>(this); }

    ULONG add_ref() noexcept;
    ULONG release() noexcept;

    /// Runs one early-bound call at the boundary, with the instance kept alive meanwhile: a host
    /// may let go of it from an event that the member lets through.
    HRESULT run(const MemberInfo& member, void (*body)(void*), void* context) noexcept;

    /// A class's vtable: the seven entries of IDispatch, and behind them those of its members.
    template <class... Slots>
    [[nodiscard]] static consteval auto vtable(Slots... slots) {
        return function_table(&query_interface, &add_reference, &release_reference,
                              &get_type_info_count, &get_type_info, &get_ids_of_names, &invoke,
                              slots...);
    }

 protected:
    ObjectBase(const ClassInfo& info, void* implementation) noexcept;
    ~ObjectBase() = default;

 private:
    /// A further interface of an instance, which shares its identity and reference count.
    template <class Interface>
    class Facet : public Interface {
     public:
        explicit Facet(ObjectBase& owner) noexcept : owner_(owner) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
            return owner_.query(id, result);
        }
        ULONG STDMETHODCALLTYPE AddRef() override { return owner_.add_ref(); }
        ULONG STDMETHODCALLTYPE Release() override { return owner_.release(); }

     protected:
        ObjectBase& owner_;
    };

    /// Tells early-bound callers that failures leave an error object.
    class ErrorSupport final : public Facet<ISupportErrorInfo> {
     public:
        using Facet::Facet;
        HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override;
    };

    /// Tells hosts which class of the type library an instance is of, and which are its events.
    class ClassInfoProvider final : public Facet<IProvideClassInfo2> {
     public:
        using Facet::Facet;
        HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** result) override;
        HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* result) override;
    };

    HRESULT query(REFIID id, void** result) noexcept;
    [[nodiscard]] void* interface_of_events(REFIID id) noexcept;

    static HRESULT STDMETHODCALLTYPE query_interface(ObjectBase* self, REFIID id, void** result);
    static ULONG STDMETHODCALLTYPE add_reference(ObjectBase* self);
    static ULONG STDMETHODCALLTYPE release_reference(ObjectBase* self);
    static HRESULT STDMETHODCALLTYPE get_type_info_count(ObjectBase* self, UINT* count);
    static HRESULT STDMETHODCALLTYPE get_type_info(ObjectBase* self, UINT index, LCID locale,
                                                   ITypeInfo** result);
    static HRESULT STDMETHODCALLTYPE get_ids_of_names(ObjectBase* self, REFIID id, LPOLESTR* names,
                                                      UINT count, LCID locale, DISPID* ids);
    static HRESULT STDMETHODCALLTYPE invoke(ObjectBase* self, DISPID member, REFIID id, LCID locale,
                                            WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                            EXCEPINFO* exception, UINT* bad_argument);

    [[maybe_unused]] const void* vtable_;  // callers read it
    std::atomic<ULONG> references_{1};
    const ClassInfo* info_;
    void* implementation_;
    ErrorSupport error_support_;
    ClassInfoProvider class_info_provider_;
    [[no_unique_address]] const LiveObject counted_;
};

/// An instance of the class whose members are those of `Class`.
template <class Class>
class Object final : public ObjectBase {
 public:
    static IDispatch* create() { return (new Object)->dispatch(); }
    static void destroy(void* object) noexcept {
        delete static_cast<Object*>(static_cast<ObjectBase*>(object));
    }

 private:
    Object() : ObjectBase(Class::class_info, &implementation_) {}
    ~Object() = default;

    Class implementation_;
};

/// A new instance of one of the library's classes, for the library's own use.
template <class Class>
[[nodiscard]] ComPtr<IDispatch> create_instance() {
    return ComPtr<IDispatch>::attach(Object<Class>::create());
}

/// The members' side of such an instance.
template <class Class>
[[nodiscard]] Class& implementation_of(IDispatch* instance) noexcept {
    return *static_cast<Class*>(reinterpret_cast<ObjectBase*>(instance)->implementation());
}

}  // namespace kovrel
