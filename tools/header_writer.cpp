#include "tools/header_writer.h"

#include <iomanip>
#include <sstream>

#include "automation/bstr.h"
#include "automation/registration.h"
#include "automation/variant.h"
#include "runtime/failure.h"

namespace kovrel {
namespace {

// With a byte-order mark Visual C++ reads the file as UTF-8 without being told.
constexpr const wchar_t* preamble =
    LR"(
// Early binding from C++11 or later, with Visual C++ and mingw-w64 alike. Made from the library's own
// declarations, member for member what its type library says. This file is UTF-8, and so must be a
// source that calls a member with an ñ in its name (Visual C++: /utf-8). Link with ole32 and oleaut32.
//
//   Kovrel::_clsFGen* general = nullptr;
//   HRESULT result = CoCreateInstance(__uuidof(Kovrel::clsFGen), nullptr, CLSCTX_INPROC_SERVER,
//                                     __uuidof(Kovrel::_clsFGen), reinterpret_cast<void**>(&general));
//
// Every member returns S_OK, or 0x800A0000 plus the number of the failure, which IErrorInfo
// describes. A BSTR or an object that comes back belongs to the caller. A null BSTR is an empty
// text, but no pointer to a variable may be null. C++ passes optional arguments itself: the default
// named in the comment; else a VARIANT of type VT_ERROR and value DISP_E_PARAMNOTFOUND, or an empty
// BSTR.
//
// Events: a sink derives from the interface of the events, gives itself out as that interface or as
// IDispatch, and is attached at the connection point:
//
//   IConnectionPointContainer* points;  // from QueryInterface of the instance
//   points->FindConnectionPoint(__uuidof(Kovrel::_clsAvisosEvents), &point);
//   point->Advise(sink, &cookie);       // until point->Unadvise(cookie)
//
// Its Invoke gets the number of the event and the arguments from the last to the first: rgvarg[0] is
// the last one. Those marked [in, out] are pointers (VT_BYREF); what they point to may be changed.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <ocidl.h>

)";

/// A GUID as C++ initializes one: 0x..., 0x..., 0x..., and then the last eight bytes in `braces`.
std::wstring initializer(const GUID& id, bool braces) {
    std::wostringstream out;
    out << std::hex << std::setfill(L'0');
    out << L"0x" << std::setw(8) << id.Data1 << L", 0x" << std::setw(4) << id.Data2 << L", 0x"
        << std::setw(4) << id.Data3;
    const wchar_t* separator = braces ? L", {" : L", ";
    for (const unsigned byte : id.Data4) {
        out << separator << L"0x" << std::setw(2) << byte;
        separator = L", ";
    }
    if (braces) out << L'}';
    return out.str();
}

std::wstring without_braces(const GUID& id) {
    const std::wstring text = text_of_guid(id);
    return text.substr(1, text.size() - 2);
}

/// A type as a value is passed: interfaces are pointers.
std::wstring type_name(const TypeRef& type) {
    if (type.picture) return L"IPictureDisp*";
    if (type.enumeration != nullptr) return type.enumeration->name;
    if (type.record != nullptr) return type.record->name;
    if (type.instance_of != nullptr) return std::wstring(type.instance_of->interface_name) + L'*';
    switch (type.type) {
        case VT_UI1:
            return L"BYTE";
        case VT_I2:
            return L"short";
        case VT_I4:
            return L"long";
        case VT_R4:
            return L"float";
        case VT_R8:
            return L"double";
        case VT_BOOL:
            return L"VARIANT_BOOL";
        case VT_DATE:
            return L"DATE";
        case VT_BSTR:
            return L"BSTR";
        case VT_VARIANT:
            return L"VARIANT";
        case VT_DISPATCH:
            return L"IDispatch*";
        case VT_UNKNOWN:
            return L"IUnknown*";
        default:
            throw Failure(E_NOTIMPL, L"Un tipo que el archivo de cabecera no conoce");
    }
}

std::wstring default_text(const VARIANT& value) {
    switch (value.vt) {
        case VT_BSTR:
            return L'"' + std::wstring(text_of(value.bstrVal)) + L'"';
        case VT_BOOL:
            return value.boolVal != VARIANT_FALSE ? L"VARIANT_TRUE" : L"VARIANT_FALSE";
        case VT_DATE:
            return std::to_wstring(static_cast<long>(value.date));
        default:
            return std::to_wstring(Variant(value).to_int32());
    }
}

std::wstring prefix(MemberKind kind) {
    switch (kind) {
        case MemberKind::property_get:
            return L"get_";
        case MemberKind::property_put:
            return L"put_";
        case MemberKind::property_put_object:
            return L"putref_";
        case MemberKind::method:
            break;
    }
    return L"";
}

/// The new value of a property has no name of its own.
const wchar_t* name_of(const ParameterInfo& parameter) {
    return parameter.name != nullptr ? parameter.name : L"value";
}

std::wstring parameter_text(const ParameterInfo& parameter) {
    std::wstring text = parameter.by_reference ? L"/* [in, out" : L"/* [in";
    if (parameter.optional) text += L", optional";
    if (parameter.declared_default != nullptr) {
        text += L", defaultvalue(" + default_text(*parameter.declared_default) + L')';
    }
    text += L"] */ " + type_name(parameter.type);
    if (parameter.by_reference) text += L'*';
    return text + L' ' + name_of(parameter);
}

class HeaderWriter {
 public:
    explicit HeaderWriter(const LibraryInfo& library) : library_(library) {}

