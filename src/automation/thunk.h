// Makes, from a pointer to a member function, the two functions that hosts call it through: the
// vtable slot and the late-bound invoker.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>

#include "automation/boundary.h"
#include "automation/native_type.h"
#include "automation/object.h"
#include "automation/variant_argument.h"

namespace kovrel {

/// A parameter's type in the member's signature tells how the argument is passed:
/// T by value, const T& by reference and only read, T& by reference and written back. A text by
/// value is std::wstring_view.
template <class Parameter>
inline constexpr bool by_reference = std::is_lvalue_reference_v<Parameter>;
template <class Parameter>
inline constexpr bool written_back =
    by_reference<Parameter> && !std::is_const_v<std::remove_reference_t<Parameter>>;
template <class Parameter>
using NativeOf = Native<std::remove_cvref_t<Parameter>>;
template <class Parameter>
using RawOf = std::conditional_t<by_reference<Parameter>, typename NativeOf<Parameter>::Raw*,
                                 typename NativeOf<Parameter>::Raw>;

/// One argument during one call. A copy of the original value tells whether the member changed it:
/// an unchanged variable is not written, and keeps its type and identity.
template <class Parameter>
class Argument {
 public:
    using Value = ArgumentValue<std::remove_cvref_t<Parameter>>;

    explicit Argument(Value value) : value_(std::move(value)), original_(value_) {}

    [[nodiscard]] Parameter pass() {
        if constexpr (by_reference<Parameter>) {
            return value_;
        } else if constexpr (std::is_same_v<Parameter, std::wstring_view>) {
            return value_.text();
        } else {
            return std::move(value_);
        }
    }

    [[nodiscard]] bool changed() const {
        if constexpr (!written_back<Parameter>) {
            return false;
        } else if constexpr (std::is_same_v<Value, Variant>) {
            return !value_.same_as(original_);
        } else {
            return !(value_ == original_);
        }
    }

    void store(RawOf<Parameter> variable, const MemberInfo& declared, std::size_t index) {
        if constexpr (written_back<Parameter>) {
            if (!changed()) return;
            if constexpr (std::is_same_v<Value, Variant>) {
                store_variant(*variable, value_, declared, index);
            } else {
                replace(*variable);
            }
        }
    }

    void store(const LateCall& call, std::size_t index) {
        if constexpr (written_back<Parameter>) {
            if (!changed()) return;
            if constexpr (requires { NativeOf<Parameter>::vartype; }) {
                if (void* const variable = call.variable(index, NativeOf<Parameter>::vartype)) {
                    replace(*static_cast<RawOf<Parameter>>(variable));
                    return;
                }
            }
            Variant value;
            NativeOf<Parameter>::put(value, value_);
            call.write_back(index, std::move(value));
        }
    }

 private:
    template <class Raw>
    void replace(Raw& variable) const {
        const auto raw = NativeOf<Parameter>::to_raw(value_);
        NativeOf<Parameter>::release(variable);
        variable = raw;
    }

    struct Nothing {
        explicit Nothing(const Value& /*value*/) {}
    };
    using Original = std::conditional_t<written_back<Parameter>, Value, Nothing>;

    Value value_;
    [[no_unique_address]] Original original_;
};

/// One parameter of a signature.
struct PassedType {
    const TypeRef* type = nullptr;
    bool by_reference = false;
    bool written_back = false;
};

/// The type library's name for a parameter or result type; void for a procedure.
template <class T>
inline constexpr TypeRef type_of = Native<T>::type();
template <>
inline constexpr TypeRef type_of<void>{};

/// Argument and result conversion, shared by all members of one signature to keep the library
/// small: the member is given as a function that calls it and as its index in the class.
template <class Result, class... Parameters>
class Crossing {
 public:
    using Member = Result (*)(void* implementation, Parameters... parameters);

    /// `out` is empty for a procedure, else a pointer to the raw result.
    template <class... Out>
    [[gnu::noinline]] static HRESULT early(ObjectBase* self, Member member, std::size_t place,
                                           RawOf<Parameters>... raw, Out... out) {
        const MemberInfo& declared = self->info().members[place];
        auto body = [&] {
            check_pointers(declared, Indexes{}, raw..., out...);
            call_early(self->implementation(), member, declared, Indexes{}, raw..., out...);
        };
        return self->run(
            declared, [](void* context) { (*static_cast<decltype(body)*>(context))(); }, &body);
    }

    static void late(void* implementation, Member member, LateCall& call) {
        call_late(implementation, member, call, Indexes{});
    }

 private:
    using Arguments = std::tuple<Argument<Parameters>...>;
    using Indexes = std::index_sequence_for<Parameters...>;

    /// A by-value text or object may be null; a reference may not. The result is cleared.
    template <std::size_t... Index, class... Out>
    static void check_pointers(const MemberInfo& declared,
                               std::index_sequence<Index...> /*indexes*/, RawOf<Parameters>... raw,
                               Out... out) {
        if ((!out || ...)) refuse_argument(E_POINTER, declared, sizeof...(Parameters));
        ((*out = {}), ...);
        (check_pointer<Parameters>(raw, declared, Index), ...);
    }

