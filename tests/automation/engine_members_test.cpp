// Members of an object: names, kinds of call, failures, and vtable calls.
#include <gtest/gtest.h>

#include "automation/object.h"
#include "tests/automation/sample.h"
#include "tests/support/late.h"

namespace kovrel::test {
namespace {

class Members : public testing::Test {
 protected:
    ComPtr<IDispatch> sample_ = create_instance<Sample>();
};

/// The vtable entry of a member, as a compiled host calls it.
template <class Function>
Function slot(IDispatch* object, std::size_t member) {
    constexpr std::size_t dispatch_entries = 7;
    auto* const* const vtable = *reinterpret_cast<void***>(object);
    return reinterpret_cast<Function>(vtable[dispatch_entries + member]);
}

TEST_F(Members, NamesIgnoreCaseAccentsIncluded) {
    const DISPID id = id_of(sample_.get(), L"Añade");
    EXPECT_NE(id, DISPID_UNKNOWN);
    EXPECT_EQ(id_of(sample_.get(), L"AÑADE"), id);
    EXPECT_EQ(id_of(sample_.get(), L"añade"), id);
    EXPECT_EQ(id_of(sample_.get(), L"anade"), DISPID_UNKNOWN);
    EXPECT_EQ(id_of(sample_.get(), L""), DISPID_UNKNOWN);
    EXPECT_EQ(id_of(sample_.get(), L"NoExiste"), DISPID_UNKNOWN);
}

TEST_F(Members, ParameterNamesHaveIdsToo) {
    wchar_t member[] = L"RESTA";
    wchar_t known[] = L"año";
    wchar_t unknown[] = L"cuarto";
    wchar_t* names[] = {member, known, unknown};
    DISPID ids[3] = {};
    EXPECT_EQ(sample_->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids),
              DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], id_of(sample_.get(), L"Resta"));
    EXPECT_EQ(ids[1], 2);
    EXPECT_EQ(ids[2], DISPID_UNKNOWN);
    EXPECT_EQ(sample_->GetIDsOfNames(IID_IUnknown, names, 1, LOCALE_USER_DEFAULT, ids),
              DISP_E_UNKNOWNINTERFACE);
}

TEST_F(Members, PropertiesAreReadAndWritten) {
    EXPECT_EQ(put(sample_.get(), L"Nombre", Variant(L"Ana")).result, S_OK);
    EXPECT_EQ(text_of_result(get(sample_.get(), L"Nombre")), L"Ana");
    EXPECT_EQ(put(sample_.get(), L"Campo", Variant(L"12")).result, S_OK);
    EXPECT_EQ(get(sample_.get(), L"Campo").value.lVal, 12);
    EXPECT_EQ(put(sample_.get(), L"Campo", Variant(L"doce")).result, DISP_E_TYPEMISMATCH);
}

