// How a public class declares its members: one chain of calls in interface order.
//
//   const ClassInfo& clsSample::class_info() {
//       static const ClassInfo info =
//           declare<clsSample>({L"Library", L"clsSample", class_id, interface_id}, L"…")
//               .property<&clsSample::Name, &clsSample::set_Name>(L"Name", L"…")
//               .method<&clsSample::Days>(L"Days", {L"Month", optional(L"Year", 0)}, L"…")
//               .done();
//       return info;
//   }
#pragma once

#include <cstddef>
#include <span>
#include <utility>

#include "automation/class_info.h"
#include "automation/thunk.h"

namespace kovrel {

/// A default as it stands in a declaration; the parameter's own type is given to it later.
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

    [[nodiscard]] Variant value() const;

    VARTYPE type = VT_EMPTY;  ///< VT_EMPTY: no default
    std::int32_t number = 0;
    const wchar_t* text = nullptr;
};

/// A parameter by its name; see optional() for those that the host may leave out.
struct Parameter {
    constexpr Parameter(const wchar_t* its_name)  // NOLINT(google-explicit-constructor)
        : name(its_name) {}

    const wchar_t* name;
    bool optional = false;
    Default declared_default{};
    Default when_missing{};
};

/// An optional parameter whose declared default, which compilers pass, differs from what the member
/// takes an omitted argument for.
[[nodiscard]] constexpr Parameter optional(const wchar_t* name, Default default_value,
                                           Default when_missing) {
    Parameter result(name);
    result.optional = true;
    result.declared_default = default_value;
    result.when_missing = when_missing;
    return result;
}

/// An optional parameter with a default that the type library declares and that an omitted argument
/// counts as.
[[nodiscard]] constexpr Parameter optional(const wchar_t* name, Default default_value) {
    return optional(name, default_value, default_value);
}

/// An optional parameter without a default: a variant stays recognisable as missing, any other type
/// takes its zero value.
[[nodiscard]] constexpr Parameter optional(const wchar_t* name) {
    return optional(name, Default());
}

/// What hosts know a class by, for ever.
struct ClassIdentity {
    const wchar_t* type_library;  ///< its name is the first part of the ProgID
    const wchar_t* name;  ///< the second part; with an underscore in front, the interface's name
    GUID class_id;
    GUID interface_id;
};

/// The part of a declaration that is the same for every class.
class DeclarationBase {
 protected:
    DeclarationBase(const ClassIdentity& identity, Instancing instancing, const wchar_t* help);

    void add(const EntryInfo& entry, MemberKind kind, const wchar_t* name, const wchar_t* help,
             std::span<const Parameter> parameters = {});
    /// A property's second accessor has the id of its first.
    void add_second(const EntryInfo& entry, MemberKind kind, const wchar_t* name,
                    const wchar_t* help);

    ClassInfo info_;

 private:
    DISPID next_id_ = 1;
};

template <class Class>
class Declaration : private DeclarationBase {
 public:
    Declaration(const ClassIdentity& identity, Instancing instancing, const wchar_t* help)
        : DeclarationBase(identity, instancing, help) {
        info_.create = &Object<Class>::create;
        info_.destroy = &Object<Class>::destroy;
    }

    template <auto Member>
    Declaration&& method(const wchar_t* name, const wchar_t* help) && {
        static_assert(Thunk<Class, Member>::arity == 0, "a name for every parameter");
        add(Thunk<Class, Member>::entry(), MemberKind::method, name, help);
        return std::move(*this);
    }

    template <auto Member, std::size_t Count>
    Declaration&& method(const wchar_t* name, const Parameter (&parameters)[Count],
                         const wchar_t* help) && {
        static_assert(Count == Thunk<Class, Member>::arity, "a name for every parameter");
        add(Thunk<Class, Member>::entry(), MemberKind::method, name, help, parameters);
        return std::move(*this);
    }

    template <auto Get, auto Put>
    Declaration&& property(const wchar_t* name, const wchar_t* help) && {
        add(Thunk<Class, Get>::entry(), MemberKind::property_get, name, help);
        add_second(Thunk<Class, Put>::entry(), MemberKind::property_put, name, help);
        return std::move(*this);
    }

    template <auto Get>
    Declaration&& read_only(const wchar_t* name, const wchar_t* help) && {
        add(Thunk<Class, Get>::entry(), MemberKind::property_get, name, help);
        return std::move(*this);
    }

    template <auto Put>
    Declaration&& write_only(const wchar_t* name, const wchar_t* help) && {
        add(Thunk<Class, Put>::entry(), MemberKind::property_put, name, help);
        return std::move(*this);
    }

    /// A public data member.
    template <auto Field>
    Declaration&& field(const wchar_t* name, const wchar_t* help) && {
        return std::move(*this)
            .template property<&FieldAccess<Field>::get, &FieldAccess<Field>::put>(name, help);
    }

    /// A property that holds an object: read, and set by object assignment.
    template <auto Get, auto PutObject>
    Declaration&& object_property(const wchar_t* name, const wchar_t* help) && {
        add(Thunk<Class, Get>::entry(), MemberKind::property_get, name, help);
        add_second(Thunk<Class, PutObject>::entry(), MemberKind::property_put_object, name, help);
        return std::move(*this);
    }

    [[nodiscard]] ClassInfo done() && {
        info_.index_members();
        return std::move(info_);
    }
};

template <class Class>
[[nodiscard]] Declaration<Class> declare(const ClassIdentity& identity, const wchar_t* help,
                                         Instancing instancing = Instancing::creatable) {
    return Declaration<Class>(identity, instancing, help);
}

}  // namespace kovrel