    template <class Parameter>
    static void check_pointer(RawOf<Parameter> raw, const MemberInfo& declared, std::size_t index) {
        if constexpr (by_reference<Parameter>) {
            if (raw == nullptr) refuse_argument(E_POINTER, declared, index);
        } else {
            (void)raw, (void)declared, (void)index;
        }
    }

    template <class Parameter>
    static auto from_raw(RawOf<Parameter> raw, const MemberInfo& declared, std::size_t index) {
        const auto& given = [&]() -> const auto& {
            if constexpr (by_reference<Parameter>) {
                return *raw;
            } else {
                return raw;
            }
        }
        ();
        if constexpr (std::is_same_v<std::remove_cvref_t<Parameter>, Variant>) {
            return variant_argument(given, declared, index);
        } else {
            (void)declared, (void)index;
            return NativeOf<Parameter>::from_raw(given);
        }
    }

    template <std::size_t... Index, class... Out>
    static void call_early(void* implementation, Member member, const MemberInfo& declared,
                           std::index_sequence<Index...> /*indexes*/, RawOf<Parameters>... raw,
                           Out... out) {
        Arguments arguments{Argument<Parameters>(from_raw<Parameters>(raw, declared, Index))...};
        const auto store = [&] { (std::get<Index>(arguments).store(raw, declared, Index), ...); };
        const auto call = [&] {
            return member(implementation, std::get<Index>(arguments).pass()...);
        };
        if constexpr (std::is_void_v<Result>) {
            run(call, store);
        } else {
            auto result = run(call, store);
            ((*out = NativeOf<Result>::to_raw(std::move(result))), ...);
        }
    }

    template <std::size_t... Index>
    static void call_late(void* implementation, Member member, LateCall& call,
                          std::index_sequence<Index...> /*indexes*/) {
        Arguments arguments{Argument<Parameters>(NativeOf<Parameters>::from_call(call, Index))...};
        const auto store = [&] { (std::get<Index>(arguments).store(call, Index), ...); };
        const auto body = [&] {
            return member(implementation, std::get<Index>(arguments).pass()...);
        };
        if constexpr (std::is_void_v<Result>) {
            run(body, store);
        } else {
            auto result = run(body, store);
            if (VARIANT* const target = call.result()) {
                NativeOf<Result>::put(*target, std::move(result));
            }
        }
    }

    /// By-reference arguments are written back even when the member fails. The result is returned
    /// only after all of them are stored: a failed call has none.
    template <class Call, class Store>
    static auto run(Call&& call, Store&& store) {
        const auto called = [&] {
            try {
                return call();
            } catch (...) {
                store();
                throw;
            }
        };
        if constexpr (std::is_void_v<Result>) {
            called();
            store();
        } else {
            auto result = called();
            store();
            return result;
        }
    }
};

template <class Class, auto Member, class Result, class... Parameters>
struct BasicThunk {
    static constexpr std::size_t arity = sizeof...(Parameters);
    static_assert(arity <= max_parameters);
    static constexpr std::array<PassedType, arity> parameters{
        PassedType{&type_of<std::remove_cvref_t<Parameters>>, by_reference<Parameters>,
                   written_back<Parameters>}...};
    static constexpr const TypeRef& result = type_of<Result>;

    /// The late-bound entry.
    static void late(void* implementation, LateCall& late_call) {
        Shared::late(implementation, &call, late_call);
    }

    /// The vtable slot of the class's member number `Place`.
    template <std::size_t Place>
    static constexpr auto slot() {
        if constexpr (std::is_void_v<Result>) {
            return &early<Place>;
        } else {
            return &early<Place, typename NativeOf<Result>::Raw*>;
        }
    }

 private:
    using Shared = Crossing<Result, Parameters...>;

    static Result call(void* implementation, Parameters... parameters) {
        return std::invoke(Member, *static_cast<Class*>(implementation),
                           std::forward<Parameters>(parameters)...);
    }

    template <std::size_t Place, class... Out>
    static HRESULT STDMETHODCALLTYPE early(ObjectBase* self, RawOf<Parameters>... raw, Out... out) {
        return Shared::early(self, &call, Place, raw..., out...);
    }
};

/// `Member` is a member function of the class or of a base of it, or a free function that takes the
/// instance first.
template <class Class, auto Member, class Signature = decltype(Member)>
struct Thunk;

template <class Class, auto Member, class Base, class Result, class... Parameters>
struct Thunk<Class, Member, Result (Base::*)(Parameters...)>
    : BasicThunk<Class, Member, Result, Parameters...> {};

template <class Class, auto Member, class Base, class Result, class... Parameters>
struct Thunk<Class, Member, Result (Base::*)(Parameters...) const>
    : BasicThunk<Class, Member, Result, Parameters...> {};

template <class Class, auto Member, class Result, class... Parameters>
struct Thunk<Class, Member, Result (*)(Class&, Parameters...)>
    : BasicThunk<Class, Member, Result, Parameters...> {};

/// The accessors of a public data member.
template <auto Field>
struct FieldAccess;

template <class Class, class Value, Value Class::*Field>
struct FieldAccess<Field> {
    using Given = std::conditional_t<std::is_same_v<Value, std::wstring>, std::wstring_view, Value>;
    static Value get(Class& instance) { return instance.*Field; }
    static void put(Class& instance, Given value) { instance.*Field = value; }
};

}  // namespace kovrel
