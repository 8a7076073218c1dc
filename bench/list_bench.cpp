// A list of a million tax ids checked in one late-bound call: list_bench kovrel.dll
#include <windows.h>
#include <oleauto.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

#include "automation/bstr.h"
#include "automation/com_ptr.h"
#include "bench/server.h"
#include "kovrel.h"

namespace {

constexpr ULONG count = 1'000'000;
constexpr std::array texts{L"12345678Z", L"X1234567L", L"B12345674", L"12.345.678-A"};

VARIANT list_of_texts() {
    VARIANT list{};
    list.vt = VT_ARRAY | VT_BSTR;
    list.parray = SafeArrayCreateVector(VT_BSTR, 0, count);
    auto* element = static_cast<BSTR*>(list.parray->pvData);
    for (ULONG index = 0; index < count; ++index) {
        *element++ = SysAllocString(texts[index % texts.size()]);
    }
    return list;
}

}  // namespace

int wmain(int argument_count, wchar_t** arguments) {
    if (argument_count != 2) return 2;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const auto identifiers =
        kovrel::bench::object_of<IDispatch>(arguments[1], Kovrel::CLSID_clsFIdent);
    if (!identifiers) return 1;
    wchar_t name[] = L"CompruebaLista";
    LPOLESTR member = name;
    DISPID id = DISPID_UNKNOWN;
    identifiers->GetIDsOfNames(IID_NULL, &member, 1, LOCALE_USER_DEFAULT, &id);
    std::array<VARIANT, 2> reversed{list_of_texts(), VARIANT{}};
    reversed[1].vt = VT_I4;
    reversed[1].lVal = Kovrel::idNIF;
    DISPPARAMS parameters{reversed.data(), nullptr, 2, 0};
    auto best = std::chrono::duration<double, std::milli>::max();
    for (int round = 0; round < 7; ++round) {
        VARIANT faults{};
        const auto start = std::chrono::steady_clock::now();
        const HRESULT called =
            identifiers->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                &faults, nullptr, nullptr);
        best = std::min<decltype(best)>(best, std::chrono::steady_clock::now() - start);
        if (FAILED(called) || faults.parray->rgsabound[0].cElements != count) return 1;
        VariantClear(&faults);
    }
    std::printf("list of %lu texts: %.1f ms\n", count, best.count());
    return 0;
}
