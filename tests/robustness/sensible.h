// Valid arguments for every member of the library, including the host's objects.
#pragma once

#include <string>
#include <vector>

#include "tests/robustness/own_library.h"
#include "tests/support/scripted_recordset.h"

namespace kovrel::test {

class SensibleHost {
 public:
    SensibleHost();
    SensibleHost(const SensibleHost&) = delete;
    SensibleHost& operator=(const SensibleHost&) = delete;

    /// In declaration order, by value.
    [[nodiscard]] std::vector<Variant> arguments(const OwnClass& of_class, const OwnMember& member);

    /// The sum of all reference counts of the host's objects.
    [[nodiscard]] ULONG references() const;

 private:
    Variant argument(const OwnClass& of_class, const OwnMember& member, std::size_t parameter);
    Variant object(const std::wstring& parameter);

    ComPtr<ScriptedObject> control_ = ScriptedObject::make();
    ComPtr<ScriptedObject> field_ = ScriptedObject::make();
    ComPtr<ScriptedObject> picture_ = ScriptedObject::make();
    ComPtr<ScriptedObject> progress_ = ScriptedObject::make();
    ComPtr<ScriptedObject> error_ = ScriptedObject::make();
    ComPtr<ScriptedObject> errors_ = ScriptedObject::make();
    ComPtr<ScriptedObject> connection_ = ScriptedObject::make();
    ScriptedRecordset records_;
    ScriptedCombo combo_;
    ComPtr<IDispatch> image_;
};

/// What a member answers to them: a new collection has no first item.
[[nodiscard]] HRESULT sensible_answer(const OwnMember& member);

/// The HRESULT of the call, or 0x800A0000 and the number of a failure.
HRESULT call_member(IDispatch* instance, const OwnMember& member,
                    const std::vector<Variant>& arguments, Variant* result = nullptr);

}  // namespace kovrel::test
