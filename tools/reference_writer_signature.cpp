#include "reference_writer_signature.h"

#include <stdexcept>

#include "automation/variant.h"
#include "services/text_encoding.h"

namespace kovrel::reference {
namespace {

constexpr std::size_t longest_line = 96;

std::string parameter_text(const ParameterInfo& parameter) {
    std::string text = parameter.optional ? "Optional " : "";
    text += parameter.by_reference ? "ByRef " : "ByVal ";
    // The value that a property is given has no name of its own.
    text += parameter.name != nullptr ? to_utf8(parameter.name) : "valor";
    text += " As " + type_name(parameter.type);
    if (parameter.declared_default != nullptr) text += " = " + literal(*parameter.declared_default);
    return text;
}

std::string keyword_of(const MemberInfo& member) {
    switch (member.kind) {
        case MemberKind::property_get:
            return "Property Get";
        case MemberKind::property_put:
            return "Property Let";
        case MemberKind::property_put_object:
            return "Property Set";
        case MemberKind::method:
            break;
    }
    return member.result.type == VT_VOID ? "Sub" : "Function";
}

/// On one line, or on several where it is long.
std::string declaration(const std::string& begin, std::span<const ParameterInfo> parameters,
                        const std::string& end) {
    std::string on_one_line;
    std::string on_several;
    for (const ParameterInfo& parameter : parameters) {
        const std::string text = parameter_text(parameter);
        on_one_line += (on_one_line.empty() ? "" : ", ") + text;
        on_several += (on_several.empty() ? " _\n    " : ", _\n    ") + text;
    }
    const std::string line = begin + on_one_line + end;
    return (line.size() <= longest_line ? line : begin + on_several + end) + "\n";
}

std::string declaration_of(const MemberInfo& member) {
    std::string end = ")";
    if (member.result.type != VT_VOID) end += " As " + type_name(member.result);
    return declaration(keyword_of(member) + " " + to_utf8(member.name) + "(", member.parameters,
                       end);
}

}  // namespace

std::string kind_of(const Accessors& accessors) {
    const MemberInfo& first = *accessors.front();
    if (first.kind == MemberKind::method) {
        return first.result.type == VT_VOID ? "Procedimiento" : "Función";
    }
    if (accessors.size() == 2) {
        return accessors.back()->kind == MemberKind::property_put_object
                   ? "Propiedad que contiene un objeto (se asigna con Set)"
                   : "Propiedad de lectura y escritura";
    }
    return first.kind == MemberKind::property_get ? "Propiedad de solo lectura"
                                                  : "Propiedad de solo escritura";
}

std::string signature_of(const Accessors& accessors) {
    std::string text;
    for (const MemberInfo* member : accessors) text += declaration_of(*member);
    return text;
}

std::string event_signature_of(const EventsInfo::Event& event) {
    return declaration("Event " + to_utf8(event.name) + "(", event.parameters, ")");
}

std::string type_name(const TypeRef& type) {
    if (type.enumeration != nullptr) return to_utf8(type.enumeration->name);
    if (type.record != nullptr) return to_utf8(type.record->name);
    if (type.instance_of != nullptr) return to_utf8(type.instance_of->name);
    if (type.picture) return "IPictureDisp";
    switch (type.type) {
        case VT_BSTR:
            return "String";
        case VT_BOOL:
            return "Boolean";
        case VT_UI1:
            return "Byte";
        case VT_I2:
            return "Integer";
        case VT_I4:
            return "Long";
        case VT_R4:
            return "Single";
        case VT_R8:
            return "Double";
        case VT_DATE:
            return "Date";
        case VT_VARIANT:
            return "Variant";
        case VT_DISPATCH:
            return "Object";
        case VT_UNKNOWN:
            return "IUnknown";
        default:
            throw std::logic_error("a type without a name");
    }
}

std::string literal(const VARIANT& constant) {
    const Variant value(constant);
    switch (value.vt) {
        case VT_BSTR:
            return "\"" + to_utf8(value.to_text()) + "\"";
        case VT_BOOL:
            return value.to_bool() ? "True" : "False";
        case VT_DATE:
            return std::to_string(static_cast<int>(value.to_date().days));
        default:
            return std::to_string(value.to_int32());
    }
}

}  // namespace kovrel::reference
