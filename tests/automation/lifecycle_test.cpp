// Creation and release, the host's name and the catalogue that can be replaced.
#include <gtest/gtest.h>

#include "tests/automation/early.h"

namespace kovrel::test {
namespace {

constexpr const wchar_t* prog_ids[] = {
    L"Kovrel.clsFGen",    L"Kovrel.clsFFechas", L"Kovrel.clsCSQL",          L"Kovrel.clsMensajes",
    L"Kovrel.cgsFileOpR", L"Kovrel.clsProfile", L"Kovrel.clsADODBServices", L"Kovrel.clsFZip"};

HRESULT can_unload() {
    using CanUnloadNow = HRESULT(STDMETHODCALLTYPE*)();
    const HMODULE module = GetModuleHandleW(L"kovrel.dll");
    if (module == nullptr) return E_UNEXPECTED;
    return reinterpret_cast<CanUnloadNow>(
        reinterpret_cast<void (*)()>(GetProcAddress(module, "DllCanUnloadNow")))();
}

TEST(Lifecycle, EveryClassIsCreatedByItsProgId) {
    for (const wchar_t* const prog_id : prog_ids) EXPECT_TRUE(create(prog_id));
}

TEST(Lifecycle, NothingStaysAliveBehindAReleasedInstance) {
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

TEST(HostName, EarlyBound) {
    using Put = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*);
    using Get = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*);
    for (const wchar_t* const prog_id : {L"Kovrel.clsFGen", L"Kovrel.clsProfile"}) {
        const auto instance = create(prog_id);
        Bstr name(L"Facturas");
        BSTR raw = name.get();
        EXPECT_EQ(
            early<Put>(instance.get(), L"AppOrigen", INVOKE_PROPERTYPUT)(instance.get(), &raw),
            S_OK);
        Bstr back;
        EXPECT_EQ(early<Get>(instance.get(), L"AppOrigen", INVOKE_PROPERTYGET)(instance.get(),
                                                                               back.put()),
                  S_OK);
        EXPECT_EQ(back.view(), L"Facturas");
    }
}

TEST(Catalogue, IsReplacedByObjectAssignment) {
    const auto general = create(L"Kovrel.clsFGen");
    const Variant other(create(L"Kovrel.clsMensajes"));
    EXPECT_EQ(put(general.get(), L"Mensajes", other, DISPATCH_PROPERTYPUTREF).result, S_OK);
    EXPECT_EQ(get(general.get(), L"Mensajes").value.pdispVal, other.pdispVal);
    put(general.get(), L"AppOrigen", Variant(L"Facturas"));
    EXPECT_EQ(text_of_result(get(other.pdispVal, L"AppOrigen")), L"Facturas");
    // Another class is no catalogue.
    const Variant wrong(create(L"Kovrel.clsFZip"));
    EXPECT_EQ(put(general.get(), L"Mensajes", wrong, DISPATCH_PROPERTYPUTREF).result,
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(get(general.get(), L"Mensajes").value.pdispVal, other.pdispVal);
}

TEST(Catalogue, WithoutOneTheNameCannotBeForwarded) {
    const auto general = create(L"Kovrel.clsFGen");
    EXPECT_EQ(put(general.get(), L"Mensajes", Variant(ComPtr<IDispatch>()), DISPATCH_PROPERTYPUTREF)
                  .result,
              S_OK);
    EXPECT_EQ(put(general.get(), L"AppOrigen", Variant(L"x")).error,
              static_cast<HRESULT>(0x800A005B));
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
