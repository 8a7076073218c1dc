#include "tools/pascal_writer.h"

#include <algorithm>
#include <sstream>

#include "automation/bstr.h"
#include "automation/registration.h"
#include "automation/variant.h"
#include "runtime/failure.h"
#include "tools/declared_text.h"
#include "tools/pascal_events.h"
#include "tools/pascal_names.h"

namespace kovrel {
namespace {

constexpr const wchar_t* pascal_preamble =
    LR"(
  Para Delphi 2009 o posterior, y para Lazarus y Free Pascal 3, con el que se prueba. Dice lo mismo que
  la biblioteca de tipos, miembro por miembro.

    General := CoclsFGen.Create;          una instancia de clsFGen
    Texto := General.Verifica_NIF('12345678a', Mensajes);

  Los nombres van en ASCII, que es lo que admiten todos los compiladores: la eñe es "ny", y las vocales
  pierden la tilde (ConvierteAnyoA4). Una palabra reservada lleva detrás un guion bajo (File_).

  Un parámetro "var" necesita una variable de su tipo exacto, aunque el miembro solo la lea; los que
  puede cambiar se dicen delante de cada miembro. Una propiedad que se escribe por referencia se escribe
  con su procedimiento: General.Set_AppOrigen(Titulo). Los argumentos opcionales que van por referencia
  se pasan siempre: el comentario dice su valor por omisión. Para un OleVariant que falta, EmptyParam
  (unidad Variants).

  Cada interfaz tiene al lado otra cuyo nombre termina en Disp. Llama por número en vez de por la tabla
  de funciones: es más lenta, pero admite constantes en los parámetros que el miembro solo lee, y todas
  sus propiedades se asignan:

    ConNumeros := _clsFGenDisp(IDispatch(General));
    ConNumeros.AppOrigen := 'Facturas';

  Un fallo llega como excepción EOleException (unidad ComObj). }
)";

const wchar_t* prefix_of(MemberKind kind) {
    return kind == MemberKind::property_get ? L"Get_" : kind == MemberKind::method ? L"" : L"Set_";
}

/// What can be the default of a parameter by value; empty if none can.
std::wstring pascal_default(const ParameterInfo& parameter) {
    if (!parameter.optional || parameter.by_reference) return L"";
    if (parameter.type.type == VT_DISPATCH) return L"nil";
    if (parameter.declared_default == nullptr || parameter.type.type == VT_VARIANT) return L"";
    const VARIANT& value = *parameter.declared_default;
    if (value.vt == VT_BSTR) return L'\'' + std::wstring(text_of(value.bstrVal)) + L'\'';
    if (value.vt == VT_BOOL) return value.boolVal != VARIANT_FALSE ? L"True" : L"False";
    return default_text(value);
}

class PascalWriter {
 public:
    explicit PascalWriter(const LibraryInfo& library) : library_(library) {}

    std::wstring text() {
        out_ << L"\uFEFF{ " << library_.help << L".\n"
             << pascal_preamble << L"\nunit " << library_.name
             << L";\n\n{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}\n\ninterface\n\nuses\n"
                L"  Windows, Classes, SysUtils, ActiveX, ComObj;\n\n";
        write_identities();
        out_ << L"type\n";
        for (const EnumInfo* info : library_.enumerations) {
            out_ << L"  { " << info->help << L" }\n  " << info->name << L" = Integer;\n";
        }
        for (const RecordInfo* info : library_.records) write_record(*info);
        out_ << L'\n';
        for (const ClassInfo* info : library_.classes) {
            out_ << L"  " << info->interface_name << L" = interface;\n";
        }
        for (const ClassInfo* info : library_.classes) write_interface(*info);
        for (const ClassInfo* info : library_.classes) write_dispinterface(*info);
        for (const ClassInfo* info : library_.classes) {
            if (info->events != nullptr) out_ << pascal_events_type(*info);
        }
        for (const ClassInfo* info : library_.classes) write_creator(*info);
        write_constants();
        out_ << L"implementation\n\n";
        for (const ClassInfo* info : library_.classes) write_creation(*info);
        for (const ClassInfo* info : library_.classes) {
            if (info->events != nullptr) out_ << pascal_events_implementation(*info);
        }
        out_ << L"end.\n";
        return out_.str();
    }

 private:
    void write_identity(const wchar_t* kind, std::wstring_view name, const GUID& id) {
        out_ << L"  " << kind << name << L": TGUID = '" << text_of_guid(id) << L"';\n";
    }

    void write_identities() {
        out_ << L"const\n  " << library_.name << L"MajorVersion = " << library_.major << L";\n  "
             << library_.name << L"MinorVersion = " << library_.minor << L";\n";
        write_identity(L"LIBID_", library_.name, library_.id);
        for (const ClassInfo* info : library_.classes) {
            write_identity(L"CLASS_", info->name, info->class_id);
            write_identity(L"IID_", info->interface_name, info->interface_id);
            if (info->events != nullptr) {
                write_identity(L"DIID_", info->events->name, info->events->id);
            }
        }
        for (const RecordInfo* info : library_.records) {
            write_identity(L"GUID_", info->name, info->id);
        }
        out_ << L'\n';
    }

    void write_record(const RecordInfo& info) {
        out_ << L"  { " << info.help << L" }\n  " << info.name << L" = record\n    "
             << pascal_name(info.field) << L": array [0.." << info.size - 1
             << L"] of WideString;\n  end;\n";
    }

