// Late-bound calls as script hosts make them, with everything that comes back.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>
#include <utility>
#include <vector>

#include "automation/bstr.h"
#include "automation/variant.h"

namespace kovrel::test {

using kovrel::text_of;  // beside the one that reads a window

/// COM for the thread of a test program.
class ComApartment {
 public:
    ComApartment() { result_ = OleInitialize(nullptr); }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
    ~ComApartment() {
        if (SUCCEEDED(result_)) OleUninitialize();
    }

 private:
    HRESULT result_;
};

/// A new instance of a registered class; null when that fails.
ComPtr<IDispatch> create(const wchar_t* prog_id);

/// Hooks that run right before and after each call, with the host's floating-point environment.
struct AroundCalls {
    static inline void (*before)() = nullptr;
    static inline void (*after)() = nullptr;
};

/// Makes a call with these hooks around it.
template <class Call>
HRESULT made(const Call& call) {
    if (AroundCalls::before != nullptr) AroundCalls::before();
    const HRESULT result = call();
    if (AroundCalls::after != nullptr) AroundCalls::after();
    return result;
}

/// What a late-bound call came back with.
struct Outcome {
    HRESULT result = E_UNEXPECTED;
    Variant value;
    UINT bad_argument = 0xFFFF;
    HRESULT error = S_OK;  ///< EXCEPINFO::scode
    std::wstring source;
    std::wstring description;
};

/// One argument: a value, or a reference to a variable of the test's.
struct LateArgument : VARIANT {
    template <class Value>
    LateArgument(const Value& value) : owned(value) {  // NOLINT(google-explicit-constructor)
        static_cast<VARIANT&>(*this) = owned;
    }
    LateArgument(const LateArgument& other) : VARIANT(other), owned(other.owned) {
        if ((vt & VT_BYREF) == 0) static_cast<VARIANT&>(*this) = owned;
    }
    LateArgument& operator=(const LateArgument&) = delete;

    /// A variant variable, as script hosts pass them.
    static LateArgument variable(VARIANT& target);
    /// A typed variable, as compiled hosts pass them.
    static LateArgument variable(std::int16_t& target);
    static LateArgument variable(std::int32_t& target);
    static LateArgument variable(double& target);
    static LateArgument flag(VARIANT_BOOL& target);
    static LateArgument variable(BSTR& target);
    static LateArgument missing() { return LateArgument(Variant::missing()); }

    Variant owned;
};

/// The id of a member; DISPID_UNKNOWN where the object has no such member.
DISPID id_of(IDispatch* object, const std::wstring& member);

/// Calls with arguments in their natural order; the last ones can be named.
Outcome invoke(IDispatch* object, const std::wstring& member, WORD flags,
               const std::vector<LateArgument>& arguments,
               const std::vector<std::wstring>& names_of_last = {});

inline Outcome call(IDispatch* object, const std::wstring& member,
                    const std::vector<LateArgument>& arguments = {}) {
    return invoke(object, member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
}
inline Outcome get(IDispatch* object, const std::wstring& member) {
    return invoke(object, member, DISPATCH_PROPERTYGET, {});
}
Outcome put(IDispatch* object, const std::wstring& member, const Variant& value,
            WORD flags = DISPATCH_PROPERTYPUT);

/// The text of a result that must be a text.
std::wstring text_of_result(const Outcome& outcome);

}  // namespace kovrel::test
