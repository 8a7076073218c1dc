// Random values and objects, most of which no sensible host passes.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/variant.h"
#include "tests/robustness/random.h"

namespace kovrel::test {

/// What an object does when it is called.
using Disturbance = std::function<void()>;

class Rubbish {
 public:
    explicit Rubbish(std::uint64_t seed) : random(seed) {}

    /// A value of any type. `tame` ones come from a short list, for members that write files named
    /// by them, or wait as long as they say.
    Variant value(bool tame = false);
    /// A value of a given type (one that a variable can have).
    Variant value_of(VARTYPE type, bool tame = false);
    /// A type that a variable can have.
    VARTYPE variable_type();
    std::wstring text(bool tame = false);
    Variant object(bool tame = false);

    Random random;
    /// Other objects that may be passed, like those of the library.
    std::vector<IDispatch*> other_objects;
    Disturbance disturbance;

 private:
    double number(bool tame);
    Variant array(bool tame);
};

/// Accepts every name and every call, with sensible or random results; after many calls it only
/// fails, so that loops over it end.
class RubbishObject final : public IDispatch {
 public:
    RubbishObject(Rubbish& source, bool tame);
    RubbishObject(const RubbishObject&) = delete;
    RubbishObject& operator=(const RubbishObject&) = delete;

    /// Objects alive in this process.
    static long alive() noexcept;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* bad_argument) override;

 private:
    ~RubbishObject();
    HRESULT fail(EXCEPINFO* exception);
    Variant sensible(const std::wstring& name);
    void give(VARIANT& result, Variant value);

    Rubbish& source_;
    ULONG references_ = 1;
    int calls_ = 0;
    const bool tame_;  // in its results
    const bool wild_;
    const bool dispatch_;  // else it lacks IDispatch
    std::vector<std::wstring> names_;
    Variant referred_;  // target of results by reference
};

/// A value with its type, for the report of a failed check.
std::string typed_text(const VARIANT& value, int depth = 0);

/// True for a valid variant with valid content.
bool is_sound(const VARIANT& value);

}  // namespace kovrel::test
