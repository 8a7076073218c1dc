// What a program that was compiled with version 1.0 relies on beside the calls of header_test.cpp:
// it is built with that version's header, and the registered library is a later one.
#include <array>
#include <bit>
#include <gtest/gtest.h>
#include <kovrel.h>
#include <thread>

#include "tests/support/early.h"
#include "tests/support/late.h"

namespace kovrel::test {
namespace {

ComPtr<ITypeLib> library_of_1_0() {
    ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(Kovrel::LIBID_Kovrel, 1, 0, LOCALE_NEUTRAL, library.put()), S_OK);
    return library;
}

/// The size in bytes of a vtable that ends with a member: the pointer to it holds its offset
/// plus 1.
template <class Function>
std::ptrdiff_t vtable_up_to(Function last) {
    const auto words = std::bit_cast<std::array<std::ptrdiff_t, 2>>(last);
    return words[0] - 1 + static_cast<std::ptrdiff_t>(sizeof(void*));
}

TEST(Version10, ItsTypeLibraryIsTheRegisteredOne) {
    const auto library = library_of_1_0();
    ASSERT_TRUE(library);
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_GE(attributes->wMinorVerNum, 1);
    library->ReleaseTLibAttr(attributes);
}

template <class Class, class Interface, class Function>
void expect_unchanged(Function last_member) {
    const auto library = library_of_1_0();
    ASSERT_TRUE(library);
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(library->GetTypeInfoOfGuid(__uuidof(Class), info.put()), S_OK);
    ASSERT_EQ(library->GetTypeInfoOfGuid(__uuidof(Interface), info.put()), S_OK);
    info = vtable_side_of(info);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->cbSizeVft, vtable_up_to(last_member));
    info->ReleaseTypeAttr(attributes);
}

TEST(Version10, EveryInterfaceEndsWithTheSameMember) {
    using namespace Kovrel;
    expect_unchanged<clsFFechas, _clsFFechas>(&_clsFFechas::PideFecha);
    expect_unchanged<clsADODBServices, _clsADODBServices>(&_clsADODBServices::PutPictureInField);
    expect_unchanged<cgsFileOpR, _cgsFileOpR>(&_cgsFileOpR::QuitarBackSlash);
    expect_unchanged<clsProfile, _clsProfile>(&_clsProfile::ExisteCarpeta);
    expect_unchanged<clsCSQL, _clsCSQL>(&_clsCSQL::Conv_String);
    expect_unchanged<clsFZip, _clsFZip>(&_clsFZip::GenerarZip);
    expect_unchanged<clsFGen, _clsFGen>(&_clsFGen::BarraProgresoCancelada);
    expect_unchanged<clsMensajes, _clsMensajes>(&_clsMensajes::ExistenErroresADO);
}

/// Runs an apartment in another thread, with an instance that this thread gets a proxy of.
class OtherApartment {
 public:
    OtherApartment() : thread_([this] { run(); }) { WaitForSingleObject(ready_, INFINITE); }
    OtherApartment(const OtherApartment&) = delete;
    OtherApartment& operator=(const OtherApartment&) = delete;
    ~OtherApartment() {
        SetEvent(over_);
        thread_.join();
        CloseHandle(ready_);
        CloseHandle(over_);
    }

    [[nodiscard]] ComPtr<Kovrel::_clsFGen> proxy() {
        ComPtr<Kovrel::_clsFGen> result;
        if (stream_ != nullptr) {
            EXPECT_EQ(CoGetInterfaceAndReleaseStream(std::exchange(stream_, nullptr),
                                                     __uuidof(Kovrel::_clsFGen), result.put_void()),
                      S_OK);
        }
        return result;
    }
    /// Not to be called from outside the apartment.
    [[nodiscard]] const Kovrel::_clsFGen* original() const noexcept { return original_; }

 private:
    void run() {
        const ComApartment apartment;
        ComPtr<Kovrel::_clsFGen> instance;
        EXPECT_EQ(CoCreateInstance(__uuidof(Kovrel::clsFGen), nullptr, CLSCTX_INPROC_SERVER,
                                   __uuidof(Kovrel::_clsFGen), instance.put_void()),
                  S_OK);
        EXPECT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(Kovrel::_clsFGen), instance.get(),
                                                        &stream_),
                  S_OK);
        original_ = instance.get();
        SetEvent(ready_);
        while (MsgWaitForMultipleObjects(1, &over_, FALSE, INFINITE, QS_ALLINPUT) !=
               WAIT_OBJECT_0) {
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
                DispatchMessageW(&message);
            }
        }
    }

    HANDLE ready_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE over_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    IStream* stream_ = nullptr;
    const Kovrel::_clsFGen* original_ = nullptr;
    std::thread thread_;
};

TEST(Version10, CallsFromAnotherApartmentArrive) {
    OtherApartment other;
    const auto general = other.proxy();
    ASSERT_TRUE(general);
    EXPECT_NE(general.get(), other.original());
    long number = 12345678;
    Bstr letter;
    EXPECT_EQ(general->LetraNIF(&number, letter.put()), S_OK);
    EXPECT_EQ(letter.view(), L"Z");
    Bstr typed(L"12.345.678-Z");
    BSTR changed = typed.detach();
    EXPECT_EQ(general->QuitaCaracteresyEspacios(&changed), S_OK);
    EXPECT_EQ(text_of(changed), L"12345678Z");
    SysFreeString(changed);
    Variant null = Variant::null();
    Variant substitute(L"nada");
    Variant value;
    EXPECT_EQ(general->Nz(&null, &substitute, &value), S_OK);
    EXPECT_EQ(value.to_text(), L"nada");
}

}  // namespace
}  // namespace kovrel::test
