#include "tools/c_interface_writer.h"

#include <sstream>

#include "tools/declared_text.h"

namespace kovrel {
namespace {

struct InheritedFunction {
    const wchar_t* result;
    const wchar_t* name;
    const wchar_t* parameters;
    const wchar_t* names;
};

/// Those of IUnknown and IDispatch, which every table begins with.
constexpr InheritedFunction inherited_functions[]{
    {L"HRESULT", L"QueryInterface", L", REFIID riid, void** ppvObject", L", riid, ppvObject"},
    {L"ULONG", L"AddRef", L"", L""},
    {L"ULONG", L"Release", L"", L""},
    {L"HRESULT", L"GetTypeInfoCount", L", UINT* pctinfo", L", pctinfo"},
    {L"HRESULT", L"GetTypeInfo", L", UINT iTInfo, LCID lcid, ITypeInfo** ppTInfo",
     L", iTInfo, lcid, ppTInfo"},
    {L"HRESULT", L"GetIDsOfNames",
     L", REFIID riid, LPOLESTR* rgszNames, UINT cNames, LCID lcid,\n        DISPID* rgDispId",
     L", riid, rgszNames, cNames, lcid, rgDispId"},
    {L"HRESULT", L"Invoke",
     L", DISPID dispIdMember, REFIID riid, LCID lcid, WORD wFlags,\n        DISPPARAMS* "
     L"pDispParams, "
     L"VARIANT* pVarResult, EXCEPINFO* pExcepInfo, UINT* puArgErr",
     L", dispIdMember, riid, lcid, wFlags, pDispParams, pVarResult, pExcepInfo, puArgErr"},
};

class CInterfaceWriter {
 public:
    explicit CInterfaceWriter(const LibraryInfo& library) : library_(library) {}

    std::wstring text() {
        for (const ClassInfo* info : library_.classes) {
            const std::wstring name = info->interface_name;
            out_ << L"typedef struct " << name << L' ' << name << L";\n";
        }
        out_ << L'\n';
        for (const EnumInfo* info : library_.enumerations) write_enumeration(*info);
        for (const RecordInfo* info : library_.records) {
            out_ << L"/// " << info->help << L"\ntypedef struct " << info->name << L" {\n    BSTR "
                 << info->field << L'[' << info->size << L"];\n} " << info->name << L";\n\n";
        }
        for (const ClassInfo* info : library_.classes) {
            write_table(*info);
            if (info->events != nullptr) write_events(*info->events);
        }
        out_ << L"#ifdef COBJMACROS\n\n";
        for (const ClassInfo* info : library_.classes) write_macros(*info);
        out_ << L"#endif  // COBJMACROS\n\n";
        write_identities();
        return out_.str();
    }

 private:
    void write_enumeration(const EnumInfo& info) {
        for (const EnumInfo::Value& value : info.values) {
            if (info.has_macros) out_ << L"#undef " << value.name << L'\n';
        }
        out_ << L"/// " << info.help << L"\ntypedef enum " << info.name << L" {\n";
        for (const EnumInfo::Value& value : info.values) {
            out_ << L"    /// " << value.help << L"\n    " << value.name << L" = 0x" << std::hex
                 << value.value << std::dec << L",\n";
        }
        out_ << L"} " << info.name << L";\n\n";
    }

    void write_table(const ClassInfo& info) {
        const std::wstring name = info.interface_name;
        out_ << L"/// " << info.help << L"\ntypedef struct " << name << L"Vtbl {\n";
        for (const InheritedFunction& function : inherited_functions) {
            out_ << L"    " << function.result << L" (STDMETHODCALLTYPE* " << function.name << L")("
                 << name << L"* This" << function.parameters << L");\n";
        }
        for (const MemberInfo& member : info.members) {
            out_ << L"    /// " << member.help << L"\n    HRESULT (STDMETHODCALLTYPE* "
                 << prefix(member.kind) << member.name << L")(\n        " << name << L"* This";
            for (const ParameterInfo& parameter : member.parameters) {
                out_ << L",\n        " << c_parameter_text(parameter);
            }
            if (member.result.type != VT_VOID) {
                out_ << L",\n        /* [out, retval] */ " << c_type_name(member.result)
                     << L"* result";
            }
            out_ << L");\n";
        }
        out_ << L"} " << name << L"Vtbl;\n\nstruct " << name << L" {\n    const " << name
             << L"Vtbl* lpVtbl;\n};\n\n";
    }

    void write_events(const EventsInfo& info) {
        out_ << L"/// " << info.help << L"\nenum {\n";
        for (const EventsInfo::Event& event : info.events) {
            out_ << L"    /// " << event.help << L"\n    " << info.name << L"_id_" << event.name
                 << L" = " << event.id << L",  // (";
            const wchar_t* separator = L"";
            for (const ParameterInfo& parameter : event.parameters) {
                out_ << separator << c_parameter_text(parameter);
                separator = L", ";
            }
            out_ << L")\n";
        }
        out_ << L"};\n\n";
    }

    void write_macro(const ClassInfo& info, const std::wstring& function,
                     const std::wstring& names) {
        out_ << L"#define " << info.interface_name << L'_' << function << L"(This" << names
             << L") \\\n    ((This)->lpVtbl->" << function << L"(This" << names << L"))\n";
    }

    void write_macros(const ClassInfo& info) {
        for (const InheritedFunction& function : inherited_functions) {
            write_macro(info, function.name, function.names);
        }
        for (const MemberInfo& member : info.members) {
            const std::wstring function = std::wstring(prefix(member.kind)) + member.name;
            std::wstring names;
            for (const ParameterInfo& parameter : member.parameters) {
                const std::wstring name = name_of(parameter);
                // A parameter of the member's own name would take the place of that in the macro.
                names += L", " + name + (name == function ? L"_" : L"");
            }
            if (member.result.type != VT_VOID) names += L", result";
            write_macro(info, function, names);
        }
        out_ << L'\n';
    }

    void write_identity(const wchar_t* kind, std::wstring_view name, const GUID& id) {
        out_ << L"KOVREL_GUID " << kind << name << L" = {\n    " << initializer(id, true)
             << L"};\n";
    }

    void write_identities() {
        out_ << L"#ifdef __cplusplus\n"
                L"#define KOVREL_GUID EXTERN_C const GUID DECLSPEC_SELECTANY\n"
                L"#else\n"
                L"#define KOVREL_GUID const GUID DECLSPEC_SELECTANY\n"
                L"#endif\n";
        write_identity(L"LIBID_", library_.name, library_.id);
        for (const ClassInfo* info : library_.classes) {
            write_identity(L"CLSID_", info->name, info->class_id);
            write_identity(L"IID_", info->interface_name, info->interface_id);
            if (info->events != nullptr) {
                write_identity(L"DIID_", info->events->name, info->events->id);
            }
            if (info->instancing == Instancing::given) continue;
            out_ << L"#define ProgID_" << info->name << L" L\"" << info->prog_id << L"\"\n";
        }
        for (const RecordInfo* info : library_.records) {
            write_identity(L"GUID_", info->name, info->id);
        }
        out_ << L"#undef KOVREL_GUID\n";
    }

    const LibraryInfo& library_;
    std::wostringstream out_;
};

}  // namespace

std::wstring c_interface_text(const LibraryInfo& library) {
    return CInterfaceWriter(library).text();
}

}  // namespace kovrel
