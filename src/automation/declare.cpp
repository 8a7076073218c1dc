#include "automation/declare.h"

namespace kovrel {
namespace {

/// The defaults take the parameter's own type, so that they need no conversion in a call.
void complete(ParameterInfo& info, const Parameter& parameter) {
    info.name = parameter.name;
    info.optional = parameter.optional;
    if (!parameter.optional) return;
    const VARTYPE type = info.type.type;
    const auto typed = [type](const Default& value) {
        return type == VT_VARIANT ? value.value() : value.value().as(type);
    };
    if (parameter.declared_default.type != VT_EMPTY) {
        info.declared_default = typed(parameter.declared_default);
    }
    if (parameter.when_missing.type != VT_EMPTY) {
        info.when_missing = typed(parameter.when_missing);
    } else if (type == VT_VARIANT) {
        info.when_missing = Variant::missing();
    } else {
        info.when_missing = Variant().as(type);
    }
}

}  // namespace

Variant Default::value() const {
    switch (type) {
        case VT_BOOL:
            return Variant(number != VARIANT_FALSE);
        case VT_I2:
            return Variant(static_cast<std::int16_t>(number));
        case VT_BSTR:
            return Variant(text);
        case VT_DATE:
            return Variant(Date{static_cast<double>(number)});
        default:
            return Variant(number);
    }
}

DeclarationBase::DeclarationBase(const ClassIdentity& identity, Instancing instancing,
                                 const wchar_t* help) {
    info_.name = identity.name;
    info_.help = help;
    info_.instancing = instancing;
    info_.class_id = identity.class_id;
    info_.interface_id = identity.interface_id;
    info_.prog_id = std::wstring(identity.type_library) + L'.' + identity.name;
    info_.interface_name = std::wstring(L"_") + identity.name;
    info_.vtable = ObjectBase::dispatch_slots();
}

void DeclarationBase::add(const EntryInfo& entry, MemberKind kind, const wchar_t* name,
                          const wchar_t* help, std::span<const Parameter> parameters) {
    MemberInfo& member = info_.members.emplace_back();
    member.name = name;
    member.help = help;
    member.id = next_id_++;
    member.kind = kind;
    for (const PassedType& passed : entry.parameters) {
        ParameterInfo& parameter = member.parameters.emplace_back();
        parameter.type = passed.type();
        parameter.by_reference = passed.by_reference;
        parameter.written_back = passed.written_back;
    }
    for (std::size_t index = 0; index < parameters.size(); ++index) {
        complete(member.parameters[index], parameters[index]);
    }
    if (entry.result != nullptr) member.result = entry.result();
    member.slot = entry.slot;
    member.call = entry.call;
    member.late = entry.late;
    info_.vtable.push_back(entry.slot);
    *entry.declared = &member;
}

void DeclarationBase::add_second(const EntryInfo& entry, MemberKind kind, const wchar_t* name,
                                 const wchar_t* help) {
    --next_id_;
    add(entry, kind, name, help);
}

}  // namespace kovrel