    std::wstring text() {
        out_ << L"\uFEFF// " << library_.help << L".\n//" << preamble << L"namespace "
             << library_.name << L" {\n\n";
        for (const ClassInfo* info : library_.classes) {
            out_ << L"struct " << info->interface_name << L";\n";
        }
        out_ << L'\n';
        for (const EnumInfo* info : library_.enumerations) write_enumeration(*info);
        for (const RecordInfo* info : library_.records) write_record(*info);
        for (const ClassInfo* info : library_.classes) {
            write_interface(*info);
            if (info->events != nullptr) write_events(*info->events);
        }
        write_identities();
        out_ << L"}  // namespace " << library_.name << L"\n\n";
        write_uuid_declarations();
        return out_.str();
    }

 private:
    void write_enumeration(const EnumInfo& info) {
        if (info.has_macros) {
            out_ << L"// The names lose nothing to the platform's macros of the same names and "
                    L"values, which\n"
                    L"// are set aside for the declaration. Where <commdlg.h> is included too, "
                    L"write them\n"
                    L"// without "
                 << library_.name << L"::, as in static_cast<" << library_.name << L"::"
                 << info.name << L">(OFN_EXPLORER | OFN_HIDEREADONLY).\n";
            for (const EnumInfo::Value& value : info.values) {
                out_ << L"#pragma push_macro(\"" << value.name << L"\")\n#undef " << value.name
                     << L'\n';
            }
        }
        out_ << L"/// " << info.help << L"\nenum " << info.name << L" : long {\n";
        for (const EnumInfo::Value& value : info.values) {
            out_ << L"    /// " << value.help << L"\n    " << value.name << L" = 0x" << std::hex
                 << value.value << std::dec << L",\n";
        }
        out_ << L"};\n";
        if (info.has_macros) {
            for (const EnumInfo::Value& value : info.values) {
                out_ << L"#pragma pop_macro(\"" << value.name << L"\")\n";
            }
        }
        out_ << L'\n';
    }

    void write_record(const RecordInfo& info) {
        out_ << L"/// " << info.help << L"\nstruct DECLSPEC_UUID(\"" << without_braces(info.id)
             << L"\") " << info.name << L" {\n    BSTR " << info.field << L'[' << info.size
             << L"];\n};\n\n";
    }

    void write_interface(const ClassInfo& info) {
        out_ << L"/// " << info.help << L"\nMIDL_INTERFACE(\"" << without_braces(info.interface_id)
             << L"\") " << info.interface_name << L" : public IDispatch {\n";
        for (const MemberInfo& member : info.members) write_member(member);
        out_ << L"};\n\nclass DECLSPEC_UUID(\"" << without_braces(info.class_id) << L"\") "
             << info.name << L";\n\n";
    }

