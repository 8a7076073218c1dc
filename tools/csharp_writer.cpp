#include "tools/csharp_writer.h"

#include <algorithm>
#include <sstream>

#include "runtime/failure.h"
#include "tools/csharp_parts.h"
#include "tools/declared_text.h"

namespace kovrel {
namespace {

struct Type {
    std::wstring name;
    std::wstring marshal;  ///< the unmanaged type; empty where it is understood
};

Type type_of_parameter(const TypeRef& type) {
    if (type.picture) return {L"IPictureDisp", L"Interface"};
    if (type.enumeration != nullptr) return {type.enumeration->name, L""};
    if (type.record != nullptr) return {type.record->name, L""};
    if (type.instance_of != nullptr) return {type.instance_of->interface_name, L"Interface"};
    switch (type.type) {
        case VT_UI1:
            return {L"byte", L""};
        case VT_I2:
            return {L"short", L""};
        case VT_I4:
            return {L"int", L""};
        case VT_R4:
            return {L"float", L""};
        case VT_R8:
            return {L"double", L""};
        case VT_BOOL:
            return {L"bool", L"VariantBool"};
        case VT_DATE:
            return {L"DateTime", L""};
        case VT_BSTR:
            return {L"string", L"BStr"};
        case VT_VARIANT:
            return {L"object", L"Struct"};
        case VT_DISPATCH:
            return {L"object", L"IDispatch"};
        case VT_UNKNOWN:
            return {L"object", L"IUnknown"};
        default:
            throw Failure(E_NOTIMPL, L"Un tipo que la fuente de C# no conoce");
    }
}

/// An attribute's argument; empty where only the runtime has such a value.
std::wstring default_argument(const ParameterInfo& parameter) {
    const VARIANT* const value = parameter.declared_default;
    if (value == nullptr || value->vt == VT_DATE || parameter.type.type == VT_VARIANT) return L"";
    if (parameter.type.enumeration != nullptr) {
        return L"(" + std::wstring(parameter.type.enumeration->name) + L")" + default_text(*value);
    }
    if (value->vt == VT_BOOL) return value->boolVal != VARIANT_FALSE ? L"true" : L"false";
    if (value->vt == VT_I2) return L"(short)" + default_text(*value);
    return default_text(*value);
}

/// A setter takes its value by reference where the member does.
constexpr const wchar_t* text_by_reference =
    L"CustomMarshaler, MarshalTypeRef = typeof(TextoPorReferencia)";

class CsharpWriter {
 public:
    explicit CsharpWriter(const LibraryInfo& library) : library_(library) {}

    std::wstring text() {
        out_ << L"\uFEFF// " << library_.help << L".\n"
             << csharp_preamble << L"namespace " << library_.name << L"\n{\n";
        for (const EnumInfo* info : library_.enumerations) write_enumeration(*info);
        for (const RecordInfo* info : library_.records) out_ << csharp_record(*info);
        for (const ClassInfo* info : library_.classes) write_interface(*info);
        for (const ClassInfo* info : library_.classes) {
            if (info->instancing != Instancing::given) out_ << csharp_class(*info);
            if (info->events != nullptr) {
                write_events(*info->events);
                write_receiver(*info);
            }
        }
        out_ << csharp_collections(library_) << csharp_support << L"}\n";
        return out_.str();
    }

 private:
    void write_summary(const wchar_t* indent, std::wstring_view help) {
        out_ << indent << L"/// <summary>" << xml_text(help) << L"</summary>\n";
    }

    void write_enumeration(const EnumInfo& info) {
        write_summary(L"    ", info.help);
        out_ << L"    [Guid(\"" << without_braces(info.id) << L"\")]\n    public enum " << info.name
             << L"\n    {\n";
        for (const EnumInfo::Value& value : info.values) {
            write_summary(L"        ", value.help);
            out_ << L"        " << value.name << L" = 0x" << std::hex << value.value << std::dec
                 << L",\n";
        }
        out_ << L"    }\n\n";
    }

    /// With its attributes; what a member only reads is not copied back.
    static std::wstring parameter_text(const ParameterInfo& parameter) {
        const Type type = type_of_parameter(parameter.type);
        std::wstring attributes;
        const auto add = [&](const std::wstring& attribute) {
            attributes += (attributes.empty() ? L"" : L", ") + attribute;
        };
        if (parameter.by_reference && !parameter.written_back) add(L"In");
        if (parameter.optional) add(L"Optional");
        if (const std::wstring value = default_argument(parameter); !value.empty()) {
            add(L"DefaultParameterValue(" + value + L")");
        }
        if (!type.marshal.empty()) add(L"MarshalAs(UnmanagedType." + type.marshal + L")");
        if (!attributes.empty()) attributes = L'[' + attributes + L"] ";
        return attributes + (parameter.by_reference ? L"ref " : L"") + type.name + L' ' +
               name_of(parameter);
    }

