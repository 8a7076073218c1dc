// Output parameters of type variant: the host's variable receives the value, whatever its type and
// however it is passed, early-bound and late-bound.
#include <gtest/gtest.h>

#include "tests/support/box_watcher.h"
#include "tests/support/early.h"
#include "tests/support/resources.h"

namespace kovrel::test {
namespace {

enum class Binding { early, late };

/// A typed variable, as compiled hosts have them, and a variant that refers to it.
struct TypedVariable {
    explicit TypedVariable(VARTYPE its_type) : type(its_type) {
        held.decVal = {};  // zero in every type
        held.vt = VT_EMPTY;
    }
    ~TypedVariable() { held.vt = type; }

    [[nodiscard]] VARIANT reference() {
        VARIANT result{};
        result.vt = static_cast<VARTYPE>(VT_BYREF | type);
        result.byref = type == VT_DECIMAL ? static_cast<void*>(&held) : &held.llVal;
        return result;
    }
    [[nodiscard]] std::wstring text() const {
        VARIANT typed = held;
        typed.vt = type;
        Variant result;
        EXPECT_EQ(VariantChangeTypeEx(&result, &typed, LOCALE_USER_DEFAULT, 0, VT_BSTR), S_OK);
        return std::wstring(text_of(result.bstrVal));
    }

    VARTYPE type;
    Variant held;
};

class WrittenVariants : public testing::TestWithParam<Binding> {
 protected:
    /// Calls SplitPath with these output variants.
    HRESULT split(const std::wstring& path, VARIANT name, VARIANT extension) {
        using SplitPath = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR, BSTR*, VARIANT*, VARIANT*);
        const Bstr whole(path);
        Bstr folder;
        if (GetParam() == Binding::early) {
            const auto member = early<SplitPath>(files_.get(), L"SplitPath");
            return member(files_.get(), whole.get(), folder.put(), &name, &extension);
        }
        VARIANT arguments[4] = {extension, name, {}, {}};
        arguments[2].vt = VT_BYREF | VT_BSTR;
        arguments[2].pbstrVal = folder.put();
        arguments[3].vt = VT_BSTR;
        arguments[3].bstrVal = whole.get();
        DISPPARAMS parameters{arguments, nullptr, 4, 0};
        EXCEPINFO exception{};
        const HRESULT result =
            files_->Invoke(id_of(files_.get(), L"SplitPath"), IID_NULL, LOCALE_USER_DEFAULT,
                           DISPATCH_METHOD, &parameters, nullptr, &exception, nullptr);
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        return result == DISP_E_EXCEPTION ? exception.scode : result;
    }

    [[nodiscard]] static HRESULT mismatch() {
        return GetParam() == Binding::early ? static_cast<HRESULT>(0x800A000D)
                                            : DISP_E_TYPEMISMATCH;
    }