    void write_events(const EventsInfo& info) {
        out_ << L"/// " << info.help << L"\nMIDL_INTERFACE(\"" << without_braces(info.id) << L"\") "
             << info.name << L" : public IDispatch {\n    enum : DISPID {\n";
        for (const EventsInfo::Event& event : info.events) {
            out_ << L"        /// " << event.help << L'\n';
            write_changed(event.parameters, L"        ");
            out_ << L"        id_" << event.name << L" = " << event.id << L",  // (";
            const wchar_t* separator = L"";
            for (const ParameterInfo& parameter : event.parameters) {
                out_ << separator << parameter_text(parameter);
                separator = L", ";
            }
            out_ << L")\n";
        }
        out_ << L"    };\n};\n\n";
    }

    void write_changed(std::span<const ParameterInfo> parameters, const wchar_t* indent) {
        std::wstring names;
        for (const ParameterInfo& parameter : parameters) {
            if (!parameter.written_back) continue;
            names += (names.empty() ? L"" : L", ") + std::wstring(name_of(parameter));
        }
        if (!names.empty()) out_ << indent << L"/// Puede cambiar: " << names << L".\n";
    }

    void write_member(const MemberInfo& member) {
        out_ << L"    /// " << member.help << L'\n';
        write_changed(member.parameters, L"    ");
        out_ << L"    virtual HRESULT STDMETHODCALLTYPE " << prefix(member.kind) << member.name
             << L'(';
        const wchar_t* separator = L"\n        ";
        for (const ParameterInfo& parameter : member.parameters) {
            out_ << separator << parameter_text(parameter);
            separator = L",\n        ";
        }
        if (member.result.type != VT_VOID) {
            out_ << separator << L"/* [out, retval] */ " << type_name(member.result) << L"* result";
        }
        out_ << L") = 0;\n";
    }

    void write_identity(const wchar_t* kind, std::wstring_view name, const GUID& id) {
        // Defined in every source that includes it, and once in the program.
        out_ << L"extern \"C++\" const GUID DECLSPEC_SELECTANY " << kind << name << L" = {\n    "
             << initializer(id, true) << L"};\n";
    }

    void write_identities() {
        write_identity(L"LIBID_", library_.name, library_.id);
        for (const ClassInfo* info : library_.classes) {
            write_identity(L"CLSID_", info->name, info->class_id);
            write_identity(L"IID_", info->interface_name, info->interface_id);
            if (info->events != nullptr) {
                write_identity(L"DIID_", info->events->name, info->events->id);
            }
            if (info->instancing == Instancing::given) continue;
            out_ << L"constexpr wchar_t ProgID_" << info->name << L"[] = L\"" << info->prog_id
                 << L"\";\n";
        }
        for (const RecordInfo* info : library_.records) {
            write_identity(L"GUID_", info->name, info->id);
        }
        out_ << L'\n';
    }

    /// What __uuidof needs where the compiler has no __declspec(uuid).
    void write_uuid_declarations() {
        const auto declare = [this](std::wstring_view name, const GUID& id) {
            out_ << L"__CRT_UUID_DECL(" << library_.name << L"::" << name << L",\n                "
                 << initializer(id, false) << L")\n";
        };
        out_ << L"#ifdef __CRT_UUID_DECL\n";
        for (const ClassInfo* info : library_.classes) {
            declare(info->name, info->class_id);
            declare(info->interface_name, info->interface_id);
            if (info->events != nullptr) declare(info->events->name, info->events->id);
        }
        for (const RecordInfo* info : library_.records) declare(info->name, info->id);
        out_ << L"#endif\n";
    }

    const LibraryInfo& library_;
    std::wostringstream out_;
};

}  // namespace

std::wstring header_text(const LibraryInfo& library) {
    return HeaderWriter(library).text();
}

}  // namespace kovrel
