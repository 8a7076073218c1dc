#include "tests/automation/dispatch_comparison.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <map>

namespace kovrel::test {
namespace {

// Set before the call, to see whether the call writes there.
constexpr UINT untouched = 77;
constexpr std::int32_t unwritten = 1234567;

std::string code_name(HRESULT code) {
    static const std::map<HRESULT, std::string> names{
        {S_OK, "S_OK"},
        {E_INVALIDARG, "E_INVALIDARG"},
        {DISP_E_MEMBERNOTFOUND, "DISP_E_MEMBERNOTFOUND"},
        {DISP_E_PARAMNOTFOUND, "DISP_E_PARAMNOTFOUND"},
        {DISP_E_TYPEMISMATCH, "DISP_E_TYPEMISMATCH"},
        {DISP_E_UNKNOWNINTERFACE, "DISP_E_UNKNOWNINTERFACE"},
        {DISP_E_EXCEPTION, "DISP_E_EXCEPTION"},
        {DISP_E_OVERFLOW, "DISP_E_OVERFLOW"},
        {DISP_E_BADPARAMCOUNT, "DISP_E_BADPARAMCOUNT"},
        {DISP_E_PARAMNOTOPTIONAL, "DISP_E_PARAMNOTOPTIONAL"},
        {DISP_E_BADVARTYPE, "DISP_E_BADVARTYPE"},
        {DISP_E_NONAMEDARGS, "DISP_E_NONAMEDARGS"},
        {DISP_E_BADINDEX, "DISP_E_BADINDEX"},
        {E_POINTER, "E_POINTER"},
    };
    const auto found = names.find(code);
    if (found != names.end()) return found->second;
    char text[16];
    std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(code));
    return text;
}

VARIANTARG passed(ShapedArgument& argument) {
    VARIANTARG result{};
    switch (argument.passed) {
        case ShapedArgument::Passed::value:
            return argument.held;
        case ShapedArgument::Passed::typed_variable:
            result.vt = static_cast<VARTYPE>(VT_BYREF | argument.held.vt);
            result.byref = &argument.held.llVal;
            break;
        case ShapedArgument::Passed::variant_variable:
            result.vt = VT_BYREF | VT_VARIANT;
            result.pvarVal = &argument.held;
            break;
        case ShapedArgument::Passed::nothing:
            result.vt = static_cast<VARTYPE>(VT_BYREF | argument.held.vt);
            break;
    }
    return result;
}

/// The exception record as text.
std::string exception_text(EXCEPINFO& exception) {
    std::string text = code_name(exception.scode);
    text += " " + narrow(std::wstring(text_of(exception.bstrSource)));
    text += " " + narrow(std::wstring(text_of(exception.bstrDescription)));
    return text;
}

/// The platform may leave the result untouched where the member has none.
std::string shown_result(const Variant& result) {
    const bool written = result.vt != VT_I4 || result.lVal != unwritten;
    return "result " + shown(written ? result : Variant());
}

/// Where Windows and Wine differ: a failed call has an empty result, and puArgErr is set only for
/// an argument's own error.
void check_what_is_ours_to_say(const CallShape& shape, HRESULT code, const Variant& result,
                               UINT bad_argument) {
    if (shape.takes_result && FAILED(code)) {
        EXPECT_EQ(shown(result), shown(Variant())) << shape.name;
    }
    const bool over_an_argument =
        code == DISP_E_TYPEMISMATCH || code == DISP_E_OVERFLOW || code == DISP_E_PARAMNOTFOUND;
    if (over_an_argument && shape.takes_bad_argument) {
        EXPECT_LT(bad_argument, shape.arguments.size()) << shape.name;
    } else if (code != DISP_E_PARAMNOTOPTIONAL) {
        EXPECT_EQ(bad_argument, untouched) << shape.name;
    }
}

}  // namespace

std::string answer_to(const CallShape& shape, Dispatch dispatch) {
    const auto object = create((std::wstring(L"Kovrel.") + shape.class_name).c_str());
    ComPtr<ITypeInfo> info;
    object->GetTypeInfo(0, LOCALE_NEUTRAL, info.put());
    const DISPID id = id_of(object.get(), shape.member);

    std::vector<ShapedArgument> arguments = shape.arguments;
    std::vector<VARIANTARG> raw;
    raw.reserve(arguments.size());
    std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(raw), passed);
    std::vector<DISPID> named(shape.named.rbegin(), shape.named.rend());
    DISPPARAMS parameters{raw.data(), named.data(), static_cast<UINT>(raw.size()),
                          static_cast<UINT>(named.size())};
    if (shape.change != nullptr) shape.change(parameters);
    DISPPARAMS* const handed = shape.without_parameters ? nullptr : &parameters;
    Variant result(unwritten);
    VARIANT* const wanted = shape.takes_result ? &result : nullptr;
    EXCEPINFO exception{};
    EXCEPINFO* const filled = shape.takes_exception ? &exception : nullptr;
    UINT bad_argument = untouched;
    UINT* const told = shape.takes_bad_argument ? &bad_argument : nullptr;

    const HRESULT code =
        dispatch == Dispatch::own
            ? object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, shape.flags, handed, wanted, filled,
                             told)
            : info->Invoke(object.get(), id, shape.flags, handed, wanted, filled, told);

    std::string text = code_name(code);
    if (dispatch == Dispatch::own) check_what_is_ours_to_say(shape, code, result, bad_argument);
    if (wanted != nullptr && SUCCEEDED(code)) text += "; " + shown_result(result);
    if (code == DISP_E_EXCEPTION) text += "; " + exception_text(exception);
    for (const ShapedArgument& argument : arguments) {
        if (argument.passed == ShapedArgument::Passed::typed_variable ||
            argument.passed == ShapedArgument::Passed::variant_variable) {
            text += "; variable " + shown(argument.held);
        }
    }
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return text;
}

}  // namespace kovrel::test
