#include "tools/header_writer.h"

#include <sstream>

#include "tools/c_interface_writer.h"
#include "tools/declared_text.h"

namespace kovrel {
namespace {

// With a byte-order mark Visual C++ reads the file as UTF-8 without being told.
constexpr const wchar_t* preamble =
    LR"(
// Early binding from C++11 or later and from C99, with Visual C++ and mingw-w64 alike. Made from the
// library's own declarations, member for member what its type library says. This file is UTF-8, and so
// must be a source that calls a member with an ñ in its name (Visual C++: /utf-8). Link with ole32 and
// oleaut32.
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
//
// In C, and in C++ where CINTERFACE is defined, an interface is a pointer to a table of functions, and
// names stand in no namespace. Where COBJMACROS is defined, there is a macro for each function:
//
//   CoCreateInstance(&CLSID_clsFGen, NULL, CLSCTX_INPROC_SERVER, &IID__clsFGen, (void**)&general);
//   general->lpVtbl->LetraNIF(general, &number, &letter);
//   _clsFGen_LetraNIF(general, &number, &letter);
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <ocidl.h>

)";

class HeaderWriter {
 public:
    explicit HeaderWriter(const LibraryInfo& library) : library_(library) {}

    std::wstring text() {
        out_ << L"\uFEFF// " << library_.help << L".\n//" << preamble
             << L"#if defined(__cplusplus) && !defined(CINTERFACE)\n\nnamespace " << library_.name
             << L" {\n\n";
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
        out_ << L"\n#else\n\n" << c_interface_text(library_) << L"\n#endif\n";
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
                out_ << separator << c_parameter_text(parameter);
                separator = L", ";
            }
            out_ << L")\n";
        }
        out_ << L"    };\n};\n\n";
    }

    void write_changed(std::span<const ParameterInfo> parameters, const wchar_t* indent) {
        const std::wstring names = changed_names(parameters);
        if (!names.empty()) out_ << indent << L"/// Puede cambiar: " << names << L".\n";
    }

    void write_member(const MemberInfo& member) {
        out_ << L"    /// " << member.help << L'\n';
        write_changed(member.parameters, L"    ");
        out_ << L"    virtual HRESULT STDMETHODCALLTYPE " << prefix(member.kind) << member.name
             << L'(';
        const wchar_t* separator = L"\n        ";
        for (const ParameterInfo& parameter : member.parameters) {
            out_ << separator << c_parameter_text(parameter);
            separator = L",\n        ";
        }
        if (member.result.type != VT_VOID) {
            out_ << separator << L"/* [out, retval] */ " << c_type_name(member.result)
                 << L"* result";
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
