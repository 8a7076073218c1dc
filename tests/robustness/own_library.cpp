#include "tests/robustness/own_library.h"

#include <cstdlib>

#include "tests/support/early.h"
#include "tests/support/library_module.h"

namespace kovrel::test {
namespace {

VARTYPE type_of(const ELEMDESC& parameter) {
    const TYPEDESC* type = &parameter.tdesc;
    while (type->vt == VT_PTR) type = type->lptdesc;
    return type->vt;
}

OwnMember read_member(ITypeInfo* info, UINT index) {
    FUNCDESC* function = nullptr;
    info->GetFuncDesc(index, &function);
    OwnMember member;
    member.id = function->memid;
    member.kind = static_cast<WORD>(function->invkind);
    BSTR names[16]{};
    UINT count = 0;
    info->GetNames(function->memid, names, 16, &count);
    for (UINT name = 0; name < count; ++name) {
        if (name == 0) {
            member.name = text_of(names[name]);
        } else {
            member.parameters.emplace_back(text_of(names[name]));
        }
        SysFreeString(names[name]);
    }
    for (SHORT at = 0; at < function->cParams; ++at) {
        const ELEMDESC& parameter = function->lprgelemdescParam[at];
        if ((parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) == 0) {
            member.types.push_back(type_of(parameter));
        }
    }
    info->ReleaseFuncDesc(function);
    return member;
}

OwnClass read_class(ITypeLib* library, UINT index) {
    OwnClass result;
    ComPtr<ITypeInfo> info;
    ComPtr<ITypeInfo> face;
    library->GetTypeInfo(index, info.put());
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    result.id = attributes->guid;
    info->ReleaseTypeAttr(attributes);
    result.name = name_of(info.get());
    HREFTYPE reference = 0;
    info->GetRefTypeOfImplType(0, &reference);
    info->GetRefTypeInfo(reference, face.put());
    face->GetTypeAttr(&attributes);
    const UINT functions = attributes->cFuncs;
    face->ReleaseTypeAttr(attributes);
    for (UINT function = 0; function < functions; ++function) {
        OwnMember member = read_member(face.get(), function);
        constexpr DISPID first_of_the_system = 0x60000000;
        if (member.id < first_of_the_system) result.members.push_back(std::move(member));
    }
    return result;
}

bool is_creatable(ITypeLib* library, UINT index) {
    ComPtr<ITypeInfo> info;
    library->GetTypeInfo(index, info.put());
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    const bool result = (attributes->wTypeFlags & TYPEFLAG_FCANCREATE) != 0;
    info->ReleaseTypeAttr(attributes);
    return result;
}

std::vector<OwnClass> read_classes(const wchar_t* path) {
    std::vector<OwnClass> classes;
    ComPtr<ITypeLib> library;
    if (FAILED(LoadTypeLibEx(path, REGKIND_NONE, library.put()))) return classes;
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        TYPEKIND kind{};
        library->GetTypeInfoType(index, &kind);
        if (kind == TKIND_COCLASS && is_creatable(library.get(), index)) {
            classes.push_back(read_class(library.get(), index));
        }
    }
    return classes;
}

}  // namespace

const OwnMember& OwnClass::member(const std::wstring& wanted, WORD kind) const {
    for (const OwnMember& candidate : members) {
        if (candidate.name == wanted && candidate.kind == kind) return candidate;
    }
    std::abort();
}

OwnLibrary::OwnLibrary()
    : module_(LoadLibraryW(KOVREL_OWN_LIBRARY)), classes_(read_classes(KOVREL_OWN_LIBRARY)) {
    if (module_ == nullptr || classes_.empty()) std::abort();
    // Turns the BSTR cache off, which would spoil the tests' counts of memory. The compiler's
    // headers lack the function.
    exported<void(STDAPICALLTYPE*)()>(GetModuleHandleW(L"oleaut32.dll"), "SetOaNoCache")();
}

const OwnLibrary& OwnLibrary::get() {
    static const OwnLibrary library;
    return library;
}

const OwnClass& OwnLibrary::named(const std::wstring& name) const {
    for (const OwnClass& candidate : classes_) {
        if (candidate.name == name) return candidate;
    }
    std::abort();
}

std::wstring OwnLibrary::folder() const {
    const std::wstring path = KOVREL_OWN_LIBRARY;
    return path.substr(0, path.find_last_of(L"\\/") + 1);
}

ComPtr<IDispatch> OwnLibrary::create(const OwnClass& of_class) const {
    return create_from(module_, of_class.id);
}

HRESULT OwnLibrary::can_unload() const {
    return test::can_unload(module_);
}

}  // namespace kovrel::test
