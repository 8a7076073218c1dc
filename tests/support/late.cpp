#include "tests/support/late.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace kovrel::test {
namespace {

LateArgument reference(VARTYPE type, void* target) {
    LateArgument result{Variant()};
    result.vt = VT_BYREF | type;
    result.byref = target;
    return result;
}

}  // namespace

ComPtr<IDispatch> create(const wchar_t* prog_id) {
    CLSID class_id{};
    ComPtr<IDispatch> instance;
    if (FAILED(CLSIDFromProgID(prog_id, &class_id))) return instance;
    CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, instance.put_void());
    return instance;
}

LateArgument LateArgument::variable(VARIANT& target) {
    return reference(VT_VARIANT, &target);
}
LateArgument LateArgument::variable(std::int16_t& target) {
    return reference(VT_I2, &target);
}
LateArgument LateArgument::variable(std::int32_t& target) {
    return reference(VT_I4, &target);
}
LateArgument LateArgument::variable(double& target) {
    return reference(VT_R8, &target);
}
LateArgument LateArgument::flag(VARIANT_BOOL& target) {
    return reference(VT_BOOL, &target);
}
LateArgument LateArgument::variable(BSTR& target) {
    return reference(VT_BSTR, &target);
}

DISPID id_of(IDispatch* object, const std::wstring& member) {
    DISPID id = DISPID_UNKNOWN;
    auto* name = const_cast<wchar_t*>(member.c_str());
    object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

Outcome invoke(IDispatch* object, const std::wstring& member, WORD flags,
               const std::vector<LateArgument>& arguments,
               const std::vector<std::wstring>& names_of_last) {
    std::vector<wchar_t*> names{const_cast<wchar_t*>(member.c_str())};
    for (const std::wstring& name : names_of_last)
        names.push_back(const_cast<wchar_t*>(name.c_str()));
    std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
    Outcome outcome;
    outcome.result = object->GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()),
                                           LOCALE_USER_DEFAULT, ids.data());
    if (FAILED(outcome.result)) return outcome;

    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    std::vector<DISPID> named(ids.rbegin(), ids.rend() - 1);
    if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
        named.assign(1, DISPID_PROPERTYPUT);
    }
    DISPPARAMS parameters{reversed.data(), named.data(), static_cast<UINT>(reversed.size()),
                          static_cast<UINT>(named.size())};
    EXCEPINFO exception{};
    outcome.result = made([&] {
        return object->Invoke(ids.front(), IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                              &outcome.value, &exception, &outcome.bad_argument);
    });
    outcome.error = exception.scode;
    outcome.source = text_of(exception.bstrSource);
    outcome.description = text_of(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return outcome;
}

Outcome put(IDispatch* object, const std::wstring& member, const Variant& value, WORD flags) {
    return invoke(object, member, flags, {LateArgument(value)});
}

std::wstring text_of_result(const Outcome& outcome) {
    EXPECT_EQ(outcome.result, S_OK);
    EXPECT_EQ(outcome.value.vt, VT_BSTR);
    return outcome.value.vt == VT_BSTR ? std::wstring(text_of(outcome.value.bstrVal))
                                       : std::wstring();
}

}  // namespace kovrel::test
