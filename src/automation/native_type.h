// How each C++ type of a member's signature is passed, early-bound and late-bound.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <array>
#include <cstdint>
#include <ocidl.h>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "automation/bstr.h"
#include "automation/class_info.h"
#include "automation/late_call.h"
#include "automation/variant.h"
#include "automation/variant_argument.h"

namespace kovrel {

/// An instance of one of the library's own classes, held by its dual interface.
template <class Class>
class InstanceOf : public ComPtr<IDispatch> {
 public:
    using ComPtr::ComPtr;
    InstanceOf() = default;
    explicit InstanceOf(ComPtr<IDispatch> instance) : ComPtr(std::move(instance)) {}
};

/// A record of one field, a fixed array of texts; missing texts are empty.
template <std::size_t Size>
struct TextRecord {
    static constexpr std::size_t size = Size;
    std::array<std::wstring, Size> texts;
    bool operator==(const TextRecord&) const = default;
};

/// What Native<T> has to offer (variants are read and written through references instead):
///   Raw                      how a value of the type is passed
///   from_raw(raw)            the native value; the raw one stays the caller's
///   to_raw(value)            a raw value that the receiver owns
///   release(raw)             frees what a raw value owns
///   from_call(call, index)   the native value of a late-bound argument
///   put(target, value)       stores the native value in a VARIANT that holds nothing; in place,
///                            because copying a VARIANT just written in parts stalls the processor
///   type()                   how the type library spells it
/// and, where a by-reference VARIANT can refer to a Raw, `vartype`, its type without VT_BYREF.
template <class T>
struct Native;

/// The form in which a plain value is passed.
template <class T>
T raw_of(T value) noexcept {
    return value;
}
inline VARIANT_BOOL raw_of(bool value) noexcept {
    return value ? VARIANT_TRUE : VARIANT_FALSE;
}
inline DATE raw_of(Date value) noexcept {
    return value.days;
}

/// Types whose values own nothing.
template <class T, VARTYPE Type, auto Field>
struct NativePlain {
    using Raw = std::remove_reference_t<decltype(std::declval<VARIANT&>().*Field)>;
    static constexpr VARTYPE vartype = Type;
    static T from_raw(Raw raw) noexcept {
        if constexpr (std::is_aggregate_v<T>) {
            return T{raw};
        } else {
            return static_cast<T>(raw);
        }
    }
    static Raw to_raw(T value) noexcept { return static_cast<Raw>(raw_of(value)); }
    static void release(Raw /*raw*/) noexcept {}
    static T from_call(const LateCall& call, std::size_t index) {
        const VARIANT& argument = call.argument(index);
        if (argument.vt == Type) return from_raw(argument.*Field);
        if (argument.vt == (VT_BYREF | Type)) return from_raw(*static_cast<Raw*>(argument.byref));
        return from_raw(call.coerced(index, Type).*Field);
    }
    static void put(VARIANT& target, T value) noexcept {
        target.vt = Type;
        target.*Field = to_raw(value);
    }
    static constexpr TypeRef type() noexcept { return {.type = Type}; }
};

// VARIANT's value members sit in an anonymous union, which a member pointer can name.
template <>
struct Native<std::uint8_t> : NativePlain<std::uint8_t, VT_UI1, &VARIANT::bVal> {};
template <>
struct Native<std::int16_t> : NativePlain<std::int16_t, VT_I2, &VARIANT::iVal> {};
template <>
struct Native<std::int32_t> : NativePlain<std::int32_t, VT_I4, &VARIANT::lVal> {};
template <>
struct Native<float> : NativePlain<float, VT_R4, &VARIANT::fltVal> {};
template <>
struct Native<double> : NativePlain<double, VT_R8, &VARIANT::dblVal> {};
template <>
struct Native<bool> : NativePlain<bool, VT_BOOL, &VARIANT::boolVal> {};
template <>
struct Native<Date> : NativePlain<Date, VT_DATE, &VARIANT::date> {};

template <>
struct Native<std::wstring> {
    using Raw = BSTR;
    static constexpr VARTYPE vartype = VT_BSTR;
    static std::wstring from_raw(Raw raw) { return std::wstring(text_of(raw)); }
    static Raw to_raw(const std::wstring& value) { return new_bstr(value); }
    static void release(Raw raw) noexcept { SysFreeString(raw); }
    static std::wstring from_call(const LateCall& call, std::size_t index) {
        const VARIANT& argument = call.argument(index);
        if (argument.vt == VT_BSTR) return from_raw(argument.bstrVal);
        if (argument.vt == (VT_BYREF | VT_BSTR)) return from_raw(*argument.pbstrVal);
        return from_raw(call.coerced(index, VT_BSTR).bstrVal);
    }
    static void put(VARIANT& target, const std::wstring& value) {
        target.bstrVal = to_raw(value);
        target.vt = VT_BSTR;
    }
    static constexpr TypeRef type() noexcept { return {.type = VT_BSTR}; }
};

/// A text passed by value. Nobody frees it during the call, so it is not copied; where the argument
/// refers to a variable instead, which an event may change meanwhile, there is a copy.
class TextArgument {
 public:
    explicit TextArgument(BSTR callers) noexcept : text_(text_of(callers)) {}
    explicit TextArgument(Bstr copy) noexcept : copy_(std::move(copy)), text_(copy_.view()) {}

