// RubbishObject, and the description and validation of values.
#include <algorithm>
#include <cstdio>

#include "automation/bstr.h"
#include "tests/robustness/rubbish.h"

namespace kovrel::test {
namespace {

long objects_alive = 0;
constexpr int patience = 150;  // calls before it only fails

constexpr HRESULT results[] = {E_FAIL,
                               E_OUTOFMEMORY,
                               E_NOTIMPL,
                               E_NOINTERFACE,
                               E_ACCESSDENIED,
                               E_UNEXPECTED,
                               DISP_E_MEMBERNOTFOUND,
                               DISP_E_TYPEMISMATCH,
                               DISP_E_PARAMNOTOPTIONAL,
                               DISP_E_BADPARAMCOUNT,
                               DISP_E_UNKNOWNNAME,
                               DISP_E_OVERFLOW,
                               RPC_E_SERVER_DIED,
                               static_cast<HRESULT>(0x800A01A8),
                               static_cast<HRESULT>(0x800A0005),
                               static_cast<HRESULT>(0x800A0000),
                               static_cast<HRESULT>(0x80004005)};

HRESULT CALLBACK fill_in_later(EXCEPINFO* exception) {
    exception->bstrDescription = SysAllocString(L"Más tarde");
    return S_OK;
}

}  // namespace

RubbishObject::RubbishObject(Rubbish& source, bool tame)
    : source_(source),
      tame_(tame),
      wild_(source.random.one_in(3)),
      dispatch_(!source.random.one_in(12)) {
    ++objects_alive;
}

RubbishObject::~RubbishObject() {
    --objects_alive;
}

long RubbishObject::alive() noexcept {
    return objects_alive;
}

HRESULT RubbishObject::QueryInterface(REFIID id, void** result) {
    *result = nullptr;
    if (!IsEqualIID(id, IID_IUnknown) && (!dispatch_ || !IsEqualIID(id, IID_IDispatch))) {
        return E_NOINTERFACE;
    }
    *result = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG RubbishObject::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT RubbishObject::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT RubbishObject::GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** result) {
    *result = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT RubbishObject::GetIDsOfNames(REFIID /*id*/, LPOLESTR* names, UINT count, LCID /*locale*/,
                                     DISPID* ids) {
    std::fill_n(ids, count, DISPID_UNKNOWN);
    if (source_.random.one_in(wild_ ? 6 : 60)) return source_.random.any_of(results);
    const auto found = std::find(names_.begin(), names_.end(), names[0]);
    ids[0] = static_cast<DISPID>(found - names_.begin()) + 1;
    if (found == names_.end()) names_.emplace_back(names[0]);
    return S_OK;
}

HRESULT RubbishObject::fail(EXCEPINFO* exception) {
    Random& random = source_.random;
    if (exception == nullptr || random.one_in(2)) return random.any_of(results);
    *exception = {};
    if (random.one_in(2)) {
        exception->wCode = static_cast<WORD>(random.next());
    } else {
        exception->scode =
            random.one_in(3) ? static_cast<SCODE>(random.next()) : random.any_of(results);
    }
    if (random.one_in(2)) exception->bstrDescription = new_bstr(source_.text());
    if (random.one_in(3)) exception->bstrSource = new_bstr(L"Rubbish");
    if (random.one_in(8)) {
        SysFreeString(exception->bstrDescription);
        exception->bstrDescription = nullptr;
        exception->pfnDeferredFillIn = &fill_in_later;
    }
    return DISP_E_EXCEPTION;
}

Variant RubbishObject::sensible(const std::wstring& name) {
    Random& random = source_.random;
    const auto is = [&](const wchar_t* wanted) { return name == wanted; };
    if (is(L"EOF") || is(L"BOF") || is(L"AutoRedraw") || is(L"MatchedWithList")) {
        return Variant(random.one_in(4));
    }
    if (is(L"Count") || is(L"ListCount") || is(L"RecordCount") || is(L"ColumnCount") ||
        is(L"MaxLength") || is(L"length")) {
        return Variant(static_cast<std::int32_t>(random.below(12)));
    }
    if (is(L"ActualSize")) return Variant(static_cast<std::int32_t>(random.below(50'000)));
    if (is(L"Errors") || is(L"Fields") || is(L"Item")) return source_.object(tame_);
    if (is(L"GetChunk") || is(L"Value") || is(L"GetRows")) {
        const bool rows = is(L"GetRows");
        SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(1 + random.below(4)), 0},
                                    {static_cast<ULONG>(random.below(9)), 0}};
        Variant array;
        array.parray = SafeArrayCreate(rows ? VT_VARIANT : VT_UI1, rows ? 2 : 1, bounds);
        if (array.parray != nullptr) array.vt = VT_ARRAY | (rows ? VT_VARIANT : VT_UI1);
        return array;
    }
    if (random.one_in(2)) return Variant(source_.text(tame_));
    return Variant(static_cast<double>(random.below(100)));
}

void RubbishObject::give(VARIANT& result, Variant value) {
    if (!source_.random.one_in(10)) {
        result = value.detach();
        return;
    }
    referred_ = std::move(value);
    result.vt = VT_BYREF | VT_VARIANT;
    result.pvarVal = &referred_;
}

HRESULT RubbishObject::Invoke(DISPID member, REFIID /*id*/, LCID /*locale*/, WORD flags,
                              DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                              UINT* /*bad_argument*/) {
    const auto alive = ComPtr<IDispatch>(this);
    Random& random = source_.random;
    for (UINT index = 0; index < parameters->cArgs; ++index) {
        if (!is_sound(parameters->rgvarg[index])) return E_UNEXPECTED;
    }
    if (random.one_in(3) && source_.disturbance) source_.disturbance();
    if (++calls_ > patience || random.one_in(wild_ ? 5 : 40)) return fail(exception);
    if (result == nullptr) return S_OK;
    const bool named = member > 0 && static_cast<std::size_t>(member) <= names_.size();
    const bool reads = (flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) != 0;
    if (wild_ ? random.one_in(2) : random.one_in(12)) {
        give(*result, source_.value(tame_));
    } else if (reads && named) {
        give(*result, sensible(names_[static_cast<std::size_t>(member - 1)]));
    } else if (reads) {
        give(*result, random.one_in(2) ? Variant(source_.text(tame_)) : source_.value(tame_));
    }
    return S_OK;
}

std::string typed_text(const VARIANT& value, int depth) {
    std::string text = std::to_string(value.vt & VT_TYPEMASK);
    if ((value.vt & VT_ARRAY) != 0) text += "[]";
    if ((value.vt & VT_BYREF) != 0) text += "&";
    if (value.vt == VT_BSTR) {
        text += " \"";
        for (const wchar_t character : text_of(value.bstrVal).substr(0, 40)) {
            char piece[8];
            std::snprintf(piece, sizeof piece, character < 127 && character > 31 ? "%c" : "\\%x",
                          character);
            text += piece;
        }
        text += '"';
    } else if (value.vt == VT_R8 || value.vt == VT_DATE) {
        text += ' ' + std::to_string(value.dblVal);
    } else if (value.vt == (VT_BYREF | VT_VARIANT) && value.pvarVal != nullptr && depth < 9) {
        text += " -> " + typed_text(*value.pvarVal, depth + 1);
    } else if ((value.vt & VT_BYREF) == 0) {
        text += ' ' + std::to_string(value.llVal);
    }
    return text;
}

bool is_sound(const VARIANT& value) {
    if ((value.vt & VT_BYREF) != 0) return value.byref != nullptr;
    if ((value.vt & VT_ARRAY) != 0) {
        return value.parray == nullptr || (value.parray->cDims > 0 && value.parray->cLocks == 0);
    }
    VARIANT copy;
    VariantInit(&copy);
    // Copying reads every character and adds a reference to every object.
    const HRESULT copied = VariantCopy(&copy, const_cast<VARIANT*>(&value));
    VariantClear(&copy);
    return SUCCEEDED(copied);
}

}  // namespace kovrel::test
