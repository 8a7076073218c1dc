// Calls of automation objects by the names of their members, and the values that they take: for the
// library's objects and those of the database alike.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>

namespace ficha {

/// Thrown when a call fails, with the object's own description where it gave one.
struct Failure {
    std::wstring description;
};

struct Releaser {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};
template <class Interface>
using Owner = std::unique_ptr<Interface, Releaser>;

/// A VARIANT that clears itself. Conversions follow the user's regional settings.
class Value : public VARIANT {
 public:
    Value() noexcept : VARIANT{} {}
    explicit Value(bool value) noexcept;
    explicit Value(std::int32_t value) noexcept;
    explicit Value(float value) noexcept;
    explicit Value(double value) noexcept;
    explicit Value(const std::wstring& value);
    explicit Value(const wchar_t* value) : Value(std::wstring(value)) {}
    /// Adds a reference to the object.
    explicit Value(IDispatch* object) noexcept;
    /// A copy, of what it refers to where the value is a reference.
    explicit Value(const VARIANT& value);
    static Value null() noexcept;
    static Value of_date(DATE days) noexcept;
    /// For a parameter that the member changes; the variable must outlive the value.
    static Value reference(short& variable) noexcept;

    Value(const Value& other);
    Value(Value&& other) noexcept : VARIANT(other) { other.vt = VT_EMPTY; }
    Value& operator=(Value other) noexcept;
    ~Value() { VariantClear(this); }
    /// Hands the value over to whoever clears it then.
    VARIANT detach() noexcept;

    [[nodiscard]] bool to_bool() const { return as(VT_BOOL).boolVal != VARIANT_FALSE; }
    [[nodiscard]] std::int32_t to_int32() const { return as(VT_I4).lVal; }
    [[nodiscard]] double to_double() const { return as(VT_R8).dblVal; }
    [[nodiscard]] DATE to_date() const { return as(VT_DATE).date; }
    /// Empty for nothing and for a null.
    [[nodiscard]] std::wstring to_text() const;

    /// True for a text that the user's regional settings read as one.
    [[nodiscard]] bool reads_as_number() const;
    [[nodiscard]] bool reads_as_date() const;

 private:
    [[nodiscard]] Value as(VARTYPE type) const;
};

/// An object whose members are called by name.
class Object {
 public:
    using Arguments = std::initializer_list<Value>;

    explicit Object(Value object);

    [[nodiscard]] Value get(const wchar_t* property, Arguments arguments = {}) const;
    void put(const wchar_t* property, const Value& value) const;
    Value call(const wchar_t* method, Arguments arguments = {}) const;

    /// The object as an argument of another one's.
    [[nodiscard]] const Value& value() const noexcept { return object_; }

 private:
    Value invoke(const wchar_t* member, WORD flags, Arguments arguments) const;

    Value object_;
};

}  // namespace ficha