    void write_notes(const MemberInfo& member) {
        out_ << L"    { " << member.help;
        if (const std::wstring names = changed_names(member.parameters); !names.empty()) {
            out_ << L" Puede cambiar: " << names << L'.';
        }
        for (const ParameterInfo& parameter : member.parameters) {
            if (!parameter.optional || !parameter.by_reference) continue;
            out_ << L" Opcional: " << name_of(parameter);
            if (parameter.declared_default != nullptr) {
                out_ << L" = " << default_text(*parameter.declared_default);
            }
            out_ << L'.';
        }
        out_ << L" }\n";
    }

    /// Defaults are possible where all parameters that follow have one.
    static std::size_t first_default(const MemberInfo& member) {
        std::size_t first = member.parameters.size();
        while (first > 0 && !pascal_default(member.parameters[first - 1]).empty()) --first;
        return first;
    }

    std::wstring parameters_of(const MemberInfo& member) {
        std::wstring text;
        const std::size_t with_default = first_default(member);
        for (std::size_t at = 0; at < member.parameters.size(); ++at) {
            const ParameterInfo& parameter = member.parameters[at];
            text += text.empty() ? L"(" : L"; ";
            if (parameter.by_reference) text += L"var ";
            // Interfaces and texts need no copy.
            if (!parameter.by_reference && member.kind != MemberKind::method) text += L"const ";
            text += pascal_name(name_of(parameter)) + L": " + pascal_type(parameter.type);
            if (at >= with_default) text += L" = " + pascal_default(parameter);
        }
        return text.empty() ? text : text + L')';
    }

    void write_interface(const ClassInfo& info) {
        out_ << L"\n  { " << info.help << L" }\n  " << info.interface_name
             << L" = interface(IDispatch)\n    ['" << text_of_guid(info.interface_id) << L"']\n";
        for (const MemberInfo& member : info.members) {
            write_notes(member);
            const bool returns = member.result.type != VT_VOID;
            out_ << (returns ? L"    function " : L"    procedure ") << prefix_of(member.kind)
                 << pascal_name(member.name) << parameters_of(member);
            if (returns) out_ << L": " << pascal_type(member.result);
            out_ << L"; safecall;\n";
        }
        for_each_group(info, [&](MemberGroup group) { write_property(group); });
        out_ << L"  end;\n";
    }

    void write_property(MemberGroup group) {
        if (group.front().kind == MemberKind::method) return;
        std::wstring access;
        const TypeRef* type = nullptr;
        for (const MemberInfo& member : group) {
            const bool reads = member.kind == MemberKind::property_get;
            if (!reads && member.parameters.front().by_reference) continue;
            type = reads ? &member.result : &member.parameters.front().type;
            access += (reads ? L" read Get_" : L" write Set_") + pascal_name(member.name);
        }
        if (type == nullptr) return;
        out_ << L"    property " << pascal_name(group.front().name) << L": " << pascal_type(*type)
             << access << L";\n";
    }

    void write_dispinterface(const ClassInfo& info) {
        out_ << L"\n  " << info.interface_name << L"Disp = dispinterface\n    ['"
             << text_of_guid(info.interface_id) << L"']\n";
        for_each_group(info, [&](MemberGroup group) {
            const MemberInfo& first = group.front();
            if (first.kind == MemberKind::method) {
                out_ << pascal_dispatch_method(first, info.published(first.id));
            } else {
                write_dispatch_property(group, info.published(first.id));
            }
        });
        out_ << L"  end;\n";
    }

    void write_dispatch_property(MemberGroup group, DISPID id) {
        const auto reads = std::ranges::find(group, MemberKind::property_get, &MemberInfo::kind);
        const bool readable = reads != group.end();
        const TypeRef& type = readable ? reads->result : group.front().parameters.front().type;
        out_ << L"    property " << pascal_name(group.front().name) << L": "
             << pascal_dispatch_type(type);
        if (!readable) out_ << L" writeonly";
        if (readable && group.size() == 1) out_ << L" readonly";
        out_ << L" dispid " << id << L";\n";
    }

    void write_creator(const ClassInfo& info) {
        if (info.instancing == Instancing::given) return;
        out_ << L"\n  { Crea instancias de " << info.name << L". }\n  Co" << info.name
             << L" = class\n    class function Create: " << info.interface_name << L";\n  end;\n";
    }

    void write_creation(const ClassInfo& info) {
        if (info.instancing == Instancing::given) return;
        out_ << L"class function Co" << info.name << L".Create: " << info.interface_name
             << L";\nbegin\n  Result := CreateComObject(CLASS_" << info.name << L") as "
             << info.interface_name << L";\nend;\n\n";
    }

    void write_constants() {
        for (const EnumInfo* info : library_.enumerations) {
            out_ << L"\nconst // " << info->name << L'\n';
            for (const EnumInfo::Value& value : info->values) {
                out_ << L"  " << pascal_name(value.name) << L" = $" << std::hex << value.value
                     << std::dec << L"; { " << value.help << L" }\n";
            }
        }
        out_ << L'\n';
    }

    const LibraryInfo& library_;
    std::wostringstream out_;
};

}  // namespace

std::wstring pascal_text(const LibraryInfo& library) {
    return PascalWriter(library).text();
}

}  // namespace kovrel
