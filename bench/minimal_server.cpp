// The smallest automation server that a late-bound host can use: one object with one member, the
// argument converted by the platform. What loading it costs is what any automation library costs.
#include "bench/minimal_server.h"

#include <windows.h>
#include <oleauto.h>

#include <cwchar>

namespace {

bool is_leap_year(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

class Dates final : public IDispatch {
 public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** result) override {
        *result = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                            DISPID* ids) override {
        *ids = _wcsicmp(*names, L"EsBisiesto") == 0 ? 1 : DISPID_UNKNOWN;
        return *ids == 1 ? S_OK : DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) override {
        if (member != 1 || parameters->cArgs != 1) return DISP_E_MEMBERNOTFOUND;
        VARIANT year{};
        const HRESULT converted = VariantChangeType(&year, parameters->rgvarg, 0, VT_I2);
        if (FAILED(converted)) return converted;
        result->vt = VT_BOOL;
        result->boolVal = is_leap_year(year.iVal) ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    }
};

Dates dates;

class Factory final : public IClassFactory {
 public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** result) override {
        *result = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, void** result) override {
        *result = static_cast<IDispatch*>(&dates);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

Factory factory;

}  // namespace

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID class_id, REFIID, void** result) {
    if (!InlineIsEqualGUID(class_id, minimal_class)) return CLASS_E_CLASSNOTAVAILABLE;
    *result = &factory;
    return S_OK;
}