TEST_F(Members, AnObjectPropertyIsSetByReference) {
    const Variant other(create_instance<Sample>());
    EXPECT_EQ(put(sample_.get(), L"Objeto", other, DISPATCH_PROPERTYPUTREF).result, S_OK);
    EXPECT_EQ(get(sample_.get(), L"Objeto").value.pdispVal, other.pdispVal);
    // Script languages without Set use DISPATCH_PROPERTYPUT.
    EXPECT_EQ(put(sample_.get(), L"Objeto", Variant(sample_), DISPATCH_PROPERTYPUT).result, S_OK);
    EXPECT_EQ(
        put(sample_.get(), L"Objeto", Variant(ComPtr<IDispatch>()), DISPATCH_PROPERTYPUTREF).result,
        S_OK);
    EXPECT_EQ(put(sample_.get(), L"Objeto", Variant(5), DISPATCH_PROPERTYPUTREF).result,
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(put(sample_.get(), L"Nombre", other, DISPATCH_PROPERTYPUTREF).result,
              DISP_E_MEMBERNOTFOUND);
}

TEST_F(Members, TheKindOfCallMustFit) {
    EXPECT_EQ(put(sample_.get(), L"Doble", Variant(1)).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(sample_.get(), L"Doble", DISPATCH_PROPERTYGET, {1}).result,
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(sample_.get(), L"Nombre", DISPATCH_METHOD, {}).result, DISP_E_MEMBERNOTFOUND);
    DISPPARAMS none{};
    for (const DISPID id :
         std::initializer_list<DISPID>{DISPID_VALUE, DISPID_UNKNOWN, 1000, DISPID_NEWENUM}) {
        EXPECT_EQ(sample_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none,
                                  nullptr, nullptr, nullptr),
                  DISP_E_MEMBERNOTFOUND);
    }
    EXPECT_EQ(sample_->Invoke(1, IID_IDispatch, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none,
                              nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(sample_->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, nullptr, nullptr,
                              nullptr, nullptr),
              E_INVALIDARG);
}

TEST_F(Members, ANullResultPointerIsAllowed) {
    Variant argument(L"a");
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    EXPECT_EQ(sample_->Invoke(id_of(sample_.get(), L"Eco"), IID_NULL, LOCALE_USER_DEFAULT,
                              DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
              S_OK);
}

TEST_F(Members, ALateBoundFailureFillsTheExceptionRecord) {
    Variant variable(std::int16_t{1});
    const Outcome outcome = call(sample_.get(), L"Falla", {13, LateArgument::variable(variable)});
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.error, static_cast<HRESULT>(0x800A000D));
    EXPECT_EQ(outcome.description, L"No coinciden los tipos");
    EXPECT_EQ(outcome.source, L"Prueba.Sample");
    EXPECT_EQ(variable.iVal, 99);  // written before the failure, and stays
}

TEST_F(Members, NegativeNumbersAndOtherExceptions) {
    const Outcome negative = call(sample_.get(), L"Falla", {-2147217900, 1});
    EXPECT_EQ(negative.error, -2147217900);
    EXPECT_EQ(negative.description, L"Descripción del anfitrión");
    const Outcome memory = call(sample_.get(), L"SinMemoria");
    EXPECT_EQ(memory.error, static_cast<HRESULT>(0x800A0007));
    EXPECT_EQ(memory.description, L"Memoria insuficiente");
    EXPECT_EQ(call(sample_.get(), L"Otra").error, static_cast<HRESULT>(0x800A0005));
}

TEST_F(Members, AnEarlyBoundFailureSetsTheErrorObject) {
    using Falla = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, LONG, SHORT*);
    const auto support = sample_.query<ISupportErrorInfo>();
    ASSERT_TRUE(support);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(Sample::class_info.interface_id), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IUnknown), S_FALSE);

    constexpr std::size_t falla = 19;  // in interface order, properties counting twice
    SHORT written = 1;
    EXPECT_EQ(slot<Falla>(sample_.get(), falla)(sample_.get(), 13, &written),
              static_cast<HRESULT>(0x800A000D));
    EXPECT_EQ(written, 99);
    ComPtr<IErrorInfo> error;
    ASSERT_EQ(GetErrorInfo(0, error.put()), S_OK);
    Bstr description;
    Bstr source;
    error->GetDescription(description.put());
    error->GetSource(source.put());
    EXPECT_EQ(description.view(), L"No coinciden los tipos");
    EXPECT_EQ(source.view(), L"Prueba.Sample");
}

TEST_F(Members, EarlyBoundCalls) {
    using Put = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*);
    using Get = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*);
    using Doble = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, SHORT*, SHORT*);
    using Eco = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, VARIANT*, VARIANT*);
    using Manana = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, DATE, DATE*);
    Bstr name(L"Ana\0María");
    BSTR raw = name.get();
    EXPECT_EQ(slot<Put>(sample_.get(), 3)(sample_.get(), &raw), S_OK);
    Bstr back;
    EXPECT_EQ(slot<Get>(sample_.get(), 2)(sample_.get(), back.put()), S_OK);
    EXPECT_EQ(back.view(), name.view());

    SHORT value = 4;
    SHORT before = 0;
    EXPECT_EQ(slot<Doble>(sample_.get(), 6)(sample_.get(), &value, &before), S_OK);
    EXPECT_EQ(value, 8);
    EXPECT_EQ(before, 4);

    Variant text(L"eco");
    Variant echo;
    EXPECT_EQ(slot<Eco>(sample_.get(), 9)(sample_.get(), &text, &echo), S_OK);
    EXPECT_EQ(text_of(echo.bstrVal), L"eco");

    DATE tomorrow = 0;
    EXPECT_EQ(slot<Manana>(sample_.get(), 13)(sample_.get(), 36526.25, &tomorrow), S_OK);
    EXPECT_EQ(tomorrow, 36527.25);
}

TEST_F(Members, EarlyBoundNullPointers) {
    using Doble = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, SHORT*, SHORT*);
    SHORT value = 4;
    EXPECT_EQ(slot<Doble>(sample_.get(), 6)(sample_.get(), nullptr, &value), E_POINTER);
    EXPECT_EQ(slot<Doble>(sample_.get(), 6)(sample_.get(), &value, nullptr), E_POINTER);
    // A null text by value is an empty text.
    using Put = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*);
    BSTR none = nullptr;
    EXPECT_EQ(slot<Put>(sample_.get(), 3)(sample_.get(), &none), S_OK);
}

}  // namespace
}  // namespace kovrel::test
