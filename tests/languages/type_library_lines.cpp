// Prints a type library's contents, one thing a line, its parts separated by tabs: what the
// declarations in other languages are compared with.
//
//   type_library_lines FILE.tlb
#include <windows.h>
#include <oleauto.h>

#include <array>
#include <cstdio>
#include <initializer_list>

#include "automation/registration.h"
#include "automation/variant.h"
#include "services/text_encoding.h"
#include "tests/support/early.h"
#include "tests/support/type_spelling.h"

namespace kovrel::test {
namespace {

void print(std::initializer_list<std::wstring_view> parts) {
    std::string line;
    for (const std::wstring_view part : parts) {
        line += (line.empty() ? "" : "\t") + to_utf8(part);
    }
    std::printf("%s\n", line.c_str());
}

std::wstring help_of(ITypeInfo* info, MEMBERID member = MEMBERID_NIL) {
    Bstr help;
    info->GetDocumentation(member, nullptr, help.put(), nullptr, nullptr);
    return std::wstring(help.view());
}

const wchar_t* spelled_kind(const FUNCDESC& function) {
    switch (function.invkind) {
        case INVOKE_PROPERTYGET:
            return L"get";
        case INVOKE_PROPERTYPUT:
            return L"put";
        case INVOKE_PROPERTYPUTREF:
            return L"putref";
        default:
            return L"call";
    }
}

void print_parameters(ITypeInfo* info, const FUNCDESC& function) {
    std::array<BSTR, 20> names{};
    UINT count = 0;
    info->GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &count);
    for (SHORT at = 0; at < function.cParams; ++at) {
        const ELEMDESC& parameter = function.lprgelemdescParam[at];
        const USHORT flags = parameter.paramdesc.wParamFlags;
        if ((flags & PARAMFLAG_FRETVAL) != 0) continue;
        const auto index = static_cast<std::size_t>(at) + 1;
        // The new value of a property needs no name.
        const bool named = function.invkind == INVOKE_FUNC && index < count;
        const bool defaults = (flags & PARAMFLAG_FHASDEFAULT) != 0;
        print({L"parameter", (flags & PARAMFLAG_FOUT) != 0 ? L"inout" : L"in",
               spelled(info, parameter.tdesc), named ? text_of(names[index]) : L"value",
               (flags & PARAMFLAG_FOPT) != 0 ? L"optional" : L"required",
               defaults ? spelled(parameter.paramdesc.pparamdescex->varDefaultValue) : L""});
    }
    for (BSTR name : names) SysFreeString(name);
}

std::wstring spelled_result(ITypeInfo* info, const FUNCDESC& function) {
    if (function.cParams > 0) {
        const ELEMDESC& last = function.lprgelemdescParam[function.cParams - 1];
        if ((last.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) {
            return spelled(info, *last.tdesc.lptdesc);
        }
    }
    return L"void";
}

void print_functions(ITypeInfo* info, UINT count) {
    for (UINT index = 0; index < count; ++index) {
        FUNCDESC* function = nullptr;
        info->GetFuncDesc(index, &function);
        // In a dispatch interface those of IDispatch come first.
        const bool inherited = (function->memid & 0x60000000) == 0x60000000 && function->memid > 0;
        if (!inherited) {
            const auto slot = function->oVft / static_cast<int>(sizeof(void*));
            print({L"member", std::to_wstring(slot), std::to_wstring(function->memid),
                   spelled_kind(*function), name_of(info, function->memid),
                   spelled_result(info, *function), std::to_wstring(function->wFuncFlags),
                   help_of(info, function->memid)});
            print_parameters(info, *function);
        }
        info->ReleaseFuncDesc(function);
    }
}

void print_variables(ITypeInfo* info, UINT count) {
    for (UINT index = 0; index < count; ++index) {
        VARDESC* variable = nullptr;
        info->GetVarDesc(index, &variable);
        const std::wstring name = name_of(info, variable->memid);
        if (variable->varkind == VAR_CONST) {
            print({L"constant", name, std::to_wstring(variable->lpvarValue->lVal),
                   help_of(info, variable->memid)});
        } else {
            const ARRAYDESC& array = *variable->elemdescVar.tdesc.lpadesc;
            print({L"field", name, spelled(info, array.tdescElem),
                   std::to_wstring(array.rgbounds[0].cElements)});
        }
        info->ReleaseVarDesc(variable);
    }
}

void print_implemented(ITypeInfo* info, UINT count) {
    for (UINT index = 0; index < count; ++index) {
        HREFTYPE reference = 0;
        INT flags = 0;
        ComPtr<ITypeInfo> implemented;
        info->GetRefTypeOfImplType(index, &reference);
        info->GetImplTypeFlags(index, &flags);
        info->GetRefTypeInfo(reference, implemented.put());
        print({L"implements", name_of(implemented.get()), std::to_wstring(flags)});
    }
}

void print_type(const ComPtr<ITypeInfo>& described) {
    const auto info = is_dual(described.get()) ? vtable_side_of(described) : described;
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    const TYPEATTR type = *attributes;
    info->ReleaseTypeAttr(attributes);
    const wchar_t* const kind = type.typekind == TKIND_ENUM       ? L"enum"
                                : type.typekind == TKIND_RECORD   ? L"record"
                                : type.typekind == TKIND_COCLASS  ? L"class"
                                : type.typekind == TKIND_DISPATCH ? L"events"
                                                                  : L"interface";
    print({L"type", kind, name_of(info.get()), text_of_guid(type.guid),
           std::to_wstring(type.wMajorVerNum) + L'.' + std::to_wstring(type.wMinorVerNum),
           std::to_wstring(type.wTypeFlags), help_of(info.get())});
    print_variables(info.get(), type.cVars);
    print_functions(info.get(), type.cFuncs);
    if (type.typekind == TKIND_COCLASS) print_implemented(info.get(), type.cImplTypes);
}

int print_library(const wchar_t* path) {
    ComPtr<ITypeLib> library;
    if (FAILED(LoadTypeLibEx(path, REGKIND_NONE, library.put()))) return 1;
    TLIBATTR* attributes = nullptr;
    library->GetLibAttr(&attributes);
    Bstr name;
    Bstr help;
    library->GetDocumentation(-1, name.put(), help.put(), nullptr, nullptr);
    print({L"library", name.view(), text_of_guid(attributes->guid),
           std::to_wstring(attributes->wMajorVerNum) + L'.' +
               std::to_wstring(attributes->wMinorVerNum),
           help.view()});
    library->ReleaseTLibAttr(attributes);
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        ComPtr<ITypeInfo> info;
        library->GetTypeInfo(index, info.put());
        print_type(info);
    }
    return 0;
}

}  // namespace
}  // namespace kovrel::test

int wmain(int count, wchar_t** arguments) {
    if (count != 2) {
        std::fputs("type_library_lines FILE\n", stderr);
        return 2;
    }
    const kovrel::test::ComApartment apartment;
    return kovrel::test::print_library(arguments[1]);
}
