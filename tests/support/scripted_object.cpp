#include "tests/support/scripted_object.h"

#include <algorithm>
#include <atomic>
#include <iterator>

#include "automation/bstr.h"
#include "runtime/failure.h"
#include "runtime/text.h"

namespace kovrel::test {
namespace {

std::atomic<int> alive_objects = 0;

}  // namespace

ObjectFailure failure(std::uint16_t number, std::wstring description) {
    return {static_cast<std::int32_t>(MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number)),
            std::move(description), DISP_E_EXCEPTION, 0};
}

ObjectFailure bare_failure(HRESULT result) {
    return {0, {}, result, 0};
}

std::wstring described(const VARIANT& value) {
    if (value.vt == (VT_BYREF | VT_VARIANT)) return described(*value.pvarVal);
    if (value.vt == VT_NULL) return L"null";
    if (value.vt == VT_EMPTY) return L"empty";
    if (value.vt == VT_ERROR) return L"missing";
    if (value.vt == VT_DISPATCH) return L"object";
    if ((value.vt & VT_ARRAY) != 0) {
        std::wstring text;
        for (UINT dimension = 1; dimension <= SafeArrayGetDim(value.parray); ++dimension) {
            LONG lower = 0;
            LONG upper = -1;
            SafeArrayGetLBound(value.parray, dimension, &lower);
            SafeArrayGetUBound(value.parray, dimension, &upper);
            text += (text.empty() ? L"[" : L"x") + std::to_wstring(upper - lower + 1);
        }
        return text + L"]";
    }
    return Variant(value).to_text();
}

ScriptedObject::ScriptedObject() {
    ++alive_objects;
}

ScriptedObject::~ScriptedObject() {
    --alive_objects;
}

ComPtr<ScriptedObject> ScriptedObject::make() {
    return ComPtr<ScriptedObject>::attach(new ScriptedObject);
}

int ScriptedObject::alive() noexcept {
    return alive_objects;
}

ScriptedObject::Member& ScriptedObject::member(const std::wstring& name) {
    for (Member& known : members_) {
        if (!equal_without_case(known.name, name)) continue;
        known = Member{known.name, {}, {}, false, false, false};
        return known;
    }
    members_.push_back({name, {}, {}, false, false, false});
    values_.emplace_back();
    return members_.back();
}

ScriptedObject& ScriptedObject::property(const std::wstring& name, Variant value) {
    member(name);
    const auto index = static_cast<std::size_t>(id_of(name) - 1);
    values_[index] = std::move(value);
    return property(
        name, [this, index](const Arguments&) { return values_[index]; },
        [this, index](const Arguments& arguments) {
            values_[index] = arguments.back();
            return Variant();
        });
}

ScriptedObject& ScriptedObject::property(const std::wstring& name, Action get, Action put) {
    Member& added = member(name);
    added.get = std::move(get);
    added.put = std::move(put);
    return *this;
}

ScriptedObject& ScriptedObject::method(const std::wstring& name, Action action) {
    Member& added = member(name);
    added.get = action ? std::move(action) : [](const Arguments&) { return Variant(); };
    added.is_method = true;
    added.answers_calls = true;
    return *this;
}

ScriptedObject& ScriptedObject::fails(const std::wstring& name, ObjectFailure failure) {
    const Action fail = [failure](const Arguments&) -> Variant { throw failure; };
    Member& added = member(name);
    added.get = fail;
    added.put = fail;
    added.answers_calls = true;
    return *this;
}

ScriptedObject& ScriptedObject::remove(const std::wstring& name) {
    member(name).removed = true;
    return *this;
}

ScriptedObject& ScriptedObject::default_member(const std::wstring& name) {
    default_id_ = id_of(name);
    return *this;
}

Variant ScriptedObject::value(const std::wstring& name) const {
    return values_.at(static_cast<std::size_t>(id_of(name) - 1));
}

void ScriptedObject::set_value(const std::wstring& name, Variant value) {
    values_.at(static_cast<std::size_t>(id_of(name) - 1)) = std::move(value);
}

std::size_t ScriptedObject::calls_of(std::wstring_view entry) const {
    return static_cast<std::size_t>(std::count(log_.begin(), log_.end(), entry));
}

DISPID ScriptedObject::id_of(std::wstring_view name) const {
    for (std::size_t index = 0; index < members_.size(); ++index) {
        const Member& known = members_[index];
        if (!known.removed && equal_without_case(known.name, name)) {
            return static_cast<DISPID>(index) + 1;
        }
    }
    return DISPID_UNKNOWN;
}

const ScriptedObject::Member* ScriptedObject::find(DISPID id) const {
    if (id == DISPID_VALUE) id = default_id_;
    if (id < 1 || static_cast<std::size_t>(id) > members_.size()) return nullptr;
    const Member& found = members_[static_cast<std::size_t>(id) - 1];
    return found.removed ? nullptr : &found;
}

Variant ScriptedObject::run(const Member& member, bool puts, const Arguments& arguments) {
    std::wstring entry = member.name;
    if (puts) {
        entry = L"put " + entry + L" = " + described(arguments.back());
    } else if (!member.is_method && arguments.empty()) {
        entry = L"get " + entry;
    } else {
        entry += L'(';
        for (const Variant& argument : arguments) {
            if (entry.back() != L'(') entry += L", ";
            entry += described(argument);
        }
        entry += L')';
    }
    log_.push_back(std::move(entry));
    // Copied, since the action may change the members or release the object.
    const Action action = puts ? member.put : member.get;
    return action(arguments);
}

HRESULT ScriptedObject::QueryInterface(REFIID id, void** result) {
    *result = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch) return E_NOINTERFACE;
    *result = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG ScriptedObject::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT ScriptedObject::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT ScriptedObject::GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** result) {
    *result = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT ScriptedObject::GetIDsOfNames(REFIID /*id*/, LPOLESTR* names, UINT count, LCID /*locale*/,
                                      DISPID* ids) {
    std::fill(ids, ids + count, DISPID_UNKNOWN);
    ids[0] = id_of(names[0]);
    return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT ScriptedObject::Invoke(DISPID member, REFIID /*id*/, LCID /*locale*/, WORD flags,
                               DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                               UINT* /*bad_argument*/) {
    const bool puts = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const Member* const found = find(member);
    if (found == nullptr || !(puts ? found->put : found->get)) return DISP_E_MEMBERNOTFOUND;
    if (flags == DISPATCH_METHOD && !found->answers_calls) return DISP_E_MEMBERNOTFOUND;
    try {
        Arguments arguments;
        for (UINT index = parameters->cArgs; index > 0; --index) {
            arguments.emplace_back(parameters->rgvarg[index - 1]);
        }
        Variant value = run(*found, puts, arguments);
        if (result != nullptr) *result = value.detach();
        return S_OK;
    } catch (const ObjectFailure& failure) {
        if (failure.result == DISP_E_EXCEPTION && exception != nullptr) {
            *exception = {};
            exception->scode = failure.scode;
            exception->wCode = failure.code;
            exception->bstrSource = new_bstr(L"Prueba");
            if (!failure.description.empty())
                exception->bstrDescription = new_bstr(failure.description);
        }
        return failure.result;
    } catch (const Failure&) {
        return DISP_E_TYPEMISMATCH;
    }
}

}  // namespace kovrel::test
