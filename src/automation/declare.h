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

/// Parameters that the host may leave out. The plain form has a default that the type library
/// declares and that a missing argument counts as.
struct Parameter {
    Parameter(const wchar_t* its_name) : name(its_name) {}  // NOLINT(google-explicit-constructor)

    const wchar_t* name;
    bool optional = false;
    std::optional<Variant> declared_default;
    std::optional<Variant> when_missing;
};

[[nodiscard]] Parameter optional(const wchar_t* name, Variant default_value, Variant when_missing);

template <class Value>
[[nodiscard]] Parameter optional(const wchar_t* name, Value default_value) {
    return optional(name, Variant(default_value), Variant(default_value));
}

/// An optional parameter whose declared default, which compilers pass, differs from what the member
/// takes an omitted argument for.
template <class Value>
[[nodiscard]] Parameter optional(const wchar_t* name, Value default_value, Value when_missing) {
    return optional(name, Variant(default_value), Variant(when_missing));
}

/// An optional parameter without a default: a variant stays recognisable as missing, any other type
/// takes its zero value.
[[nodiscard]] Parameter optional(const wchar_t* name);

/// What hosts know a class by, for ever.
struct ClassIdentity {
    const wchar_t* library;  ///< the first part of the ProgID
    const wchar_t* name;     ///< the second part; with an underscore in front, the interface's name
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
