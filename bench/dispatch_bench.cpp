// A late-bound call with a cached id against the same call through the platform's DispInvoke, both
// of the library given as argument: dispatch_bench kovrel.dll
#include <windows.h>
#include <oleauto.h>

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "automation/com_ptr.h"

namespace {

using kovrel::ComPtr;

constexpr int calls_a_round = 200'000;
constexpr int rounds = 7;

template <class Call>
double best_nanoseconds(const Call& call) {
    double best = 1e9;
    for (int round = 0; round < rounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        for (int index = 0; index < calls_a_round; ++index) call();
        const std::chrono::duration<double, std::nano> spent =
            std::chrono::steady_clock::now() - start;
        best = std::min(best, spent.count() / calls_a_round);
    }
    return best;
}

ComPtr<IDispatch> create(const wchar_t* path, const wchar_t* class_name,
                         ComPtr<ITypeLib>& library) {
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    ComPtr<IDispatch> instance;
    if (FAILED(LoadTypeLibEx(path, REGKIND_NONE, library.put()))) return instance;
    ComPtr<ITypeInfo> type;
    MEMBERID member = 0;
    USHORT count = 1;
    std::wstring name(class_name);
    library->FindName(name.data(), 0, type.put(), &member, &count);
    TYPEATTR* attributes = nullptr;
    type->GetTypeAttr(&attributes);
    const CLSID class_id = attributes->guid;
    type->ReleaseTypeAttr(attributes);
    const HMODULE module = LoadLibraryW(path);
    const auto get_class_object = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void (*)()>(GetProcAddress(module, "DllGetClassObject")));
    ComPtr<IClassFactory> factory;
    get_class_object(class_id, IID_IClassFactory, factory.put_void());
    factory->CreateInstance(nullptr, IID_IDispatch, instance.put_void());
    return instance;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 2) {
        std::fputs("dispatch_bench kovrel.dll\n", stderr);
        return 2;
    }
    CoInitialize(nullptr);
    ComPtr<ITypeLib> library;
    const auto dates = create(arguments[1], L"clsFFechas", library);
    if (!dates) {
        std::fputs("dispatch_bench: the library does not load\n", stderr);
        return 1;
    }
    ComPtr<ITypeInfo> type;
    dates->GetTypeInfo(0, LOCALE_NEUTRAL, type.put());
    wchar_t member[] = L"EsBisiesto";
    wchar_t* name = member;
    DISPID id = DISPID_UNKNOWN;
    dates->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);

    VARIANT year{};
    year.vt = VT_I2;
    year.iVal = 2024;
    DISPPARAMS parameters{&year, nullptr, 1, 0};
    VARIANT result{};
    const double own = best_nanoseconds([&] {
        dates->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, &result,
                      nullptr, nullptr);
    });
    const bool own_right = result.vt == VT_BOOL && result.boolVal == VARIANT_TRUE;
    result = {};
    const double platform = best_nanoseconds([&] {
        DispInvoke(dates.get(), type.get(), id, DISPATCH_METHOD, &parameters, &result, nullptr,
                   nullptr);
    });
    const bool platform_right = result.vt == VT_BOOL && result.boolVal == VARIANT_TRUE;
    if (!own_right || !platform_right) {
        std::fputs("dispatch_bench: 2024 is a leap year\n", stderr);
        return 1;
    }
    std::printf(
        "EsBisiesto by id: %.1f ns; through DispInvoke: %.1f ns; ratio %.2f (at most 0.50)\n", own,
        platform, own / platform);
    return 0;
}