    [[nodiscard]] std::wstring_view text() const noexcept { return text_; }

 private:
    Bstr copy_;
    std::wstring_view text_;
};

template <>
struct Native<std::wstring_view> {
    using Raw = BSTR;
    static TextArgument from_raw(Raw raw) noexcept { return TextArgument(raw); }
    static TextArgument from_call(const LateCall& call, std::size_t index) {
        if (const BSTR* const given = call.text(index)) return from_raw(*given);
        Bstr copy;
        *copy.put() = call.coerced(index, VT_BSTR).detach().bstrVal;
        return TextArgument(std::move(copy));
    }
    static constexpr TypeRef type() noexcept { return {.type = VT_BSTR}; }
};

/// A VARIANT by value whose content is not copied, however large the array in it is: it remains the
/// host's, which may change it in an event.
class ValueArgument {
 public:
    /// A null reference is an empty value.
    explicit ValueArgument(const VARIANT& given) noexcept {
        const VARIANT* const last = followed(const_cast<VARIANT*>(&given));
        if (last != nullptr) value_ = *last;
    }

    [[nodiscard]] const VARIANT& value() const noexcept { return value_; }

 private:
    VARIANT value_{};
};

template <>
struct Native<ValueArgument> {
    using Raw = VARIANT;
    static ValueArgument from_raw(const Raw& raw) noexcept { return ValueArgument(raw); }
    static ValueArgument from_call(const LateCall& call, std::size_t index) {
        return ValueArgument(call.argument(index));
    }
    static constexpr TypeRef type() noexcept { return {.type = VT_VARIANT}; }
};

/// What holds an argument during the call.
template <class T>
using ArgumentValue = std::conditional_t<std::is_same_v<T, std::wstring_view>, TextArgument, T>;

template <>
struct Native<Variant> {
    using Raw = VARIANT;
    static Raw to_raw(Variant value) noexcept { return value.detach(); }
    static Variant from_call(const LateCall& call, std::size_t index) { return call.copied(index); }
    static void put(VARIANT& target, Variant value) noexcept { target = value.detach(); }
    static constexpr TypeRef type() noexcept { return {.type = VT_VARIANT}; }
};

/// Interface pointers: any object, a picture, or one of the library's own.
template <class Pointer, class Interface>
struct NativeInterface {
    using Raw = Interface*;
    static Pointer from_raw(Raw raw) noexcept { return Pointer(ComPtr<Interface>(raw)); }
    static Raw to_raw(Pointer value) noexcept { return value.detach(); }
    static void release(Raw raw) noexcept {
        if (raw != nullptr) raw->Release();
    }
    static void put(VARIANT& target, const Pointer& value) noexcept {
        target.vt = VT_DISPATCH;
        target.pdispVal = ComPtr<IDispatch>(value.get()).detach();
    }

