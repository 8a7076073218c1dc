#include "automation/object.h"

#include <algorithm>

#include "automation/current_call.h"
#include "automation/event_source.h"
#include "automation/floating_point.h"
#include "automation/late_call.h"
#include "automation/module.h"
#include "automation/platform_failure.h"

namespace kovrel {
namespace {

/// Keeps an instance alive while one of its members runs: a host may let go of it from an event
/// that the member lets through.
class KeepAlive {
 public:
    explicit KeepAlive(ObjectBase& object) noexcept : object_(object) { object_.add_ref(); }
    KeepAlive(const KeepAlive&) = delete;
    KeepAlive& operator=(const KeepAlive&) = delete;
    ~KeepAlive() { object_.release(); }

 private:
    ObjectBase& object_;
};

std::atomic<ULONG> objects{0};

/// Whether the call passes a value to assign to a property.
bool puts(const DISPPARAMS& parameters) noexcept {
    return parameters.cNamedArgs != 0 && parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
}

/// The accessor that the flags of a call ask for; null when the member has none. When they ask for
/// reading and assignment at once, a call with a value to assign assigns.
const MemberInfo* wanted(const ClassInfo::Accessors& accessors, WORD flags,
                         const DISPPARAMS& parameters) noexcept {
    using enum MemberKind;
    const auto asks_for = [&](WORD flag, MemberKind kind) {
        return (flags & flag) != 0 && accessors[kind] != nullptr;
    };
    if (asks_for(DISPATCH_METHOD, method)) return accessors[method];
    if (asks_for(DISPATCH_PROPERTYGET, property_get) && !puts(parameters)) {
        return accessors[property_get];
    }
    if (asks_for(DISPATCH_PROPERTYPUTREF, property_put_object)) {
        return accessors[property_put_object];
    }
    if (asks_for(DISPATCH_PROPERTYPUT, property_put)) return accessors[property_put];
    // Hosts without object assignment ("Set") assign objects like any other value.
    if ((flags & DISPATCH_PROPERTYPUT) != 0) return accessors[property_put_object];
    return (flags & DISPATCH_PROPERTYGET) != 0 ? accessors[property_get] : nullptr;
}

/// Whether the DISPPARAMS are consistent.
bool complete(const DISPPARAMS* parameters) noexcept {
    return parameters != nullptr && parameters->cNamedArgs <= parameters->cArgs &&
           (parameters->cArgs == 0 || parameters->rgvarg != nullptr) &&
           (parameters->cNamedArgs == 0 || parameters->rgdispidNamedArgs != nullptr);
}

void fill(EXCEPINFO* exception, HRESULT code, const wchar_t* description,
          const ClassInfo& info) noexcept {
    if (exception == nullptr) return;
    *exception = {};
    exception->scode = code;
    exception->bstrSource = SysAllocString(info.prog_id);
    exception->bstrDescription = SysAllocString(description);
}

/// Rejects a call that does not match the member, with a description for hosts that read one.
HRESULT refuse(EXCEPINFO* exception, const CallError& error, const wchar_t* member,
               const ClassInfo& info) noexcept {
    try {
        const Failure failure(error.result,
                              misfit_description(error.result, member, error.parameter));
        fill(exception, error.result, failure.description().data(), info);
        set_error_object(failure, info.prog_id, info.interface_id);
        return error.result;
    } catch (const std::bad_alloc&) {
        return error.result;  // without a description
    }
}

ITypeLib* load_own_library() {
    ITypeLib* library = nullptr;
    const HRESULT loaded = LoadTypeLibEx(own_module_path().c_str(), REGKIND_NONE, &library);
    if (FAILED(loaded)) throw Failure(loaded, {});
    return library;
}

/// The description of a class or interface from the type library in the module's resources.
HRESULT own_type_info(const GUID& id, ITypeInfo** result) noexcept {
    *result = nullptr;
    try {
        // Loaded once: hosts ask for it with every object.
        static ITypeLib* const library = load_own_library();
        return library->GetTypeInfoOfGuid(id, result);
    } catch (...) {
        return hresult_of(current_failure());
    }
}

}  // namespace

ULONG live_objects() noexcept {
    return objects;
}

LiveObject::LiveObject() noexcept {
    ++objects;
}

LiveObject::~LiveObject() {
    --objects;
}

ObjectBase::ObjectBase(const ClassInfo& info, void* implementation) noexcept
    : vtable_(info.vtable),
      info_(&info),
      implementation_(implementation),
      error_support_(*this),
      class_info_provider_(*this) {}

ULONG ObjectBase::add_ref() noexcept {
    return ++references_;
}

ULONG ObjectBase::release() noexcept {
    const ULONG left = --references_;
    if (left == 0) {
        // Objects that the destructor releases may add and release a reference to this one.
        references_ = 1;
        info_->destroy(this);
    }
    return left;
}

HRESULT ObjectBase::query(REFIID id, void** result) noexcept {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) ||
        IsEqualIID(id, info_->interface_id)) {
        *result = this;
    } else if (IsEqualIID(id, IID_ISupportErrorInfo)) {
        *result = static_cast<ISupportErrorInfo*>(&error_support_);
    } else if (IsEqualIID(id, IID_IProvideClassInfo)) {
        *result = static_cast<IProvideClassInfo*>(&class_info_provider_);
    } else {
        *result = info_->events != nullptr ? interface_of_events(id) : nullptr;
        if (*result == nullptr) return E_NOINTERFACE;
    }
    add_ref();
    return S_OK;
}

