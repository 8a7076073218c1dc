// How each C++ type of a member's signature crosses the interface, early-bound and late-bound.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <array>
#include <cstdint>
#include <ocidl.h>
#include <string>
#include <type_traits>
#include <utility>

#include "automation/bstr.h"
#include "automation/class_info.h"
#include "automation/late_call.h"
#include "automation/variant.h"

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
///   to_variant(value)        the native value for a late-bound caller
///   type()                   how the type library spells it
template <class T>
struct Native;

/// Types that cross as they are.
template <class T, VARTYPE Type, auto Field>
struct NativePlain {
    using Raw = T;
    static T from_raw(Raw raw) noexcept { return raw; }
    static Raw to_raw(T value) noexcept { return value; }
    static void release(Raw /*raw*/) noexcept {}
    static T from_call(const LateCall& call, std::size_t index) {
        const VARIANT& argument = call.argument(index);
        if (argument.vt == Type) return argument.*Field;
        return call.coerced(index, Type).*Field;
    }
    static Variant to_variant(T value) noexcept { return Variant(value); }
    static constexpr TypeRef type() noexcept { return {.type = Type}; }
};

// VARIANT's value members sit in an anonymous union, which a member pointer can name.
template <>
struct Native<std::uint8_t> : NativePlain<std::uint8_t, VT_UI1, &VARIANT::bVal> {};
template <>
struct Native<std::int16_t> : NativePlain<std::int16_t, VT_I2, &VARIANT::iVal> {};
template <>
struct Native<float> : NativePlain<float, VT_R4, &VARIANT::fltVal> {};
template <>
struct Native<double> : NativePlain<double, VT_R8, &VARIANT::dblVal> {};

template <>
struct Native<std::int32_t> {
    using Raw = std::int32_t;
    static std::int32_t from_raw(Raw raw) noexcept { return raw; }
    static Raw to_raw(std::int32_t value) noexcept { return value; }
    static void release(Raw /*raw*/) noexcept {}
    static std::int32_t from_call(const LateCall& call, std::size_t index) {
        const VARIANT& argument = call.argument(index);
        return argument.vt == VT_I4 ? argument.lVal : call.coerced(index, VT_I4).lVal;
    }
    static Variant to_variant(std::int32_t value) noexcept { return Variant(value); }
    static constexpr TypeRef type() noexcept { return {.type = VT_I4}; }
};

template <>
struct Native<bool> {
    using Raw = VARIANT_BOOL;
    static bool from_raw(Raw raw) noexcept { return raw != VARIANT_FALSE; }
    static Raw to_raw(bool value) noexcept { return value ? VARIANT_TRUE : VARIANT_FALSE; }
    static void release(Raw /*raw*/) noexcept {}
    static bool from_call(const LateCall& call, std::size_t index) {
        return call.coerced(index, VT_BOOL).boolVal != VARIANT_FALSE;
    }
    static Variant to_variant(bool value) noexcept { return Variant(value); }
    static constexpr TypeRef type() noexcept { return {.type = VT_BOOL}; }
};

template <>
struct Native<Date> {
    using Raw = DATE;
    static Date from_raw(Raw raw) noexcept { return Date{raw}; }
    static Raw to_raw(Date value) noexcept { return value.days; }
    static void release(Raw /*raw*/) noexcept {}
    static Date from_call(const LateCall& call, std::size_t index) {
        return Date{call.coerced(index, VT_DATE).date};
    }
    static Variant to_variant(Date value) noexcept { return Variant(value); }
    static constexpr TypeRef type() noexcept { return {.type = VT_DATE}; }
};

template <>
struct Native<std::wstring> {
    using Raw = BSTR;
    static std::wstring from_raw(Raw raw) { return std::wstring(text_of(raw)); }
    static Raw to_raw(const std::wstring& value) { return new_bstr(value); }
    static void release(Raw raw) noexcept { SysFreeString(raw); }
    static std::wstring from_call(const LateCall& call, std::size_t index) {
        const VARIANT& argument = call.argument(index);
        if (argument.vt == VT_BSTR) return from_raw(argument.bstrVal);
        return from_raw(call.coerced(index, VT_BSTR).bstrVal);
    }
    static Variant to_variant(const std::wstring& value) { return Variant(value); }
    static constexpr TypeRef type() noexcept { return {.type = VT_BSTR}; }
};

template <>
struct Native<Variant> {
    using Raw = VARIANT;
    static Raw to_raw(Variant value) noexcept { return value.detach(); }
    static Variant from_call(const LateCall& call, std::size_t index) { return call.copied(index); }
    static Variant to_variant(Variant value) noexcept { return value; }
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
    static Variant to_variant(const Pointer& value) noexcept {
        return Variant(ComPtr<IDispatch>(value.get()));
    }

 protected:
    /// The object of a late-bound argument: none for a reference to nothing.
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
struct Native<T> {
    static_assert(sizeof(T) == sizeof(std::int32_t));
    using Raw = std::int32_t;
    static T from_raw(Raw raw) noexcept { return static_cast<T>(raw); }
    static Raw to_raw(T value) noexcept { return static_cast<Raw>(value); }
    static void release(Raw /*raw*/) noexcept {}
    static T from_call(const LateCall& call, std::size_t index) {
        return from_raw(Native<std::int32_t>::from_call(call, index));
    }
    static Variant to_variant(T value) noexcept { return Variant(to_raw(value)); }
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
