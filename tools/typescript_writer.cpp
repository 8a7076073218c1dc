#include "tools/typescript_writer.h"

#include <algorithm>
#include <sstream>

#include "tools/declared_text.h"

namespace kovrel {
namespace {

constexpr const wchar_t* typescript_preamble =
    LR"(//
// Para TypeScript 4.3 o posterior. Los guiones de Windows se compilan a ES3 o ES5 (tsc --target ES3);
// new ActiveXObject("Kovrel.clsFGen") tiene el tipo de su clase.
//
// JScript pasa siempre una copia: el guion no recibe lo que un miembro cambia en sus argumentos.
/// <reference lib="scripthost" />

)";

std::wstring typescript_type(const TypeRef& type) {
    if (type.enumeration != nullptr) return type.enumeration->name;
    if (type.record != nullptr) return L"string[] | SafeArray<string>";
    if (type.instance_of != nullptr) return type.instance_of->name;
    if (type.picture) return L"object";
    switch (type.type) {
        case VT_BOOL:
            return L"boolean";
        case VT_BSTR:
            return L"string";
        case VT_DATE:
            return L"VarDate";
        case VT_VARIANT:
            return L"any";
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return L"object";
        case VT_VOID:
            return L"void";
        default:
            return L"number";
    }
}

std::wstring parameter_list(std::span<const ParameterInfo> parameters) {
    std::wstring text;
    for (const ParameterInfo& parameter : parameters) {
        if (!text.empty()) text += L", ";
        text += name_of(parameter);
        text += (parameter.optional ? L"?: " : L": ") + typescript_type(parameter.type);
    }
    return text;
}

class TypescriptWriter {
 public:
    explicit TypescriptWriter(const LibraryInfo& library) : library_(library) {}

    std::wstring text() {
        out_ << L"// " << library_.help << L".\n"
             << typescript_preamble << L"declare namespace " << library_.name << L" {\n";
        for (const EnumInfo* info : library_.enumerations) write_enumeration(*info);
        for (const ClassInfo* info : library_.classes) {
            write_class(*info);
            if (info->events != nullptr) write_events(*info->events);
        }
        out_ << L"}\n\ninterface ActiveXObject {\n";
        for_each_creatable([this](const std::wstring& program, const std::wstring& type) {
            out_ << L"  new (programa: " << program << L"): " << type << L";\n";
        });
        out_ << L"}\n\ninterface ActiveXObjectNameMap {\n";
        for_each_creatable([this](const std::wstring& program, const std::wstring& type) {
            out_ << L"  " << program << L": " << type << L";\n";
        });
        out_ << L"}\n";
        return out_.str();
    }

 private:
    template <class Write>
    void for_each_creatable(const Write& write) {
        for (const ClassInfo* info : library_.classes) {
            if (info->instancing == Instancing::given) continue;
            write(L'"' + std::wstring(info->prog_id) + L'"',
                  std::wstring(library_.name) + L'.' + info->name);
        }
    }

    void write_enumeration(const EnumInfo& info) {
        out_ << L"  /** " << info.help << L" */\n  const enum " << info.name << L" {\n";
        for (const EnumInfo::Value& value : info.values) {
            out_ << L"    /** " << value.help << L" */\n    " << value.name << L" = 0x" << std::hex
                 << value.value << std::dec << L",\n";
        }
        out_ << L"  }\n\n";
    }

    static std::wstring note(const ParameterInfo& parameter) {
        if (parameter.written_back) return L"Puede cambiar.";
        if (parameter.declared_default == nullptr) return L"";
        return L"Si falta, " + default_text(*parameter.declared_default) + L'.';
    }

    void write_notes(std::wstring_view help, std::span<const ParameterInfo> parameters) {
        out_ << L"    /**\n     * " << help << L'\n';
        for (const ParameterInfo& parameter : parameters) {
            if (const std::wstring text = note(parameter); !text.empty()) {
                out_ << L"     * @param " << name_of(parameter) << L" " << text << L'\n';
            }
        }
        out_ << L"     */\n";
    }

    void write_class(const ClassInfo& info) {
        out_ << L"  /** " << info.help << L" */\n  interface " << info.name << L" {\n";
        for_each_group(info, [&](MemberGroup group) {
            const MemberInfo& first = group.front();
            // An Enumerator asks for it by its number.
            if (info.published(first.id) == DISPID_NEWENUM) return;
            if (first.kind == MemberKind::method) {
                write_notes(first.help, first.parameters);
                out_ << L"    " << first.name << L'(' << parameter_list(first.parameters) << L"): "
                     << typescript_type(first.result) << L";\n";
            } else {
                write_property(group);
            }
        });
        out_ << L"  }\n\n";
    }

    void write_property(MemberGroup group) {
        const MemberInfo& first = group.front();
        write_notes(first.help, {});
        if (first.kind != MemberKind::property_get) {
            out_ << L"    set " << first.name << L"(valor: "
                 << typescript_type(first.parameters.front().type) << L");\n";
            return;
        }
        out_ << (group.size() == 1 ? L"    readonly " : L"    ") << first.name << L": "
             << typescript_type(first.result) << L";\n";
    }

    void write_events(const EventsInfo& info) {
        out_ << L"  /** " << info.help << L" */\n  interface " << info.name << L" {\n";
        for (const EventsInfo::Event& event : info.events) {
            write_notes(event.help, event.parameters);
            out_ << L"    " << event.name << L'(' << parameter_list(event.parameters)
                 << L"): void;\n";
        }
        out_ << L"  }\n\n";
    }

    const LibraryInfo& library_;
    std::wostringstream out_;
};

}  // namespace

std::wstring typescript_text(const LibraryInfo& library) {
    return TypescriptWriter(library).text();
}

}  // namespace kovrel
