// The library activated through its side-by-side manifest, without registration.
#include <gtest/gtest.h>
#include <kovrel.h>
#include <thread>

#include "tests/support/box_watcher.h"
#include "tests/support/late.h"
#include "tests/support/library_module.h"

namespace kovrel::test {
namespace {

struct PublicClass {
    const wchar_t* prog_id;
    const GUID& class_id;
    const GUID& interface_id;
};

const PublicClass classes[] = {
    {Kovrel::ProgID_clsFFechas, Kovrel::CLSID_clsFFechas, Kovrel::IID__clsFFechas},
    {Kovrel::ProgID_clsADODBServices, Kovrel::CLSID_clsADODBServices,
     Kovrel::IID__clsADODBServices},
    {Kovrel::ProgID_cgsFileOpR, Kovrel::CLSID_cgsFileOpR, Kovrel::IID__cgsFileOpR},
    {Kovrel::ProgID_clsProfile, Kovrel::CLSID_clsProfile, Kovrel::IID__clsProfile},
    {Kovrel::ProgID_clsCSQL, Kovrel::CLSID_clsCSQL, Kovrel::IID__clsCSQL},
    {Kovrel::ProgID_clsFZip, Kovrel::CLSID_clsFZip, Kovrel::IID__clsFZip},
    {Kovrel::ProgID_clsFGen, Kovrel::CLSID_clsFGen, Kovrel::IID__clsFGen},
    {Kovrel::ProgID_clsMensajes, Kovrel::CLSID_clsMensajes, Kovrel::IID__clsMensajes},
    {Kovrel::ProgID_clsAvisos, Kovrel::CLSID_clsAvisos, Kovrel::IID__clsAvisos},
    {Kovrel::ProgID_clsFIdent, Kovrel::CLSID_clsFIdent, Kovrel::IID__clsFIdent},
    {Kovrel::ProgID_clsFArchivo, Kovrel::CLSID_clsFArchivo, Kovrel::IID__clsFArchivo},
    {Kovrel::ProgID_clsFSQL, Kovrel::CLSID_clsFSQL, Kovrel::IID__clsFSQL},
};

bool in_registry(const std::wstring& key) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
        return false;
    }
    RegCloseKey(opened);
    return true;
}

std::wstring braced(const GUID& id) {
    std::wstring text(39, L'\0');
    text.resize(static_cast<std::size_t>(StringFromGUID2(id, text.data(), 39)) - 1);
    return text;
}

TEST(RegistrationFree, NothingIsRegistered) {
    EXPECT_TRUE(in_registry(L"CLSID"));
    EXPECT_FALSE(in_registry(L"TypeLib\\" + braced(Kovrel::LIBID_Kovrel)));
    for (const PublicClass& entry : classes) {
        SCOPED_TRACE(narrow(entry.prog_id));
        EXPECT_FALSE(in_registry(entry.prog_id));
        EXPECT_FALSE(in_registry(L"CLSID\\" + braced(entry.class_id)));
        EXPECT_FALSE(in_registry(L"Interface\\" + braced(entry.interface_id)));
    }
}

TEST(RegistrationFree, EveryClassIsCreated) {
    for (const PublicClass& entry : classes) {
        SCOPED_TRACE(narrow(entry.prog_id));
        // By its CLSID, and by the one that the platform generates for the ProgID in a manifest.
        CLSID by_name{};
        EXPECT_EQ(CLSIDFromProgID(entry.prog_id, &by_name), S_OK);
        for (const CLSID& class_id : {entry.class_id, by_name}) {
            ComPtr<IUnknown> instance;
            EXPECT_EQ(CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, entry.interface_id,
                                       instance.put_void()),
                      S_OK);
            EXPECT_TRUE(instance);
        }
        wchar_t* prog_id = nullptr;
        EXPECT_EQ(ProgIDFromCLSID(entry.class_id, &prog_id), S_OK);
        EXPECT_EQ(std::wstring_view(prog_id == nullptr ? L"" : prog_id), entry.prog_id);
        CoTaskMemFree(prog_id);
    }
    // The DLL beside the manifest.
    EXPECT_EQ(narrow(library_file().wstring()), "C:\\inside\\Kovrel.Assembly\\kovrel.dll");
}

TEST(RegistrationFree, AClassThatOthersGiveOutIsNotCreated) {
    ComPtr<IUnknown> instance;
    EXPECT_EQ(CoCreateInstance(Kovrel::CLSID_clsAviso, nullptr, CLSCTX_INPROC_SERVER,
                               Kovrel::IID__clsAviso, instance.put_void()),
              REGDB_E_CLASSNOTREG);
}

TEST(RegistrationFree, CallsByName) {
    const auto general = create(Kovrel::ProgID_clsFGen);
    ASSERT_TRUE(general);
    EXPECT_EQ(narrow(text_of_result(call(general.get(), L"letranif", {12345678}))), "Z");
    const auto calendar = create(Kovrel::ProgID_clsFFechas);
    ASSERT_TRUE(calendar);
    EXPECT_EQ(narrow(text_of_result(call(calendar.get(), L"ConvierteAñoA4", {24}))), "2024");
}

TEST(RegistrationFree, TheTypeLibraryIsFound) {
    ComPtr<ITypeLib> library;
    ASSERT_EQ(LoadRegTypeLib(Kovrel::LIBID_Kovrel, 1, 0, LOCALE_NEUTRAL, library.put()), S_OK);
    Bstr name;
    EXPECT_EQ(library->GetDocumentation(-1, name.put(), nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(narrow(std::wstring(name.view())), "Kovrel");
}

/// Calls from another apartment, through a proxy of the early-bound interface.
std::string letter_from_another_apartment(IStream* marshalled) {
    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    std::string letter = "?";
    {
        ComPtr<Kovrel::_clsFGen> proxy;
        EXPECT_EQ(CoGetInterfaceAndReleaseStream(marshalled, __uuidof(Kovrel::_clsFGen),
                                                 proxy.put_void()),
                  S_OK);
        long number = 12345678;
        Bstr text;
        if (proxy) {
            EXPECT_EQ(proxy->LetraNIF(&number, text.put()), S_OK);
        }
        letter = narrow(std::wstring(text.view()));
    }
    if (SUCCEEDED(apartment)) CoUninitialize();
    return letter;
}

TEST(RegistrationFree, AnotherApartmentCallsThroughAProxy) {
    ComPtr<Kovrel::_clsFGen> general;
    ASSERT_EQ(CoCreateInstance(__uuidof(Kovrel::clsFGen), nullptr, CLSCTX_INPROC_SERVER,
                               __uuidof(Kovrel::_clsFGen), general.put_void()),
              S_OK);
    IStream* marshalled = nullptr;
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(Kovrel::_clsFGen), general.get(),
                                                    &marshalled),
              S_OK);
    std::string letter;
    const DWORD waiting = GetCurrentThreadId();
    std::thread worker([&] {
        letter = letter_from_another_apartment(marshalled);
        PostThreadMessageW(waiting, WM_APP, 0, 0);
    });
    // The call arrives as a message in this apartment.
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0 && message.message != WM_APP;) {
        DispatchMessageW(&message);
    }
    worker.join();
    EXPECT_EQ(letter, "Z");
}

}  // namespace
}  // namespace kovrel::test
