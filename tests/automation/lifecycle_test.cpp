// Creation and release, the host's name and the catalogue that can be replaced.
#include <gtest/gtest.h>

#include "tests/support/every_way.h"
#include "tests/support/library_module.h"

namespace kovrel::test {
namespace {

constexpr const wchar_t* prog_ids[] = {
    L"Kovrel.clsFGen",    L"Kovrel.clsFFechas", L"Kovrel.clsCSQL",          L"Kovrel.clsMensajes",
    L"Kovrel.cgsFileOpR", L"Kovrel.clsProfile", L"Kovrel.clsADODBServices", L"Kovrel.clsFZip"};

HRESULT can_unload() {
    const HMODULE module = GetModuleHandleW(L"kovrel.dll");
    return module == nullptr ? E_UNEXPECTED : test::can_unload(module);
}

TEST(Lifecycle, EveryClassIsCreatedByItsProgId) {
    for (const wchar_t* const prog_id : prog_ids) EXPECT_TRUE(create(prog_id));
}

TEST(Lifecycle, AReleasedInstanceLeavesNoReference) {
    for (const wchar_t* const prog_id : prog_ids) {
        auto instance = create(prog_id);
        ASSERT_TRUE(instance);
        EXPECT_EQ(can_unload(), S_FALSE);
        instance = nullptr;
        EXPECT_EQ(can_unload(), S_OK);
    }
}

TEST(Lifecycle, NoAggregationAndNoUnknownInterface) {
    CLSID class_id{};
    ASSERT_EQ(CLSIDFromProgID(L"Kovrel.clsFGen", &class_id), S_OK);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(CoGetClassObject(class_id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                               factory.put_void()),
              S_OK);
    const auto outer = create(L"Kovrel.clsFZip");
    ComPtr<IUnknown> result;
    EXPECT_EQ(factory->CreateInstance(outer.get(), IID_IUnknown, result.put_void()),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPersist, result.put_void()), E_NOINTERFACE);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
}

TEST(HostName, StartsEmptyAndBelongsToTheInstance) {
    for (const wchar_t* const prog_id : prog_ids) {
        if (prog_id == std::wstring(L"Kovrel.cgsFileOpR")) continue;
        const auto first = create(prog_id);
        const auto second = create(prog_id);
        EXPECT_EQ(text_of_result(get(first.get(), L"AppOrigen")), L"");
        EXPECT_EQ(put(first.get(), L"AppOrigen", Variant(L"Gestión Ñ")).result, S_OK);
        EXPECT_EQ(text_of_result(get(first.get(), L"AppOrigen")), L"Gestión Ñ");
        EXPECT_EQ(text_of_result(get(second.get(), L"AppOrigen")), L"");
    }
}

TEST(HostName, IsForwardedToTheCatalogueAndNotBack) {
    const auto general = create(L"Kovrel.clsFGen");
    const auto catalogue = get(general.get(), L"Mensajes").value.to_object();
    put(general.get(), L"AppOrigen", Variant(L"Facturas"));
    EXPECT_EQ(text_of_result(get(catalogue.get(), L"AppOrigen")), L"Facturas");
    put(catalogue.get(), L"AppOrigen", Variant(L"Otra"));
    EXPECT_EQ(text_of_result(get(general.get(), L"AppOrigen")), L"Facturas");
}

using PutText = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*);
using GetText = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*);
using PutObject = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, IDispatch*);
using GetObject = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, IDispatch**);

HRESULT put_name_early(IDispatch* instance, const wchar_t* name) {
    const Bstr text(name);
    BSTR raw = text.get();
    return early<PutText>(instance, L"AppOrigen", INVOKE_PROPERTYPUT)(instance, &raw);
}

std::wstring name_early(IDispatch* instance) {
    Bstr name;
    EXPECT_EQ(early<GetText>(instance, L"AppOrigen", INVOKE_PROPERTYGET)(instance, name.put()),
              S_OK);
    return std::wstring(name.view());
}

HRESULT put_catalogue_early(IDispatch* general, IDispatch* catalogue) {
    return early<PutObject>(general, L"Mensajes", INVOKE_PROPERTYPUTREF)(general, catalogue);
}

ComPtr<IDispatch> catalogue_early(IDispatch* general) {
    ComPtr<IDispatch> catalogue;
    EXPECT_EQ(early<GetObject>(general, L"Mensajes", INVOKE_PROPERTYGET)(general, catalogue.put()),
              S_OK);
    return catalogue;
}

TEST(HostName, EarlyBound) {
    for (const wchar_t* const prog_id : prog_ids) {
        if (prog_id == std::wstring(L"Kovrel.cgsFileOpR")) continue;
        const auto instance = create(prog_id);
        EXPECT_EQ(name_early(instance.get()), L"");
        EXPECT_EQ(put_name_early(instance.get(), L"Facturación Ñ"), S_OK);
        EXPECT_EQ(name_early(instance.get()), L"Facturación Ñ");
        EXPECT_EQ(text_of_result(get(instance.get(), L"AppOrigen")), L"Facturación Ñ");
        EXPECT_EQ(put_name_early(instance.get(), L""), S_OK);
        EXPECT_EQ(name_early(instance.get()), L"");
    }
}

