// An automation object with members set by the test (values, actions and failures) and a log of
// every call; it represents an object that a host passes to the library.
//
//     auto field = ScriptedObject::make();
//     field->property(L"Text", Variant(L"abc")).method(L"SetFocus").default_member(L"Text");
//     ...
//     EXPECT_EQ(field->log(), (Log{L"get Text", L"SetFocus()"}));
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/variant.h"

namespace kovrel::test {

using Log = std::vector<std::wstring>;

// Thrown by an action to fail with an exception record or (with `result`) with a bare HRESULT.
struct ObjectFailure {
    std::int32_t scode = 0;
    std::wstring description;
    HRESULT result = DISP_E_EXCEPTION;
    WORD code = 0;  // EXCEPINFO::wCode, which some objects fill in instead
};

// An exception record with a number from 1 to 65535.
ObjectFailure failure(std::uint16_t number, std::wstring description);
ObjectFailure bare_failure(HRESULT result);

class ScriptedObject final : public IDispatch {
 public:
    using Arguments = std::vector<Variant>;
    using Action = std::function<Variant(const Arguments&)>;

    static ComPtr<ScriptedObject> make();
    // Objects alive in the process.
    static int alive() noexcept;

    // A property that keeps what is put into it.
    ScriptedObject& property(const std::wstring& name, Variant value);
    // One whose get (and put) is an action; without a put action it is read-only.
    ScriptedObject& property(const std::wstring& name, Action get, Action put = {});
    // Without an action it does nothing.
    ScriptedObject& method(const std::wstring& name, Action action = {});
    // Reads, writes and calls of the member fail.
    ScriptedObject& fails(const std::wstring& name, ObjectFailure failure);
    ScriptedObject& remove(const std::wstring& name);
    // The member that the object's own value is read from.
    ScriptedObject& default_member(const std::wstring& name);

    [[nodiscard]] Variant value(const std::wstring& name) const;
    void set_value(const std::wstring& name, Variant value);

    // "get Text", "put Text = abc", "GetRows(-1)"; arrays as their number of elements: "[4]".
    [[nodiscard]] const Log& log() const noexcept { return log_; }
    void clear_log() { log_.clear(); }
    [[nodiscard]] std::size_t calls_of(std::wstring_view entry) const;
    [[nodiscard]] ULONG references() const noexcept { return references_; }

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
    struct Member {
        std::wstring name;
        Action get;
        Action put;
        bool is_method = false;
        bool answers_calls = false;
        bool removed = false;
    };

    ScriptedObject();
    ~ScriptedObject();
    Member& member(const std::wstring& name);
    [[nodiscard]] DISPID id_of(std::wstring_view name) const;
    [[nodiscard]] const Member* find(DISPID id) const;
    Variant run(const Member& member, bool puts, const Arguments& arguments);

    ULONG references_ = 1;
    std::vector<Member> members_;
    std::vector<Variant> values_;  // one for each member
    DISPID default_id_ = DISPID_UNKNOWN;
    Log log_;
};

inline Variant to_variant(const ComPtr<ScriptedObject>& object) {
    return Variant(ComPtr<IDispatch>(object.get()));
}

// How a value reads in the log.
std::wstring described(const VARIANT& value);

}  // namespace kovrel::test