    void write_notes(const MemberInfo& member) {
        write_summary(L"        ", member.help);
        for (const ParameterInfo& parameter : member.parameters) {
            if (!parameter.written_back || parameter.name == nullptr) continue;
            out_ << L"        /// <param name=\"" << parameter.name
                 << L"\">Puede cambiar.</param>\n";
        }
    }

    void write_method(const MemberInfo& member, DISPID id) {
        write_notes(member);
        out_ << L"        [DispId(" << id << L")]\n        ";
        const bool returns = member.result.type != VT_VOID;
        const Type result = returns ? type_of_parameter(member.result) : Type{L"void", L""};
        if (!result.marshal.empty()) {
            out_ << L"[return: MarshalAs(UnmanagedType." << result.marshal << L")]\n        ";
        }
        out_ << result.name << L' ' << prefix(member.kind) << member.name << L'(';
        const wchar_t* separator = L"";
        for (const ParameterInfo& parameter : member.parameters) {
            out_ << separator << parameter_text(parameter);
            separator = L", ";
        }
        out_ << L");\n\n";
    }

    void write_accessor(const MemberInfo& member) {
        const bool reads = member.kind == MemberKind::property_get;
        const TypeRef& type = reads ? member.result : member.parameters.front().type;
        std::wstring marshal = type_of_parameter(type).marshal;
        if (!reads && member.parameters.front().by_reference) marshal = text_by_reference;
        if (!marshal.empty()) {
            out_ << (reads ? L"[return" : L"[param") << L": MarshalAs(UnmanagedType." << marshal
                 << L")] ";
        }
        out_ << (reads ? L"get; " : L"set; ");
    }

    /// A property where C# can assign it, else methods.
    void write_group(const ClassInfo& info, MemberGroup group) {
        const auto is_property = [](const MemberInfo& member) {
            if (member.kind == MemberKind::method) return false;
            if (member.kind == MemberKind::property_get) return true;
            const ParameterInfo& value = member.parameters.front();
            return !value.by_reference || value.type.type == VT_BSTR;
        };
        const MemberInfo& first = group.front();
        if (!std::ranges::all_of(group, is_property)) {
            for (const MemberInfo& member : group) {
                write_method(member, info.published(member.id));
            }
            return;
        }
        const bool reads = first.kind == MemberKind::property_get;
        write_summary(L"        ", first.help);
        out_ << L"        [DispId(" << info.published(first.id) << L")]\n        "
             << type_of_parameter(reads ? first.result : first.parameters.front().type).name << L' '
             << first.name << L" { ";
        for (const MemberInfo& member : group) write_accessor(member);
        out_ << L"}\n\n";
    }

    void write_interface(const ClassInfo& info) {
        write_summary(L"    ", info.help);
        out_ << L"    [ComImport, Guid(\"" << without_braces(info.interface_id)
             << L"\"), InterfaceType(ComInterfaceType.InterfaceIsDual)]\n    public interface "
             << info.interface_name << L"\n    {\n";
        for_each_group(info, [&](MemberGroup group) { write_group(info, group); });
        out_ << L"    }\n\n";
    }

    void write_events(const EventsInfo& info) {
        write_summary(L"    ", info.help);
        out_ << L"    [ComImport, Guid(\"" << without_braces(info.id)
             << L"\"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]\n    public interface "
             << info.name << L"\n    {\n";
        for (const EventsInfo::Event& event : info.events) {
            write_method(method_of(event), event.id);
        }
        out_ << L"    }\n\n";
    }

    void write_receiver(const ClassInfo& info) {
        const EventsInfo& events = *info.events;
        out_ << csharp_receiver_head(info);
        for (const EventsInfo::Event& event : events.events) {
            std::wstring parameters;
            std::wstring arguments;
            for (const ParameterInfo& parameter : event.parameters) {
                const std::wstring_view separator = parameters.empty() ? L"" : L", ";
                const std::wstring_view direction = parameter.by_reference ? L"ref " : L"";
                parameters.append(separator).append(direction);
                parameters += type_of_parameter(parameter.type).name + L' ' + name_of(parameter);
                arguments.append(separator).append(direction).append(name_of(parameter));
            }
            out_ << L"        public delegate void ManejadorDe" << event.name << L'(' << parameters
                 << L");\n\n";
            write_summary(L"        ", event.help);
            out_ << L"        public event ManejadorDe" << event.name << L' ' << event.name
                 << L";\n\n        void " << events.name << L'.' << event.name << L'(' << parameters
                 << L")\n        {\n            if (" << event.name << L" != null) " << event.name
                 << L'(' << arguments << L");\n        }\n\n";
        }
        out_ << csharp_receiver_end;
    }

    const LibraryInfo& library_;
    std::wostringstream out_;
};

}  // namespace

std::wstring csharp_text(const LibraryInfo& library) {
    return CsharpWriter(library).text();
}

}  // namespace kovrel
