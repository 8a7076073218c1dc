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
#include <stdexcept>
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

template <class Value>
[[nodiscard]] Parameter optional(const wchar_t* name, Value default_value) {
    Parameter result(name);
    result.optional = true;
    result.declared_default = Variant(default_value);
    result.when_missing = result.declared_default;
    return result;
}

/// An optional parameter whose declared default, which compilers pass, differs from what the member
/// takes an omitted argument for.
template <class Value>
[[nodiscard]] Parameter optional(const wchar_t* name, Value default_value, Value when_missing) {
    Parameter result = optional(name, default_value);
    result.when_missing = Variant(when_missing);
    return result;
}

/// An optional parameter without a default: a variant stays recognisable as missing, any other type
/// takes its zero value.
[[nodiscard]] inline Parameter optional(const wchar_t* name) {
    Parameter result(name);
    result.optional = true;
    return result;
}

/// What hosts know a class by, for ever.
struct ClassIdentity {
    const wchar_t* library;  ///< the first part of the ProgID
    const wchar_t* name;     ///< the second part; with an underscore in front, the interface's name
    GUID class_id;
    GUID interface_id;
};

template <class Class>
class Declaration {
 public:
    Declaration(const ClassIdentity& identity, Instancing instancing, const wchar_t* help) {
        info_.name = identity.name;
        info_.help = help;
        info_.instancing = instancing;
        info_.class_id = identity.class_id;
        info_.interface_id = identity.interface_id;
        info_.prog_id = std::wstring(identity.library) + L'.' + identity.name;
        info_.interface_name = std::wstring(L"_") + identity.name;
        info_.create = &Object<Class>::create;
        info_.destroy = &Object<Class>::destroy;
        info_.vtable = ObjectBase::dispatch_slots();
    }

    template <auto Member>
    Declaration&& method(const wchar_t* name, const wchar_t* help) && {
        add<Member>(MemberKind::method, name, help, next_id_++, nullptr, 0);
        return std::move(*this);
    }

    template <auto Member, std::size_t Count>
    Declaration&& method(const wchar_t* name, const Parameter (&parameters)[Count],
                         const wchar_t* help) && {
        static_assert(Count == Thunk<Class, Member>::arity, "a name for every parameter");
        add<Member>(MemberKind::method, name, help, next_id_++, parameters, Count);
        return std::move(*this);
    }

    template <auto Get, auto Put>
    Declaration&& property(const wchar_t* name, const wchar_t* help) && {
        const DISPID id = next_id_++;
        add<Get>(MemberKind::property_get, name, help, id, nullptr, 0);
        add<Put>(MemberKind::property_put, name, help, id, nullptr, 0);
        return std::move(*this);
    }

    template <auto Get>
    Declaration&& read_only(const wchar_t* name, const wchar_t* help) && {
        add<Get>(MemberKind::property_get, name, help, next_id_++, nullptr, 0);
        return std::move(*this);
    }

    template <auto Put>
    Declaration&& write_only(const wchar_t* name, const wchar_t* help) && {
        add<Put>(MemberKind::property_put, name, help, next_id_++, nullptr, 0);
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
        const DISPID id = next_id_++;
        add<Get>(MemberKind::property_get, name, help, id, nullptr, 0);
        add<PutObject>(MemberKind::property_put_object, name, help, id, nullptr, 0);
        return std::move(*this);
    }

    [[nodiscard]] ClassInfo done() && {
        info_.index_members();
        return std::move(info_);
    }

 private:
    template <auto Member>
    void add(MemberKind kind, const wchar_t* name, const wchar_t* help, DISPID id,
             const Parameter* parameters, std::size_t count) {
        using Entry = Thunk<Class, Member>;
        MemberInfo member;
        member.name = name;
        member.help = help;
        member.id = id;
        member.kind = kind;
        member.parameters = Entry::parameters();
        member.result = Entry::result_type();
        member.slot = Entry::slot_address();
        member.invoke = &Entry::invoke;
        for (std::size_t index = 0; index < count; ++index) {
            complete(member.parameters[index], parameters[index]);
        }
        info_.vtable.push_back(member.slot);
        info_.members.push_back(std::move(member));
        declared_member<Class, Member> = &info_.members.back();
    }

    /// The defaults take the parameter's own type, so that they need no conversion in a call.
    static void complete(ParameterInfo& info, const Parameter& parameter) {
        info.name = parameter.name;
        info.optional = parameter.optional;
        if (!parameter.optional) return;
        const auto typed = [&info](const Variant& value) {
            return info.type.type == VT_VARIANT ? value : value.as(info.type.type);
        };
        if (parameter.declared_default) info.declared_default = typed(*parameter.declared_default);
        if (parameter.when_missing) {
            info.when_missing = typed(*parameter.when_missing);
        } else if (info.type.type == VT_VARIANT) {
            info.when_missing = Variant::missing();
        } else {
            info.when_missing = Variant().as(info.type.type);
        }
    }

    ClassInfo info_;
    DISPID next_id_ = 1;
};

template <class Class>
[[nodiscard]] Declaration<Class> declare(const ClassIdentity& identity, const wchar_t* help,
                                         Instancing instancing = Instancing::creatable) {
    return Declaration<Class>(identity, instancing, help);
}

}  // namespace kovrel
