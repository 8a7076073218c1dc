// How a public class declares its members: one chain of calls in interface order, of which the
// compiler makes the class's tables.
//
//   constexpr auto declared =
//       declare<clsSample>({L"Library", L"clsSample", class_id, interface_id}, L"…")
//           .property<&clsSample::Name, &clsSample::set_Name>(L"Name", L"…")
//           .method<&clsSample::Days>(L"Days", {L"Month", optional(L"Year", 0)}, L"…");
//
//   constinit const ClassInfo clsSample::class_info = class_tables<declared>;
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "automation/class_info.h"
#include "automation/class_tables.h"
#include "automation/thunk.h"

namespace kovrel {

/// A default as written in a declaration, before it is converted to the parameter's type.
struct Default {
    constexpr Default() = default;
    // NOLINTBEGIN(google-explicit-constructor): a declaration gives the plain values.
    constexpr Default(bool value) : type(VT_BOOL), number(value ? VARIANT_TRUE : VARIANT_FALSE) {}
    constexpr Default(std::int16_t value) : type(VT_I2), number(value) {}
    constexpr Default(std::int32_t value) : type(VT_I4), number(value) {}
    constexpr Default(const wchar_t* value) : type(VT_BSTR), text(value) {}
    // NOLINTEND(google-explicit-constructor)
    /// A date without a time of day.
    static constexpr Default day(std::int32_t days) {
        Default result(days);
        result.type = VT_DATE;
        return result;
    }

    VARTYPE type = VT_EMPTY;  ///< VT_EMPTY: no default
    std::int32_t number = 0;
    const wchar_t* text = nullptr;
};

/// A parameter by its name; see optional() for those that the host may leave out.
struct Parameter {
    constexpr Parameter() = default;
    constexpr Parameter(const wchar_t* its_name)  // NOLINT(google-explicit-constructor)
        : name(its_name) {}

    const wchar_t* name = nullptr;  ///< null: the value that a property is set to
    bool optional = false;
    Default declared_default{};
    Default when_missing{};
};

/// An optional parameter whose declared default, which compilers pass, differs from the value that
/// an omitted late-bound argument has.
[[nodiscard]] constexpr Parameter optional(const wchar_t* name, Default default_value,
                                           Default when_missing) {
    Parameter result(name);
    result.optional = true;
    result.declared_default = default_value;
    result.when_missing = when_missing;
    return result;
}

/// An optional parameter with one default for both.
[[nodiscard]] constexpr Parameter optional(const wchar_t* name, Default default_value) {
    return optional(name, default_value, default_value);
}

/// An optional parameter without a default: a variant stays recognisable as missing, any other type
/// takes its zero value.
[[nodiscard]] constexpr Parameter optional(const wchar_t* name) {
    return optional(name, Default());
}

/// What hosts know a class by. Never changes once published.
struct ClassIdentity {
    const wchar_t* type_library;  ///< its name is the first part of the ProgID
    const wchar_t* name;  ///< the second part; with an underscore in front, the interface's name
    GUID class_id;
    GUID interface_id;
    DISPID default_member =
        DISPID_UNKNOWN;  ///< the place of a member, from 1, that hosts need not name
    DISPID enumeration = DISPID_UNKNOWN;  ///< that of the member that "For Each" asks
    const EventsInfo* events = nullptr;   ///< of a class with a member `events`, an EventSource
};

/// What cannot be derived from a member's signature.
struct DeclaredMember {
    MemberKind kind{};
    const wchar_t* name = nullptr;
    const wchar_t* help = nullptr;
    DISPID id = 0;
    std::size_t first_parameter = 0;  ///< among all those of the class
};

/// A class with the members declared so far: the thunk of each, and the names of everything.
template <class Class, std::size_t ParameterCount = 0, class... Thunks>
struct Declaration {
    ClassIdentity identity;
    const wchar_t* help;
    Instancing instancing;
    std::array<DeclaredMember, sizeof...(Thunks)> members{};
    std::array<Parameter, ParameterCount> parameters{};

