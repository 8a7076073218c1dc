#include "tests/exit/early_host.h"

#include <kovrel.h>

namespace {

Kovrel::_clsFFechas* kept_dates = nullptr;
Kovrel::_clsCSQL* kept_literals = nullptr;
Kovrel::_clsFGen* kept_general = nullptr;

// System functions only: the run time may already be shut down.

void say(const char* text) {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text, static_cast<DWORD>(lstrlenA(text)), &written,
              nullptr);
}

void report(const char* step, bool right) {
    say(step);
    say(right ? ": right\n" : ": WRONG\n");
}

DISPID id_of(IDispatch* object, const wchar_t* member) {
    auto* name = const_cast<wchar_t*>(member);
    DISPID id = DISPID_UNKNOWN;
    object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

struct Answer {
    HRESULT result = E_UNEXPECTED;
    VARIANT value{};
    EXCEPINFO failure{};
};

Answer call(IDispatch* object, const wchar_t* member, VARIANT* arguments, UINT count) {
    Answer answer;
    DISPPARAMS parameters{arguments, nullptr, count, 0};
    answer.result =
        object->Invoke(id_of(object, member), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                       &parameters, &answer.value, &answer.failure, nullptr);
    return answer;
}

VARIANT number(short value) {
    VARIANT result{};
    result.vt = VT_I2;
    result.iVal = value;
    return result;
}

VARIANT amount(double value) {
    VARIANT result{};
    result.vt = VT_R8;
    result.dblVal = value;
    return result;
}

bool is_text(const VARIANT& value, const wchar_t* expected) {
    return value.vt == VT_BSTR && lstrcmpW(value.bstrVal, expected) == 0;
}

constexpr HRESULT type_mismatch = static_cast<HRESULT>(0x800A000D);

void use_as_any_object() {
    report("AddRef", kept_dates->AddRef() == 2);
    report("Release", kept_dates->Release() == 1);
    IUnknown* unknown = nullptr;
    report("QueryInterface",
           kept_dates->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&unknown)) == S_OK);
    if (unknown != nullptr) unknown->Release();
    report("GetIDsOfNames", id_of(kept_dates, L"esbisiesto") > 0);
    report("GetIDsOfNames of no member", id_of(kept_dates, L"EsNada") == DISPID_UNKNOWN);
}

void call_late() {
    VARIANT year = number(2024);
    const Answer leap = call(kept_dates, L"EsBisiesto", &year, 1);
    report("Invoke",
           leap.result == S_OK && leap.value.vt == VT_BOOL && leap.value.boolVal == VARIANT_TRUE);
    VARIANT price = amount(1234.5);
    report("Invoke for a text",
           is_text(call(kept_literals, L"Conv_Double", &price, 1).value, L"1234.50"));
    report("Invoke for words", is_text(call(kept_general, L"ConvEurosALetra", &price, 1).value,
                                       L"MIL DOSCIENTOS TREINTA Y CUATRO EUROS CON CINCUENTA "
                                       L"C\u00C9NTIMOS"));
    VARIANT arguments[]{year, number(0)};
    const Answer none = call(kept_dates, L"primerdia_mesanterior", arguments, 2);
    report("Invoke that fails",
           none.result == DISP_E_EXCEPTION && none.failure.scode == type_mismatch);
    report("Invoke without arguments",
           call(kept_dates, L"EsBisiesto", nullptr, 0).result == DISP_E_BADPARAMCOUNT);
}

void call_early() {
    VARIANT_BOOL leap = VARIANT_FALSE;
    report("early call", kept_dates->EsBisiesto(2024, &leap) == S_OK && leap == VARIANT_TRUE);
    VARIANT price = amount(1234.5);
    VARIANT text{};
    text.vt = VT_BSTR;
    report("early call for a text",
           kept_literals->Conv_Double(&price, &text.bstrVal) == S_OK && is_text(text, L"1234.50"));
    VARIANT substitute = number(7);
    VARIANT value{};
    VARIANT result{};
    report("early call for a variant", kept_general->Nz(&value, &substitute, &result) == S_OK &&
                                           result.vt == VT_I2 && result.iVal == 7);
    unsigned char month = 0;
    short year = 2024;
    DATE day = 0;
    report("early call that fails",
           kept_dates->primerdia_mesanterior(&month, &year, &day) == type_mismatch);
}

void let_go() {
    report("last Release", kept_dates->Release() == 0 && kept_literals->Release() == 0 &&
                               kept_general->Release() == 0);
}

}  // namespace

void keep_to_the_end(IDispatch* dates, IDispatch* literals, IDispatch* general) {
    dates->QueryInterface(__uuidof(Kovrel::_clsFFechas), reinterpret_cast<void**>(&kept_dates));
    literals->QueryInterface(__uuidof(Kovrel::_clsCSQL), reinterpret_cast<void**>(&kept_literals));
    general->QueryInterface(__uuidof(Kovrel::_clsFGen), reinterpret_cast<void**>(&kept_general));
}

extern "C" BOOL WINAPI DllMain(HINSTANCE /*module*/, DWORD reason, void* /*reserved*/) {
    if (reason != DLL_PROCESS_DETACH || kept_general == nullptr) return TRUE;
    say("begin\n");
    use_as_any_object();
    call_late();
    call_early();
    let_go();
    say("end\n");
    return TRUE;
}
