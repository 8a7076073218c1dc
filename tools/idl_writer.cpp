#include "tools/idl_writer.h"

#include <sstream>

#include "tools/declared_text.h"

namespace kovrel {
namespace {

constexpr const wchar_t* idl_preamble =
    LR"(//
// Compila con widl en una biblioteca de tipos igual a kovrel.tlb, salvo en los nombres que no son ASCII:
// aquí la eñe es "ny" y las vocales no llevan tilde. Con MIDL no se ha probado.
//
// widl no admite la ayuda de cada valor de una enumeración, la versión de la interfaz de los eventos, ni el
// valor por omisión de un texto o de un VARIANT por referencia: con él, esos parámetros quedan como
// opcionales sin valor.
//
// Este archivo va en la página de códigos 1252, que es la de los textos de la biblioteca.
import "oaidl.idl";
import "ocidl.idl";

#ifdef __WIDL__
#define AYUDA(texto)
#define POR_OMISION(valor) optional
#else
#define AYUDA(texto) [helpstring(texto)]
#define POR_OMISION(valor) defaultvalue(valor)
#endif

)";

std::wstring idl_string(std::wstring_view text) {
    std::wstring result = L"\"";
    for (const wchar_t character : text) {
        if (character == L'"' || character == L'\\') result += L'\\';
        result += character;
    }
    return result + L'"';
}

std::wstring_view property_attribute(MemberKind kind) {
    switch (kind) {
        case MemberKind::property_get:
            return L"propget, ";
        case MemberKind::property_put:
            return L"propput, ";
        case MemberKind::property_put_object:
            return L"propputref, ";
        case MemberKind::method:
            break;
    }
    return L"";
}

std::wstring idl_default(const VARIANT& value) {
    // The number that the type library keeps: true has all bits set.
    return value.vt == VT_BOOL ? std::to_wstring(value.boolVal) : default_text(value);
}

std::wstring idl_parameter(const ParameterInfo& parameter) {
    std::wstring text = parameter.by_reference ? L"[in, out" : L"[in";
    if (parameter.declared_default != nullptr) {
        // This says that it is optional, too.
        const VARIANT& value = *parameter.declared_default;
        const bool not_for_widl =
            parameter.by_reference && (value.vt == VT_BSTR || parameter.type.type == VT_VARIANT);
        text += not_for_widl ? L", POR_OMISION(" : L", defaultvalue(";
        text += idl_default(value) + L')';
    } else if (parameter.optional) {
        text += L", optional";
    }
    text += L"] " + c_type_name(parameter.type);
    if (parameter.by_reference) text += L'*';
    return text + L' ' + ascii_name(name_of(parameter));
}

class IdlWriter {
 public:
    explicit IdlWriter(const LibraryInfo& library) : library_(library) {}

    std::wstring text() {
        out_ << L"// " << library_.help << L".\n"
             << idl_preamble << L"[uuid(" << without_braces(library_.id) << L"), version("
             << library_.major << L'.' << library_.minor << L"),\n helpstring("
             << idl_string(library_.help) << L")]\nlibrary " << library_.name
             << L"\n{\nimportlib(\"stdole2.tlb\");\n\n";
        for (const EnumInfo* info : library_.enumerations) write_enumeration(*info);
        for (const RecordInfo* info : library_.records) write_record(*info);
        for (const ClassInfo* info : library_.classes) {
            out_ << L"interface " << info->interface_name << L";\n";
        }
        out_ << L'\n';
        for (const ClassInfo* info : library_.classes) write_interface(*info);
        for (const ClassInfo* info : library_.classes) {
            if (info->events != nullptr) write_events(*info->events);
        }
        for (const ClassInfo* info : library_.classes) write_class(*info);
        out_ << L"};\n";
        return out_.str();
    }

 private:
    void write_attributes(const std::wstring& first, const GUID& id, std::wstring_view help) {
        out_ << L'[' << first << L"uuid(" << without_braces(id) << L"),\n helpstring("
             << idl_string(help) << L")]";
    }

    /// Of every type but the events, which cannot have one.
    [[nodiscard]] std::wstring version_attribute() const {
        return L"version(" + std::to_wstring(library_.major) + L'.' +
               std::to_wstring(library_.minor) + L"), ";
    }

    void write_enumeration(const EnumInfo& info) {
        out_ << L"typedef ";
        write_attributes(version_attribute(), info.id, info.help);
        out_ << L"\nenum " << info.name << L"\n{\n";
        const wchar_t* separator = L"";
        for (const EnumInfo::Value& value : info.values) {
            out_ << separator << L"    AYUDA(" << idl_string(value.help) << L") " << value.name
                 << L" = " << value.value;
            separator = L",\n";
        }
        out_ << L"\n} " << info.name << L";\n\n";
    }

    void write_record(const RecordInfo& info) {
        out_ << L"typedef ";
        write_attributes(version_attribute(), info.id, info.help);
        out_ << L"\nstruct " << info.name << L"\n{\n    BSTR " << ascii_name(info.field) << L'['
             << info.size << L"];\n} " << info.name << L";\n\n";
    }

    void write_function(const wchar_t* result, const MemberInfo& member) {
        out_ << L"    " << result << L' ' << ascii_name(member.name) << L'(';
        const wchar_t* separator = L"\n        ";
        for (const ParameterInfo& parameter : member.parameters) {
            out_ << separator << idl_parameter(parameter);
            separator = L",\n        ";
        }
        if (member.result.type != VT_VOID) {
            out_ << separator << L"[out, retval] " << c_type_name(member.result) << L"* result";
        }
        out_ << L");\n";
    }

    void write_interface(const ClassInfo& info) {
        write_attributes(L"object, dual, oleautomation, nonextensible, " + version_attribute(),
                         info.interface_id, info.help);
        out_ << L"\ninterface " << info.interface_name << L" : IDispatch\n{\n";
        for (const MemberInfo& member : info.members) {
            const DISPID id = info.published(member.id);
            out_ << L"    [" << property_attribute(member.kind);
            if (id == DISPID_NEWENUM) out_ << L"restricted, ";
            out_ << L"id(" << id << L"), helpstring(" << idl_string(member.help) << L")]\n";
            write_function(L"HRESULT", member);
        }
        out_ << L"};\n\n";
    }

    void write_events(const EventsInfo& info) {
        write_attributes(L"hidden, ", info.id, info.help);
        out_ << L"\ndispinterface " << info.name << L"\n{\nproperties:\nmethods:\n";
        for (const EventsInfo::Event& event : info.events) {
            out_ << L"    [id(" << event.id << L"), helpstring(" << idl_string(event.help)
                 << L")]\n";
            write_function(L"void", method_of(event));
        }
        out_ << L"};\n\n";
    }

    void write_class(const ClassInfo& info) {
        const wchar_t* const flags = info.instancing == Instancing::global  ? L"appobject, "
                                     : info.instancing == Instancing::given ? L"noncreatable, "
                                                                            : L"";
        write_attributes(flags + version_attribute(), info.class_id, info.help);
        out_ << L"\ncoclass " << info.name << L"\n{\n    [default] interface "
             << info.interface_name << L";\n";
        if (info.events != nullptr) {
            out_ << L"    [default, source] dispinterface " << info.events->name << L";\n";
        }
        out_ << L"};\n\n";
    }

    const LibraryInfo& library_;
    std::wostringstream out_;
};

}  // namespace

std::wstring idl_text(const LibraryInfo& library) {
    return IdlWriter(library).text();
}

}  // namespace kovrel