    template <auto Member>
    [[nodiscard]] consteval auto method(const wchar_t* name, const wchar_t* its_help) const {
        static_assert(Thunk<Class, Member>::arity == 0, "a name for every parameter");
        return with<Thunk<Class, Member>>({MemberKind::method, name, its_help, next_id()}, {});
    }

    template <auto Member, std::size_t Count>
    [[nodiscard]] consteval auto method(const wchar_t* name, const Parameter (&given)[Count],
                                        const wchar_t* its_help) const {
        static_assert(Count == Thunk<Class, Member>::arity, "a name for every parameter");
        return with<Thunk<Class, Member>>({MemberKind::method, name, its_help, next_id()},
                                          std::to_array(given));
    }

    template <auto Get, auto Put>
    [[nodiscard]] consteval auto property(const wchar_t* name, const wchar_t* its_help) const {
        return accessor<Get>(MemberKind::property_get, name, its_help, next_id())
            .template accessor<Put>(MemberKind::property_put, name, its_help, next_id());
    }

    template <auto Get>
    [[nodiscard]] consteval auto read_only(const wchar_t* name, const wchar_t* its_help) const {
        return accessor<Get>(MemberKind::property_get, name, its_help, next_id());
    }

    template <auto Put>
    [[nodiscard]] consteval auto write_only(const wchar_t* name, const wchar_t* its_help) const {
        return accessor<Put>(MemberKind::property_put, name, its_help, next_id());
    }

    /// A public data member.
    template <auto Field>
    [[nodiscard]] consteval auto field(const wchar_t* name, const wchar_t* its_help) const {
        return property<&FieldAccess<Field>::get, &FieldAccess<Field>::put>(name, its_help);
    }

    /// A property that holds an object: read, and set by object assignment.
    template <auto Get, auto PutObject>
    [[nodiscard]] consteval auto object_property(const wchar_t* name,
                                                 const wchar_t* its_help) const {
        return accessor<Get>(MemberKind::property_get, name, its_help, next_id())
            .template accessor<PutObject>(MemberKind::property_put_object, name, its_help,
                                          next_id());
    }

    /// Both accessors of a property have one id.
    template <auto Member>
    [[nodiscard]] consteval auto accessor(MemberKind kind, const wchar_t* name,
                                          const wchar_t* its_help, DISPID id) const {
        return with<Thunk<Class, Member>>({kind, name, its_help, id}, {});
    }

 private:
    [[nodiscard]] consteval DISPID next_id() const {
        if constexpr (sizeof...(Thunks) == 0) {
            return 1;
        } else {
            return members.back().id + 1;
        }
    }

    template <class Added>
    [[nodiscard]] consteval auto with(DeclaredMember member,
                                      const std::array<Parameter, Added::arity>& given) const {
        Declaration<Class, ParameterCount + Added::arity, Thunks..., Added> result{
            .identity = identity, .help = help, .instancing = instancing};
        member.first_parameter = ParameterCount;
        *std::copy(members.begin(), members.end(), result.members.begin()) = member;
        std::copy(given.begin(), given.end(),
                  std::copy(parameters.begin(), parameters.end(), result.parameters.begin()));
        return result;
    }
};

template <class Class>
[[nodiscard]] consteval Declaration<Class> declare(const ClassIdentity& identity,
                                                   const wchar_t* help,
                                                   Instancing instancing = Instancing::creatable) {
    return {.identity = identity, .help = help, .instancing = instancing};
}

/// The parameters of an event by their types: T by value, T& a variable of the library that a sink
/// may change.
template <class... Parameters>
[[nodiscard]] consteval std::array<ParameterInfo, sizeof...(Parameters)> event_parameters(
    const wchar_t* const (&names)[sizeof...(Parameters)]) {
    std::size_t index = 0;
    return {ParameterInfo{names[index++], type_of<std::remove_cvref_t<Parameters>>,
                          by_reference<Parameters>, written_back<Parameters>, false, nullptr,
                          no_value}...};
}

/// The tables of a declared class.
template <const auto& declared>
inline constexpr ClassInfo class_tables = ClassTables<declared>::info();

}  // namespace kovrel