    ComPtr<IDispatch> files_ = create(L"Kovrel.cgsFileOpR");
};

TEST_P(WrittenVariants, ATextVariableReceivesTheText) {
    Bstr name(L"antes");
    Bstr extension(L"antes");
    VARIANT references[2]{};
    for (VARIANT& reference : references) reference.vt = VT_BYREF | VT_BSTR;
    references[0].pbstrVal = const_cast<BSTR*>(&reinterpret_cast<const BSTR&>(name));
    references[1].pbstrVal = const_cast<BSTR*>(&reinterpret_cast<const BSTR&>(extension));
    EXPECT_EQ(split(L"C:\\Año\\carta.txt", references[0], references[1]), S_OK);
    EXPECT_EQ(name.view(), L"carta.txt");
    EXPECT_EQ(extension.view(), L"txt");
}

TEST_P(WrittenVariants, AVariantVariableReceivesTheText) {
    Variant name(5);
    Variant extension;
    VARIANT references[2]{};
    for (VARIANT& reference : references) reference.vt = VT_BYREF | VT_VARIANT;
    references[0].pvarVal = &name;
    references[1].pvarVal = &extension;
    EXPECT_EQ(split(L"C:\\Año\\carta.txt", references[0], references[1]), S_OK);
    EXPECT_EQ(name.to_text(), L"carta.txt");
    EXPECT_EQ(extension.to_text(), L"txt");

    // A reference to a text variable through two more references.
    TypedVariable inner(VT_BSTR);
    VARIANT typed = inner.reference();
    VARIANT middle{};
    middle.vt = VT_BYREF | VT_VARIANT;
    middle.pvarVal = &typed;
    references[0].pvarVal = &middle;
    EXPECT_EQ(split(L"C:\\Año\\carta.txt", references[0], Variant::missing()), S_OK);
    EXPECT_EQ(inner.text(), L"carta.txt");
    EXPECT_EQ(typed.vt, VT_BYREF | VT_BSTR);
    EXPECT_EQ(middle.vt, VT_BYREF | VT_VARIANT);
}

TEST_P(WrittenVariants, TheTextIsConvertedToTheTypeOfTheVariable) {
    for (const VARTYPE type : {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_INT, VT_UINT, VT_I8,
                               VT_UI8, VT_R4, VT_R8, VT_CY, VT_DECIMAL, VT_BSTR}) {
        SCOPED_TRACE(type);
        TypedVariable variable(static_cast<VARTYPE>(type));
        EXPECT_EQ(split(L"C:\\a\\12", variable.reference(), Variant::missing()), S_OK);
        EXPECT_EQ(variable.text(), L"12");
    }
    TypedVariable day(VT_DATE);
    EXPECT_EQ(split(L"15-03-2024", day.reference(), Variant::missing()), S_OK);
    EXPECT_EQ(day.held.date, 45366);
    TypedVariable flag(VT_BOOL);
    EXPECT_EQ(split(L"12", flag.reference(), Variant::missing()), S_OK);
    EXPECT_EQ(flag.held.boolVal, VARIANT_TRUE);
}

TEST_P(WrittenVariants, AVariableThatCannotHoldTheTextIsUnchangedAndTheCallFails) {
    for (const VARTYPE type :
         {VT_I4, VT_R8, VT_DATE, VT_BOOL, VT_DECIMAL, VT_ERROR, VT_DISPATCH, VT_UNKNOWN}) {
        SCOPED_TRACE(type);
        TypedVariable variable(static_cast<VARTYPE>(type));
        const Variant before = variable.held;
        EXPECT_EQ(split(L"C:\\a\\carta.txt", variable.reference(), Variant::missing()), mismatch());
        EXPECT_EQ(variable.held.llVal, before.llVal);
    }
    Variant texts;
    texts.vt = VT_ARRAY | VT_BSTR;
    texts.parray = SafeArrayCreateVector(VT_BSTR, 0, 1);
    SAFEARRAY* const array = texts.parray;
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_ARRAY | VT_BSTR;
    reference.pparray = &texts.parray;
    EXPECT_EQ(split(L"C:\\a\\carta.txt", reference, Variant::missing()), mismatch());
    EXPECT_EQ(texts.parray, array);
}

TEST_P(WrittenVariants, ANumberTooLargeForTheVariableLeavesItUnchanged) {
    TypedVariable variable(VT_UI1);
    variable.held.bVal = 7;
    TypedVariable extension(VT_BSTR);
    EXPECT_EQ(split(L"C:\\a\\300", variable.reference(), extension.reference()), S_OK);
    EXPECT_EQ(variable.held.bVal, 7);
    EXPECT_EQ(extension.text(), L"*");
}

TEST_P(WrittenVariants, NoTextIsLeaked) {
    constexpr int calls = 200;
    constexpr SIZE_T length = 4096;
    const std::wstring path = L"C:\\" + std::wstring(length, L'n');
    TypedVariable name(VT_BSTR);
    Variant whole;
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &whole;
    split(path, name.reference(), reference);
    const SIZE_T before = Resources::bytes_in_use();
    for (int count = 0; count < calls; ++count) {
        split(path, name.reference(), Variant::missing());
        split(path, reference, Variant::missing());
        split(path, Variant::missing(), name.reference());
    }
    // A leak of one text a call would be far more.
    EXPECT_LE(Resources::bytes_in_use(), before + calls * length / 10);
}

INSTANTIATE_TEST_SUITE_P(EveryBinding, WrittenVariants,
                         testing::Values(Binding::early, Binding::late), [](const auto& info) {
                             return info.param == Binding::early ? "early" : "late";
                         });

// The four digits do not fit into a Byte; the result is returned all the same.
TEST(NarrowVariables, AreUnchangedAndTheCallSucceeds) {
    const auto dates = create(L"Kovrel.clsFFechas");
    TypedVariable year(VT_UI1);
    year.held.bVal = 26;
    VARIANT argument = year.reference();
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    Variant result;
    EXPECT_EQ(dates->Invoke(id_of(dates.get(), L"ConvierteAñoA4"), IID_NULL, LOCALE_USER_DEFAULT,
                            DISPATCH_METHOD, &parameters, &result, nullptr, nullptr),
              S_OK);
    ASSERT_EQ(result.vt, VT_BSTR);
    EXPECT_EQ(text_of(result.bstrVal), L"2026");
    EXPECT_EQ(year.held.bVal, 26);

    // The same with the current year; the month fits.
    TypedVariable month(VT_UI1);
    year.held.bVal = 0;
    VARIANT arguments[2] = {year.reference(), month.reference()};
    DISPPARAMS both{arguments, nullptr, 2, 0};
    EXPECT_EQ(dates->Invoke(id_of(dates.get(), L"PrimerDiaMesActual"), IID_NULL,
                            LOCALE_USER_DEFAULT, DISPATCH_METHOD, &both, &result, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(result.vt, VT_DATE);
    EXPECT_EQ(year.held.bVal, 0);
    EXPECT_GT(month.held.bVal, 0);
}

}  // namespace
}  // namespace kovrel::test
