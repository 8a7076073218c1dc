// What late-bound hosts pay for each call, against the same through the platform's functions, and
// for an object: dispatch_bench kovrel.dll
#include <windows.h>
#include <oleauto.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "automation/bstr.h"
#include "automation/com_ptr.h"
#include "bench/server.h"
#include "kovrel.h"

namespace {

using kovrel::Bstr;
using kovrel::ComPtr;

constexpr int calls_a_round = 2'000;
constexpr int rounds = 300;

[[noreturn]] void give_up(const char* why) {
    std::fprintf(stderr, "dispatch_bench: %s\n", why);
    std::exit(1);
}

template <class Call>
double nanoseconds_a_call(const Call& call) {
    const auto start = std::chrono::steady_clock::now();
    for (int index = 0; index < calls_a_round; ++index) call();
    const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - start;
    return spent.count() / calls_a_round;
}

/// The best of several rounds taken in turn, so that both sides meet the same machine.
template <class Own, class Platform>
void compare(const char* what, const Own& own, const Platform& platform) {
    double best_own = 1e9;
    double best_platform = 1e9;
    for (int round = 0; round < rounds; ++round) {
        best_own = std::min(best_own, nanoseconds_a_call(own));
        best_platform = std::min(best_platform, nanoseconds_a_call(platform));
    }
    std::printf("%s: %.1f ns; platform: %.1f ns\n", what, best_own, best_platform);
}

/// One instance and its type information.
class Instance {
 public:
    Instance(const wchar_t* library, const CLSID& class_id)
        : object_(kovrel::bench::object_of<IDispatch>(library, class_id)) {
        if (object_) object_->GetTypeInfo(0, LOCALE_NEUTRAL, type_.put());
        if (!type_) give_up("no object or no type information");
    }

    /// One call with one argument, its id known. `prepare` runs before each, `right` judges the
    /// argument and the result of each.
    template <class Prepare, class Right>
    void compare_calls(const char* what, std::wstring member, WORD kind, VARIANT argument,
                       const Prepare& prepare, const Right& right) const {
        LPOLESTR name = member.data();
        DISPID id = DISPID_UNKNOWN;
        object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
        DISPID assigned = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&argument, &assigned, 1, kind == DISPATCH_PROPERTYPUT ? 1U : 0U};
        const auto call = [&](const auto& invoke) {
            prepare();
            VARIANT result{};
            if (FAILED(invoke(&result)) || !right(result)) give_up(what);
            if (result.vt == VT_BSTR) SysFreeString(result.bstrVal);
        };
        compare(
            what,
            [&] {
                call([&](VARIANT* result) {
                    return object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                           result, nullptr, nullptr);
                });
            },
            [&] {
                call([&](VARIANT* result) {
                    return DispInvoke(object_.get(), type_.get(), id, kind, &parameters, result,
                                      nullptr, nullptr);
                });
            });
    }

    void compare_name(const char* what, std::wstring member) const {
        LPOLESTR name = member.data();
        DISPID id = DISPID_UNKNOWN;
        compare(
            what,
            [&] {
                if (FAILED(object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id))) {
                    give_up(what);
                }
            },
            [&] {
                if (FAILED(type_->GetIDsOfNames(&name, 1, &id))) give_up(what);
            });
    }

 private:
    ComPtr<IDispatch> object_;
    ComPtr<ITypeInfo> type_;
};

void number_argument(const wchar_t* library) {
    VARIANT year{};
    year.vt = VT_I2;
    year.iVal = 2024;
    Instance(library, Kovrel::CLSID_clsFFechas)
        .compare_calls(
            "number argument", L"EsBisiesto", DISPATCH_METHOD, year, [] {},
            [](const VARIANT& result) {
                return result.vt == VT_BOOL && result.boolVal == VARIANT_TRUE;
            });
}

void text_argument(const wchar_t* library) {
    const Bstr title(L"Elija la factura");
    VARIANT argument{};
    argument.vt = VT_BSTR;
    argument.bstrVal = title.get();
    Instance(library, Kovrel::CLSID_cgsFileOpR)
        .compare_calls(
            "text argument", L"DialogTitle", DISPATCH_PROPERTYPUT, argument, [] {},
            [](const VARIANT& result) { return result.vt == VT_EMPTY; });
}

void variable_argument(const wchar_t* library) {
    SHORT key = 0;
    VARIANT argument{};
    argument.vt = VT_BYREF | VT_I2;
    argument.piVal = &key;
    Instance(library, Kovrel::CLSID_clsFGen)
        .compare_calls(
            "variable written back", L"Solo_Fecha", DISPATCH_METHOD, argument, [&] { key = L'x'; },
            [&](const VARIANT& result) { return result.vt == VT_I2 && key == 0; });
}

void create_and_release(const wchar_t* library) {
    const auto factory = kovrel::bench::factory_of(library, Kovrel::CLSID_clsFGen);
    double best = 1e9;
    for (int round = 0; round < rounds; ++round) {
        best = std::min(best, nanoseconds_a_call([&] {
                            ComPtr<IDispatch> object;
                            factory->CreateInstance(nullptr, IID_IDispatch, object.put_void());
                            if (!object) give_up("no object");
                        }));
    }
    std::printf("create and release: %.1f ns\n", best);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 2) give_up("the path of kovrel.dll is missing");
    CoInitialize(nullptr);
    const wchar_t* const library = arguments[1];
    number_argument(library);
    text_argument(library);
    variable_argument(library);
    // Of the class with the most members.
    const Instance general(library, Kovrel::CLSID_clsFGen);
    general.compare_name("first member's name", L"Mensajes");
    general.compare_name("last member's name", L"BarraProgresoCancelada");
    create_and_release(library);
    return 0;
}