/// How an instance without a name of its own tells the user that a field is empty.
void expect_message_of(IDispatch* general, const wchar_t* title) {
    for (const Way way : every_way) {
        const Answer answer =
            call_in(way, general, L"Verifica_CC", {Variant(L""), Variant(true), Variant(true)},
                    {{L"El dato  no puede quedar vacío.", 48, title}});
        EXPECT_EQ(answer.result, S_OK);
        EXPECT_EQ(answer.value.vt, VT_BOOL);
        EXPECT_EQ(answer.value.boolVal, VARIANT_FALSE);
    }
}

TEST(Catalogue, IsReplacedByObjectAssignment) {
    const auto general = create(L"Kovrel.clsFGen");
    const Variant other(create(L"Kovrel.clsMensajes"));
    put(other.pdispVal, L"AppOrigen", Variant(L"Otra"));
    expect_message_of(general.get(), L"");
    EXPECT_EQ(put(general.get(), L"Mensajes", other, DISPATCH_PROPERTYPUTREF).result, S_OK);
    EXPECT_EQ(get(general.get(), L"Mensajes").value.pdispVal, other.pdispVal);
    // The new catalogue keeps its name, which titles the messages.
    EXPECT_EQ(text_of_result(get(other.pdispVal, L"AppOrigen")), L"Otra");
    EXPECT_EQ(text_of_result(get(general.get(), L"AppOrigen")), L"");
    expect_message_of(general.get(), L"Otra");
    put(general.get(), L"AppOrigen", Variant(L"Facturas"));
    EXPECT_EQ(text_of_result(get(other.pdispVal, L"AppOrigen")), L"Facturas");
    // An object of another class is refused.
    const Variant wrong(create(L"Kovrel.clsFZip"));
    EXPECT_EQ(put(general.get(), L"Mensajes", wrong, DISPATCH_PROPERTYPUTREF).result,
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(get(general.get(), L"Mensajes").value.pdispVal, other.pdispVal);
}

TEST(Catalogue, IsReplacedEarlyBound) {
    const auto general = create(L"Kovrel.clsFGen");
    const auto own = catalogue_early(general.get());
    ASSERT_TRUE(own);
    EXPECT_EQ(name_early(own.get()), L"");
    const auto other = create(L"Kovrel.clsMensajes");
    put_name_early(other.get(), L"Otra");
    EXPECT_EQ(put_catalogue_early(general.get(), other.get()), S_OK);
    EXPECT_EQ(catalogue_early(general.get()).get(), other.get());
    expect_message_of(general.get(), L"Otra");
    // The replaced catalogue stays alive while referenced, but is no longer given the name.
    put_name_early(general.get(), L"Facturas");
    EXPECT_EQ(name_early(own.get()), L"");
    EXPECT_EQ(name_early(other.get()), L"Facturas");
    EXPECT_EQ(put_catalogue_early(general.get(), nullptr), S_OK);
    EXPECT_FALSE(catalogue_early(general.get()));
}

TEST(Catalogue, WithoutOneTheNameCannotBeForwarded) {
    constexpr auto not_set = static_cast<HRESULT>(0x800A005B);
    const std::string description = "Variable de objeto o bloque With no establecido";
    const auto general = create(L"Kovrel.clsFGen");
    EXPECT_EQ(put(general.get(), L"Mensajes", Variant(ComPtr<IDispatch>()), DISPATCH_PROPERTYPUTREF)
                  .result,
              S_OK);
    const Outcome late = put(general.get(), L"AppOrigen", Variant(L"tardía"));
    EXPECT_EQ(late.result, DISP_E_EXCEPTION);
    EXPECT_EQ(late.error, not_set);
    EXPECT_EQ(narrow(late.description), description);
    EXPECT_EQ(narrow(late.source), "Kovrel.clsFGen");
    // The name is stored before it is forwarded.
    EXPECT_EQ(text_of_result(get(general.get(), L"AppOrigen")), L"tardía");

    SetErrorInfo(0, nullptr);
    EXPECT_EQ(put_name_early(general.get(), L"temprana"), not_set);
    ComPtr<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.put()), S_OK);
    Bstr text;
    info->GetDescription(text.put());
    EXPECT_EQ(narrow(std::wstring(text.view())), description);
    Bstr source;
    info->GetSource(source.put());
    EXPECT_EQ(narrow(std::wstring(source.view())), "Kovrel.clsFGen");
    EXPECT_EQ(name_early(general.get()), L"temprana");
}

TEST(Fields, OfTheFileDialogClass) {
    const auto files = create(L"Kovrel.cgsFileOpR");
    EXPECT_EQ(put(files.get(), L"Flags", Variant(0x200)).result, S_OK);
    EXPECT_EQ(get(files.get(), L"Flags").value.lVal, 0x200);
    EXPECT_EQ(put(files.get(), L"CancelError", Variant(true)).result, S_OK);
    EXPECT_EQ(get(files.get(), L"CancelError").value.boolVal, VARIANT_TRUE);
    EXPECT_EQ(text_of_result(get(files.get(), L"DialogTitle")), L"");
    EXPECT_EQ(put(files.get(), L"hWnd", Variant(L"12")).result, S_OK);
    EXPECT_EQ(get(files.get(), L"hWnd").value.lVal, 12);
    EXPECT_EQ(get(files.get(), L"Filter").result, DISP_E_MEMBERNOTFOUND);
}

}  // namespace
}  // namespace kovrel::test
