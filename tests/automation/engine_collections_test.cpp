// Collections: the default member, and what "For Each" goes through.
#include <array>
#include <gtest/gtest.h>

#include "automation/object.h"
#include "tests/automation/sample_list.h"
#include "tests/support/late.h"

namespace kovrel::test {
namespace {

class Collections : public testing::Test {
 protected:
    Collections() {
        for (const wchar_t* const text : {L"uno", L"dos", L"tres"}) {
            call(list_.get(), L"Agrega", {Variant(text)});
        }
    }

    ComPtr<IEnumVARIANT> enumeration() {
        const Outcome outcome = invoke_id(DISPID_NEWENUM, {});
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_UNKNOWN);
        return ComPtr<IUnknown>(outcome.value.punkVal).query<IEnumVARIANT>();
    }

    Outcome invoke_id(DISPID id, std::vector<Variant> arguments,
                      WORD flags = DISPATCH_PROPERTYGET | DISPATCH_METHOD) {
        Outcome outcome;
        DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        outcome.result = list_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                       &outcome.value, nullptr, nullptr);
        return outcome;
    }

    ComPtr<IDispatch> list_ = create_instance<SampleList>();
};

TEST_F(Collections, TheDefaultMemberNeedsNoName) {
    EXPECT_EQ(invoke_id(DISPID_VALUE, {Variant(2)}).value.to_text(), L"dos");
    EXPECT_EQ(call(list_.get(), L"Item", {Variant(3)}).value.to_text(), L"tres");
    EXPECT_EQ(invoke_id(DISPID_VALUE, {Variant(4)}).result, DISP_E_EXCEPTION);
}

TEST_F(Collections, TheSystemsNumbersAreThoseThatNamesGive) {
    EXPECT_EQ(id_of(list_.get(), L"Item"), DISPID_VALUE);
    EXPECT_EQ(id_of(list_.get(), L"_NewEnum"), DISPID_NEWENUM);
    EXPECT_EQ(id_of(list_.get(), L"Count"), 1);
}

TEST_F(Collections, AreEnumeratedAsTheyWereAtTheBeginning) {
    const auto values = enumeration();
    call(list_.get(), L"Agrega", {Variant(L"cuatro")});
    std::wstring met;
    for (Variant value; values->Next(1, &value, nullptr) == S_OK; value = Variant()) {
        met += value.to_text() + L' ';
    }
    EXPECT_EQ(met, L"uno dos tres ");
    EXPECT_EQ(get(list_.get(), L"Count").value.to_int32(), 4);
}

TEST_F(Collections, AreEnumeratedForHostsThatAskForAMethod) {
    EXPECT_EQ(invoke_id(DISPID_NEWENUM, {}, DISPATCH_METHOD).value.vt, VT_UNKNOWN);
    EXPECT_EQ(invoke_id(DISPID_NEWENUM, {}, DISPATCH_PROPERTYPUT).result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(Collections, AreEnumeratedSeveralAtOnce) {
    const auto values = enumeration();
    std::array<Variant, 5> met;
    ULONG count = 9;
    EXPECT_EQ(values->Skip(1), S_OK);
    EXPECT_EQ(values->Next(5, met.data(), &count), S_FALSE);
    EXPECT_EQ(count, 2U);
    EXPECT_EQ(met[0].to_text(), L"dos");
    EXPECT_EQ(met[1].to_text(), L"tres");
    EXPECT_TRUE(met[2].is_empty());
    EXPECT_EQ(values->Next(1, met.data(), &count), S_FALSE);
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(values->Reset(), S_OK);
    EXPECT_EQ(values->Skip(3), S_OK);
    EXPECT_EQ(values->Skip(1), S_FALSE);
}

TEST_F(Collections, AClonedEnumerationGoesOnByItself) {
    const auto values = enumeration();
    ASSERT_EQ(values->Skip(1), S_OK);
    ComPtr<IEnumVARIANT> clone;
    ASSERT_EQ(values->Clone(clone.put()), S_OK);
    Variant first;
    Variant second;
    EXPECT_EQ(clone->Next(1, &first, nullptr), S_OK);
    EXPECT_EQ(values->Next(1, &second, nullptr), S_OK);
    EXPECT_EQ(first.to_text(), L"dos");
    EXPECT_EQ(second.to_text(), L"dos");
}

TEST_F(Collections, RefuseMisuse) {
    const auto values = enumeration();
    Variant value;
    EXPECT_EQ(values->Next(2, &value, nullptr), E_POINTER);
    EXPECT_EQ(values->Next(1, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(values->Clone(nullptr), E_POINTER);
    EXPECT_EQ(values->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    ComPtr<IUnknown> none;
    EXPECT_EQ(values->QueryInterface(IID_IDispatch, none.put_void()), E_NOINTERFACE);
}

TEST_F(Collections, AnEnumerationKeepsTheLibraryLoaded) {
    const ULONG before = live_objects();
    auto values = enumeration();
    EXPECT_EQ(live_objects(), before + 1);
    values = {};
    EXPECT_EQ(live_objects(), before);
}

}  // namespace
}  // namespace kovrel::test
