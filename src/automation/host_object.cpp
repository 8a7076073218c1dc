#include "automation/host_object.h"

#include <dispex.h>

#include <vector>

#include "automation/bstr.h"
#include "automation/floating_point.h"
#include "automation/platform_failure.h"
#include "automation/variant_argument.h"
#include "runtime/failure.h"

namespace kovrel {
namespace {

/// Limit on chains of default values: an object that is its own default value would never end.
constexpr int default_value_depth = 16;

/// Owner of the EXCEPINFO that a failed call fills.
class ExceptionRecord {
 public:
    ExceptionRecord() = default;
    ExceptionRecord(const ExceptionRecord&) = delete;
    ExceptionRecord& operator=(const ExceptionRecord&) = delete;
    ~ExceptionRecord() {
        SysFreeString(record_.bstrSource);
        SysFreeString(record_.bstrDescription);
        SysFreeString(record_.bstrHelpFile);
    }
    [[nodiscard]] EXCEPINFO* get() noexcept { return &record_; }

    [[noreturn]] void raise() {
        if (record_.pfnDeferredFillIn != nullptr) {
            const HostFloatingPoint host;
            record_.pfnDeferredFillIn(&record_);
        }
        HRESULT code = record_.wCode != 0 ? record_.wCode : record_.scode;
        if (code == 0) code = E_FAIL;
        throw_platform_failure(code, std::wstring(text_of(record_.bstrDescription)));
    }

 private:
    EXCEPINFO record_{};
};

/// Whether a failure means that the member needs an argument.
bool lacks_argument(const Failure& failure) {
    return failure.is(FailureNumber::wrong_argument_count) ||
           failure.is(FailureNumber::argument_not_optional);
}

}  // namespace

HostObject::HostObject(IDispatch* object) : object_(object) {
    if (!object_) throw Failure(FailureNumber::object_not_set);
}

HRESULT HostObject::ask_for_id(std::wstring& name, DISPID& id) const {
    const HostFloatingPoint host;
    LPOLESTR names = name.data();
    const HRESULT result = object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    if (result != E_NOTIMPL) return result;
    // Objects of Wine's script engine resolve names through IDispatchEx only.
    const auto extended = object_.query<IDispatchEx>();
    if (!extended) return result;
    return extended->GetDispID(Bstr(name).get(), fdexNameCaseInsensitive, &id);
}

DISPID HostObject::id_of(std::wstring_view member) const {
    const auto known = ids_.find(member);
    if (known != ids_.end()) return known->second;
    std::wstring name(member);
    DISPID id = DISPID_UNKNOWN;
    const HRESULT result = ask_for_id(name, id);
    if (FAILED(result)) throw_platform_failure(result);
    ids_.emplace(std::move(name), id);
    return id;
}

bool HostObject::has(std::wstring_view member) const {
    try {
        (void)id_of(member);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

Variant HostObject::invoke(DISPID id, WORD flags, const VARIANT* first, std::size_t count) const {
    const bool puts = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPID put_id = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{const_cast<VARIANT*>(first), puts ? &put_id : nullptr,
                          static_cast<UINT>(count), puts ? 1U : 0U};
    Variant result;
    ExceptionRecord exception;
    UINT bad_argument = 0;
    const HRESULT outcome = [&] {
        const HostFloatingPoint host;
        return object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                               puts ? nullptr : &result, exception.get(), &bad_argument);
    }();
    if (outcome == DISP_E_EXCEPTION) exception.raise();
    if (FAILED(outcome)) throw_platform_failure(outcome);
    if ((result.vt & VT_BYREF) == 0) return result;
    Variant copy;
    const HRESULT copied = copy_followed(copy, result);
    if (FAILED(copied)) throw_conversion_failure(copied);
    return copy;
}

Variant HostObject::invoke_reversed(DISPID id, WORD flags, Arguments arguments) const {
    const std::vector<Variant> reversed(std::rbegin(arguments), std::rend(arguments));
    return invoke(id, flags, reversed.data(), reversed.size());
}

Variant HostObject::get(std::wstring_view member, Arguments arguments) const {
    return invoke_reversed(id_of(member), DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments);
}

Variant HostObject::field(std::wstring_view member) const {
    return invoke(id_of(member), DISPATCH_PROPERTYGET, nullptr, 0);
}

void HostObject::put(std::wstring_view member, const Variant& value) const {
    invoke(id_of(member), DISPATCH_PROPERTYPUT, &value, 1);
}

void HostObject::put_object(std::wstring_view member, const Variant& value) const {
    invoke(id_of(member), DISPATCH_PROPERTYPUTREF, &value, 1);
}

Variant HostObject::call(std::wstring_view member, Arguments arguments) const {
    return invoke_reversed(id_of(member), DISPATCH_METHOD, arguments);
}

Variant HostObject::element(std::wstring_view member, std::int32_t index) const {
    Variant collection;
    try {
        collection = get(member);
    } catch (const Failure& failure) {
        if (!lacks_argument(failure)) throw;
        return get(member, {Variant(index)});
    }
    return HostObject(collection).indexed(index);
}

/// The default member with an index; `Item` for collections that have no default member.
Variant HostObject::indexed(std::int32_t index) const {
    const Variant argument(index);
    try {
        return invoke(DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, &argument, 1);
    } catch (const Failure& failure) {
        if (!failure.is(FailureNumber::member_not_found)) throw;
        return get(L"Item", {argument});
    }
}

Variant HostObject::default_value() const {
    Variant value = invoke(DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, nullptr, 0);
    for (int depth = 1; value.vt == VT_DISPATCH; ++depth) {
        if (depth == default_value_depth) throw Failure(FailureNumber::type_mismatch);
        const HostObject inner(value);
        value = inner.invoke(DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, nullptr, 0);
    }
    return value;
}

}  // namespace kovrel
