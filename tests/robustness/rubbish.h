// Values and objects that no sensible host passes, and some that one does.
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

/// What happens in the middle of a call of an object's.
using Disturbance = std::function<void()>;

class Rubbish {
 public:
    explicit Rubbish(std::uint64_t seed) : random(seed) {}

    /// A value of any type, that owns what it holds. `tame` ones come from a short list: for
    /// members that write files named by them, or wait as long as they say.
    Variant value(bool tame = false);
    /// A value of just a type (one that a variable can have).
    Variant value_of(VARTYPE type, bool tame = false);
    /// A type that a variable can have.
    VARTYPE variable_type();
    std::wstring text(bool tame = false);
    Variant object(bool tame = false);

    Random random;
    /// Objects of others that may be passed, like the library's own.
    std::vector<IDispatch*> other_objects;
    Disturbance disturbance;

 private:
    double number(bool tame);
    Variant array(bool tame);
};

/// Answers every name and every call, now sensibly, now with anything; after many calls with
/// failures only, so that whoever asks until he hears something comes to an end.
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
    const bool tame_;  // in what it answers
    const bool wild_;
    const bool dispatch_;  // else an object of another interface alone
    std::vector<std::wstring> names_;
    Variant referred_;  // what a result by reference refers to
};

/// A value with its type, for the report of a failed check.
std::string described(const VARIANT& value, int depth = 0);

/// True for a value that a variable can hold after a call, all that it holds included.
bool is_sound(const VARIANT& value);

}  // namespace kovrel::test
