// A host's automation object, reached late-bound by member name.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>

#include "automation/variant.h"

namespace kovrel {

/// Holds a reference, so that an object that releases itself during a call survives the call.
/// Errors become a Failure: 438 for an unknown name, otherwise the object's own number and
/// description; HRESULTs are mapped to run-time failure numbers where there is one and stay
/// negative where there is none.
class HostObject {
 public:
    /// Failure 91 when there is no object.
    explicit HostObject(IDispatch* object);
    explicit HostObject(const ComPtr<IDispatch>& object) : HostObject(object.get()) {}
    /// Failure 424 when the value is not an object.
    explicit HostObject(const Variant& value) : HostObject(value.to_object()) {}

    using Arguments = std::initializer_list<Variant>;

    [[nodiscard]] Variant get(std::wstring_view member, Arguments arguments = {}) const;
    /// The value of a field, asked for as a property only: a script object would call a function
    /// that the field holds if it were asked for as a method too.
    [[nodiscard]] Variant field(std::wstring_view member) const;
    void put(std::wstring_view member, const Variant& value) const;
    /// Assigns an object by reference (DISPATCH_PROPERTYPUTREF).
    void put_object(std::wstring_view member, const Variant& value) const;
    Variant call(std::wstring_view member, Arguments arguments = {}) const;
    /// `member(index)`: the index goes to the collection that the member returns, or to the member
    /// itself where it takes one.
    [[nodiscard]] Variant element(std::wstring_view member, std::int32_t index) const;
    /// The value of the default member; where that is an object, its default value in turn.
    [[nodiscard]] Variant default_value() const;

    [[nodiscard]] bool has(std::wstring_view member) const;

 private:
    [[nodiscard]] Variant indexed(std::int32_t index) const;
    [[nodiscard]] DISPID id_of(std::wstring_view member) const;
    HRESULT ask_for_id(std::wstring& name, DISPID& id) const;
    Variant invoke(DISPID id, WORD flags, const VARIANT* first, std::size_t count) const;
    Variant invoke_reversed(DISPID id, WORD flags, Arguments arguments) const;

    ComPtr<IDispatch> object_;
    mutable std::map<std::wstring, DISPID, std::less<>> ids_;
};

}  // namespace kovrel