void* ObjectBase::interface_of_events(REFIID id) noexcept {
    if (IsEqualIID(id, IID_IProvideClassInfo2)) {
        return static_cast<IProvideClassInfo2*>(&class_info_provider_);
    }
    if (!IsEqualIID(id, IID_IConnectionPointContainer)) return nullptr;
    return info_->event_source(implementation_).container(*this);
}

HRESULT STDMETHODCALLTYPE ObjectBase::ErrorSupport::InterfaceSupportsErrorInfo(REFIID id) {
    return IsEqualIID(id, owner_.info_->interface_id) ? S_OK : S_FALSE;
}

HRESULT STDMETHODCALLTYPE ObjectBase::ClassInfoProvider::GetClassInfo(ITypeInfo** result) {
    if (result == nullptr) return E_POINTER;
    return own_type_info(owner_.info_->class_id, result);
}

HRESULT STDMETHODCALLTYPE ObjectBase::ClassInfoProvider::GetGUID(DWORD kind, GUID* result) {
    if (result == nullptr) return E_POINTER;
    *result = {};
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *result = owner_.info_->events->id;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE ObjectBase::query_interface(ObjectBase* self, REFIID id, void** result) {
    return self->query(id, result);
}

ULONG STDMETHODCALLTYPE ObjectBase::add_reference(ObjectBase* self) {
    return self->add_ref();
}

ULONG STDMETHODCALLTYPE ObjectBase::release_reference(ObjectBase* self) {
    return self->release();
}

HRESULT STDMETHODCALLTYPE ObjectBase::get_type_info_count(ObjectBase* /*self*/, UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE ObjectBase::get_type_info(ObjectBase* self, UINT index, LCID /*locale*/,
                                                    ITypeInfo** result) {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return own_type_info(self->info_->interface_id, result);
}

HRESULT STDMETHODCALLTYPE ObjectBase::get_ids_of_names(ObjectBase* self, REFIID id, LPOLESTR* names,
                                                       UINT count, LCID /*locale*/, DISPID* ids) {
    if (!InlineIsEqualGUID(id, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    try {
        const HRESULT result = self->info_->find_ids(names, count, ids);
        if (result != DISP_E_UNKNOWNNAME) return result;
        const auto unknown = std::find(ids, ids + count, DISPID_UNKNOWN) - ids;
        const CallError error =
            unknown == 0 ? CallError{result} : CallError{DISP_E_PARAMNOTFOUND, {}, names[unknown]};
        refuse(nullptr, error, names[0], *self->info_);
        return result;
    } catch (...) {
        return hresult_of(current_failure());
    }
}

HRESULT STDMETHODCALLTYPE ObjectBase::invoke(ObjectBase* self, DISPID member, REFIID id,
                                             LCID /*locale*/, WORD flags, DISPPARAMS* parameters,
                                             VARIANT* result, EXCEPINFO* exception,
                                             UINT* bad_argument) {
    if (result != nullptr) result->vt = VT_EMPTY;
    if (!InlineIsEqualGUID(id, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (!complete(parameters)) return E_INVALIDARG;
    const ClassInfo& info = *self->info_;
    const ClassInfo::Accessors accessors = info.accessors(member);
    const MemberInfo* entry = wanted(accessors, flags, *parameters);
    if (entry == nullptr && member == DISPID_NEWENUM && flags == DISPATCH_METHOD) {
        entry = accessors[MemberKind::property_get];  // some hosts ask for it as a method
    }
    if (entry == nullptr) {
        const MemberInfo* const any = accessors.any();
        return refuse(exception, {DISP_E_MEMBERNOTFOUND}, any == nullptr ? nullptr : any->name,
                      info);
    }

    const KeepAlive alive(*self);
    const CurrentCall current(info, *entry);
    const DefaultFloatingPoint floating_point;
    try {
        LateCall call(*entry, *parameters, result);
        entry->late(self->implementation_, call);
        return S_OK;
    } catch (const CallError& error) {
        if (bad_argument != nullptr && error.argument) *bad_argument = *error.argument;
        return refuse(exception, error, entry->name, info);
    } catch (...) {
        const Failure failure = current_failure();
        fill(exception, hresult_of(failure), failure.description().data(), info);
        return DISP_E_EXCEPTION;
    }
}

HRESULT ObjectBase::run(const MemberInfo& member, void (*body)(void*), void* context) noexcept {
    const KeepAlive alive(*this);
    const CurrentCall current(*info_, member);
    return run_at_boundary(info_->prog_id, info_->interface_id, body, context);
}

}  // namespace kovrel
