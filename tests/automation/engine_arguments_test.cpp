// Late-bound arguments: positional, named, omitted, coerced, by reference.
#include <algorithm>
#include <gtest/gtest.h>

#include "automation/object.h"
#include "tests/automation/sample.h"
#include "tests/support/late.h"

namespace kovrel::test {
namespace {

class Arguments : public testing::Test {
 protected:
    Outcome late(const wchar_t* member, const std::vector<LateArgument>& arguments,
                 const std::vector<std::wstring>& names = {}) {
        return invoke(sample_.get(), member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments,
                      names);
    }

    template <class Function>
    Function slot(std::wstring_view name) {
        constexpr std::size_t first = 7;  // behind IDispatch
        const auto& members = Sample::class_info.members;
        const auto found =
            std::find_if(members.begin(), members.end(),
                         [&](const MemberInfo& member) { return member.name == name; });
        const auto index = first + static_cast<std::size_t>(found - members.begin());
        return (*reinterpret_cast<Function* const*>(sample_.get()))[index];
    }

    ComPtr<IDispatch> sample_ = create_instance<Sample>();
};

TEST_F(Arguments, PositionalNamedAndOmitted) {
    EXPECT_EQ(text_of_result(late(L"Resta", {3, 2, 1})), L"3-2-1");
    EXPECT_EQ(text_of_result(late(L"Resta", {3, 2})), L"3-2-7");
    EXPECT_EQ(text_of_result(late(L"Resta", {3, 2, LateArgument::missing()})), L"3-2-7");
    EXPECT_EQ(text_of_result(late(L"Resta", {3, 1, 2}, {L"AÑO", L"segundo"})), L"3-2-1");
    EXPECT_EQ(text_of_result(late(L"Resta", {2, 3}, {L"segundo", L"primero"})), L"3-2-7");
}

TEST_F(Arguments, NamedArgumentsThatDoNotFit) {
    EXPECT_EQ(late(L"Resta", {3, 2, 1}, {L"segundo", L"cuarto"}).result, DISP_E_UNKNOWNNAME);
    // The first parameter is given twice: by position and by name.
    const Outcome twice = late(L"Resta", {3, 2}, {L"primero"});
    EXPECT_EQ(twice.result, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(twice.bad_argument, 0U);
    // A required parameter is missing.
    EXPECT_EQ(late(L"Resta", {2}, {L"segundo"}).result, DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(Arguments, WrongCounts) {
    EXPECT_EQ(late(L"Resta", {1, 2, 3, 4}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(late(L"Resta", {1}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(late(L"Doble", {}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(late(L"Otra", {1}).result, DISP_E_BADPARAMCOUNT);
    // DISPID_PROPERTYPUT without an argument.
    EXPECT_EQ(invoke(sample_.get(), L"Nombre", DISPATCH_PROPERTYPUT, {}).result, E_INVALIDARG);
}

TEST_F(Arguments, ARequiredArgumentMarkedMissing) {
    const Outcome outcome = late(L"Resta", {3, LateArgument::missing()});
    EXPECT_EQ(outcome.result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(outcome.bad_argument, 0U);
    // A variant parameter receives the missing marker as its value.
    const Outcome echo = late(L"Eco", {LateArgument::missing()});
    EXPECT_EQ(echo.result, S_OK);
    EXPECT_TRUE(echo.value.is_missing());
}

TEST_F(Arguments, WrongTypesNameTheArgument) {
    const Outcome first = late(L"Resta", {L"tres", 2, 1});
    EXPECT_EQ(first.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(first.bad_argument, 2U);  // counted from the last one
    const Outcome last = late(L"Resta", {3, 2, L"uno"});
    EXPECT_EQ(last.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(last.bad_argument, 0U);
    const Outcome large = late(L"Doble", {70000});
    EXPECT_EQ(large.result, DISP_E_OVERFLOW);
    EXPECT_EQ(large.bad_argument, 0U);
    EXPECT_EQ(late(L"Doble", {Variant::null()}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(late(L"HayObjeto", {5}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(late(L"Octeto", {-1}).result, DISP_E_OVERFLOW);
}

TEST_F(Arguments, CoercionByTheUsersSettings) {
    wchar_t decimal[4] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, decimal, 4);
    const std::wstring text = L"12" + std::wstring(decimal) + L"5";
    EXPECT_EQ(late(L"Mitad", {text}).value.dblVal, 6.25);
    EXPECT_EQ(late(L"Doble", {L"12"}).value.iVal, 12);
    EXPECT_EQ(late(L"Doble", {2.5}).value.iVal, 2);  // to the nearest, halves to even
    EXPECT_EQ(late(L"Doble", {true}).value.iVal, -1);
    EXPECT_EQ(late(L"Doble", {Variant()}).value.iVal, 0);
    EXPECT_EQ(late(L"Mañana", {Date{36526}}).value.date, 36527);
    EXPECT_EQ(late(L"Mañana", {36526}).value.date, 36527);
    EXPECT_EQ(late(L"Simple", {0.5}).value.fltVal, 0.5F);
}

TEST_F(Arguments, DefaultsAndOmittedArguments) {
    // The declared default is true, but an omitted argument counts as false.
    EXPECT_EQ(late(L"Bandera", {}).value.boolVal, VARIANT_FALSE);
    EXPECT_EQ(late(L"Bandera", {LateArgument::missing()}).value.boolVal, VARIANT_FALSE);
    EXPECT_EQ(late(L"Bandera", {true}).value.boolVal, VARIANT_TRUE);
    EXPECT_EQ(text_of_result(late(L"Presencia", {})), L"falta,,0");
    EXPECT_EQ(text_of_result(late(L"Presencia", {Variant(), L"x", 5})), L"está,x,5");
}

TEST_F(Arguments, AScriptsVariableIsConvertedAndWrittenBack) {
    Variant variable(L"21");
    EXPECT_EQ(late(L"Doble", {LateArgument::variable(variable)}).value.iVal, 21);
    ASSERT_EQ(variable.vt, VT_I2);
    EXPECT_EQ(variable.iVal, 42);

    Variant text(L"a");
    late(L"Añade", {LateArgument::variable(text)});
    ASSERT_EQ(text.vt, VT_BSTR);
    EXPECT_EQ(text_of(text.bstrVal), L"a!");
}

TEST_F(Arguments, AnUnchangedVariableKeepsItsType) {
    Variant variable(L"0");
    late(L"Doble", {LateArgument::variable(variable)});
    ASSERT_EQ(variable.vt, VT_BSTR);
    EXPECT_EQ(text_of(variable.bstrVal), L"0");
}

TEST_F(Arguments, TypedVariablesAreWrittenBackInTheirOwnType) {
    std::int16_t same = 4;
    late(L"Doble", {LateArgument::variable(same)});
    EXPECT_EQ(same, 8);
    std::int32_t wider = 4;
    late(L"Doble", {LateArgument::variable(wider)});
    EXPECT_EQ(wider, 8);
    double real = 4;
    late(L"Doble", {LateArgument::variable(real)});
    EXPECT_EQ(real, 8);
    Bstr text(L"4");
    late(L"Doble",
         {LateArgument::variable(*const_cast<BSTR*>(&reinterpret_cast<const BSTR&>(text)))});
    EXPECT_EQ(text.view(), L"8");
    VARIANT_BOOL flag = VARIANT_TRUE;
    late(L"Bandera", {LateArgument::flag(flag)});
    EXPECT_EQ(flag, VARIANT_TRUE);
}

TEST_F(Arguments, NestedReferences) {
    std::int16_t inner = 5;
    VARIANT middle{};
    middle.vt = VT_BYREF | VT_I2;
    middle.piVal = &inner;
    EXPECT_EQ(late(L"Doble", {LateArgument::variable(middle)}).value.iVal, 5);
    EXPECT_EQ(inner, 10);

    Variant deepest(L"x");
    VARIANT second{};
    second.vt = VT_BYREF | VT_VARIANT;
    second.pvarVal = &deepest;
    late(L"Añade", {LateArgument::variable(second)});
    EXPECT_EQ(text_of(deepest.bstrVal), L"x!");
}

TEST_F(Arguments, AReferenceToItselfIsRefused) {
    VARIANT loop{};
    loop.vt = VT_BYREF | VT_VARIANT;
    loop.pvarVal = &loop;
    const Outcome outcome = late(L"Doble", {LateArgument::variable(loop)});
    EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(outcome.bad_argument, 0U);
}

TEST_F(Arguments, ANullReferenceIsRefused) {
    for (const VARTYPE type : {VT_I2, VT_BSTR, VT_VARIANT, VT_DISPATCH, VT_DECIMAL}) {
        VARIANT nothing{};
        nothing.vt = static_cast<VARTYPE>(VT_BYREF | type);
        for (const wchar_t* const member : {L"Doble", L"Añade", L"Eco", L"HayObjeto", L"Une"}) {
            EXPECT_EQ(late(member, {LateArgument::variable(nothing)}).result, DISP_E_TYPEMISMATCH);
        }
        // Early-bound callers can pass the same inside a variant.
        Variant result;
        using Eco = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, VARIANT*, VARIANT*);
        const auto eco = slot<Eco>(L"Eco");
        EXPECT_EQ(eco(sample_.get(), &nothing, &result), static_cast<HRESULT>(0x800A000D));
        VARIANT outer{};
        outer.vt = VT_BYREF | VT_VARIANT;
        outer.pvarVal = &nothing;
        EXPECT_EQ(eco(sample_.get(), &outer, &result), static_cast<HRESULT>(0x800A000D));
    }
}

TEST_F(Arguments, AFailedWriteBackHasNoResult) {
    std::int32_t number = 7;
    const Outcome outcome = late(L"Añade", {LateArgument::variable(number), L"x"});
    EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(outcome.value.vt, VT_EMPTY);
    EXPECT_EQ(number, 7);
}

TEST_F(Arguments, VariantsByReference) {
    Variant variable(7);
    late(L"Cambia", {LateArgument::variable(variable), L"nuevo"});
    ASSERT_EQ(variable.vt, VT_BSTR);
    EXPECT_EQ(text_of(variable.bstrVal), L"nuevo");

    std::int32_t typed = 7;
    late(L"Cambia", {LateArgument::variable(typed), L"12"});
    EXPECT_EQ(typed, 12);
    const Outcome outcome = late(L"Cambia", {LateArgument::variable(typed), L"doce"});
    EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(outcome.bad_argument, 1U);
    EXPECT_EQ(typed, 12);
}

TEST_F(Arguments, ARecordIsTakenFromAnArrayOfTexts) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    for (LONG index = 0; index < 2; ++index) {
        Variant text(index == 0 ? L"a" : L"b");
        SafeArrayPutElement(array, &index, &text);
    }
    Variant names;
    names.vt = VT_ARRAY | VT_VARIANT;
    names.parray = array;
    EXPECT_EQ(text_of_result(late(L"Une", {names})), L"a|b|");
    EXPECT_EQ(text_of_result(late(L"Une", {LateArgument::variable(names)})), L"a|b|");

    Variant texts;
    texts.vt = VT_ARRAY | VT_BSTR;
    texts.parray = SafeArrayCreateVector(VT_BSTR, 1, 3);
    for (LONG index = 1; index <= 3; ++index) {
        SafeArrayPutElement(texts.parray, &index, Bstr(std::to_wstring(index)).get());
    }
    EXPECT_EQ(text_of_result(late(L"Une", {texts})), L"1|2|3");
}

TEST_F(Arguments, OtherArraysAreRefusedAsRecords) {
    Variant four;
    four.vt = VT_ARRAY | VT_BSTR;
    four.parray = SafeArrayCreateVector(VT_BSTR, 0, 4);
    EXPECT_EQ(late(L"Une", {four}).result, DISP_E_BADINDEX);
    Variant numbers;
    numbers.vt = VT_ARRAY | VT_I4;
    numbers.parray = SafeArrayCreateVector(VT_I4, 0, 2);
    EXPECT_EQ(late(L"Une", {numbers}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(late(L"Une", {L"a"}).result, DISP_E_TYPEMISMATCH);
    Variant nothing;
    nothing.vt = VT_ARRAY | VT_BSTR;
    nothing.parray = nullptr;
    EXPECT_EQ(late(L"Une", {nothing}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(late(L"Une", {Variant(sample_)}).result, DISP_E_TYPEMISMATCH);
}

}  // namespace
}  // namespace kovrel::test