 protected:
    /// The object of a late-bound argument; empty for Nothing.
    static ComPtr<Interface> object_of(const LateCall& call, std::size_t index,
                                       const IID& interface_id) {
        const Variant value = call.copied(index);
        ComPtr<Interface> result;
        if (!value.is_object()) call.fail(index, DISP_E_TYPEMISMATCH);
        if (value.punkVal != nullptr &&
            FAILED(value.punkVal->QueryInterface(interface_id, result.put_void()))) {
            call.fail(index, DISP_E_TYPEMISMATCH);
        }
        return result;
    }
};

template <>
struct Native<ComPtr<IDispatch>> : NativeInterface<ComPtr<IDispatch>, IDispatch> {
    static ComPtr<IDispatch> from_call(const LateCall& call, std::size_t index) {
        return object_of(call, index, IID_IDispatch);
    }
    static constexpr TypeRef type() noexcept { return {.type = VT_DISPATCH}; }
};

/// What a collection's enumeration gives; a result only.
template <>
struct Native<ComPtr<IUnknown>> {
    using Raw = IUnknown*;
    static Raw to_raw(ComPtr<IUnknown> value) noexcept { return value.detach(); }
    static void put(VARIANT& target, ComPtr<IUnknown> value) noexcept {
        target.vt = VT_UNKNOWN;
        target.punkVal = value.detach();
    }
    static constexpr TypeRef type() noexcept { return {.type = VT_UNKNOWN}; }
};

template <>
struct Native<ComPtr<IPictureDisp>> : NativeInterface<ComPtr<IPictureDisp>, IPictureDisp> {
    static ComPtr<IPictureDisp> from_call(const LateCall& call, std::size_t index) {
        return object_of(call, index, IID_IPictureDisp);
    }
    static constexpr TypeRef type() noexcept { return {.type = VT_USERDEFINED, .picture = true}; }
};

template <class Class>
struct Native<InstanceOf<Class>> : NativeInterface<InstanceOf<Class>, IDispatch> {
    static InstanceOf<Class> from_call(const LateCall& call, std::size_t index) {
        return InstanceOf<Class>(NativeInterface<InstanceOf<Class>, IDispatch>::object_of(
            call, index, Class::class_info.interface_id));
    }
    static constexpr TypeRef type() noexcept {
        return {.type = VT_USERDEFINED, .instance_of = &Class::class_info};
    }
};

/// Enumerations of the type library: 32-bit, described by enumeration_info(T{}).
template <class T>
requires std::is_enum_v<T>
struct Native<T> : NativePlain<T, VT_I4, &VARIANT::lVal> {
    static_assert(sizeof(T) == sizeof(std::int32_t));
    static constexpr TypeRef type() noexcept {
        return {.type = VT_USERDEFINED, .enumeration = &enumeration_info(T{})};
    }
};

/// Records of the type library: a fixed array of texts, described by T::info. They are
/// passed by reference and never written back.
template <class T>
requires std::is_base_of_v<TextRecord<T::size>, T>
struct Native<T> {
    struct Raw {
        std::array<BSTR, T::size> texts;
    };
    static T from_raw(const Raw& raw) {
        T result;
        for (std::size_t index = 0; index < T::size; ++index) {
            result.texts[index] = text_of(raw.texts[index]);
        }
        return result;
    }
    static T from_call(const LateCall& call, std::size_t index) {
        T result;
        std::size_t next = 0;
        for (std::wstring& text : call.texts(index, T::info)) {
            result.texts[next++] = std::move(text);
        }
        return result;
    }
    static constexpr TypeRef type() noexcept {
        return {.type = VT_USERDEFINED, .record = &T::info};
    }
};

}  // namespace kovrel
