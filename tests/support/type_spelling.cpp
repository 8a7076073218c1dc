#include "tests/support/type_spelling.h"

#include <map>
#include <ocidl.h>

#include "automation/variant.h"
#include "tests/support/early.h"

namespace kovrel::test {

bool is_dual(ITypeInfo* info) {
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    const bool result = (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0;
    info->ReleaseTypeAttr(attributes);
    return result;
}

std::wstring spelled(ITypeInfo* info, const TYPEDESC& type) {
    static const std::map<VARTYPE, std::wstring> names{
        {VT_UI1, L"BYTE"},          {VT_I2, L"short"},
        {VT_I4, L"long"},           {VT_R4, L"float"},
        {VT_R8, L"double"},         {VT_DATE, L"DATE"},
        {VT_BOOL, L"VARIANT_BOOL"}, {VT_BSTR, L"BSTR"},
        {VT_VARIANT, L"VARIANT"},   {VT_DISPATCH, L"IDispatch*"},
        {VT_UNKNOWN, L"IUnknown*"}, {VT_VOID, L"void"},
        {VT_HRESULT, L"HRESULT"},
    };
    if (type.vt == VT_PTR) return spelled(info, *type.lptdesc) + L'*';
    if (type.vt != VT_USERDEFINED) return names.at(type.vt);
    ComPtr<ITypeInfo> target;
    info->GetRefTypeInfo(type.hreftype, target.put());
    TYPEATTR* attributes = nullptr;
    target->GetTypeAttr(&attributes);
    // The platform's library of basic types calls this interface Picture.
    const bool picture = attributes->guid == IID_IPictureDisp;
    target->ReleaseTypeAttr(attributes);
    return picture ? L"IPictureDisp" : name_of(target.get());
}

std::wstring spelled(const VARIANT& value) {
    if (value.vt == VT_BSTR) return L'"' + std::wstring(text_of(value.bstrVal)) + L'"';
    // A whole number of days, of either type.
    if (value.vt == VT_DATE) return std::to_wstring(static_cast<long>(value.date));
    if (value.vt != VT_BOOL) return Variant(value).to_text();
    return value.boolVal != VARIANT_FALSE ? L"VARIANT_TRUE" : L"VARIANT_FALSE";
}

}  // namespace kovrel::test
