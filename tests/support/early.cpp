#include "tests/support/early.h"

namespace kovrel::test {

ComPtr<ITypeInfo> vtable_side_of(const ComPtr<ITypeInfo>& info) {
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    const bool dispatch_side = attributes->typekind == TKIND_DISPATCH;
    info->ReleaseTypeAttr(attributes);
    if (!dispatch_side) return info;
    // The other side of a dual interface is its reference -1.
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> vtable_side;
    if (FAILED(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) ||
        FAILED(info->GetRefTypeInfo(reference, vtable_side.put()))) {
        return info;
    }
    return vtable_side;
}

ComPtr<ITypeInfo> interface_of(IDispatch* object) {
    ComPtr<ITypeInfo> info;
    if (FAILED(object->GetTypeInfo(0, LOCALE_NEUTRAL, info.put()))) return info;
    return vtable_side_of(info);
}

std::wstring name_of(ITypeInfo* info, MEMBERID member) {
    Bstr name;
    info->GetDocumentation(member, name.put(), nullptr, nullptr, nullptr);
    return std::wstring(name.view());
}

std::ptrdiff_t vtable_offset(IDispatch* object, const std::wstring& member, INVOKEKIND kind) {
    const auto info = interface_of(object);
    if (!info) return -1;
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    const UINT count = attributes->cFuncs;
    info->ReleaseTypeAttr(attributes);
    std::ptrdiff_t offset = -1;
    for (UINT index = 0; index < count && offset < 0; ++index) {
        FUNCDESC* function = nullptr;
        info->GetFuncDesc(index, &function);
        Bstr name;
        UINT names = 0;
        info->GetNames(function->memid, name.put(), 1, &names);
        if (function->invkind == kind && name.view() == member) offset = function->oVft;
        info->ReleaseFuncDesc(function);
    }
    return offset;
}

}  // namespace kovrel::test
