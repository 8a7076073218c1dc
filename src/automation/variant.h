// Owner of a VARIANT.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "automation/com_ptr.h"

namespace kovrel {

/// A date and time of day: days since 30 December 1899, the time being the fraction.
struct Date {
    double days = 0;
    // clang-tidy 14 takes the zero in a defaulted comparison for a null pointer.
    auto operator<=>(const Date&) const = default;  // NOLINT(modernize-use-nullptr)
};

/// A VARIANT that clears itself. Conversions follow the user's regional settings, and what cannot
/// be converted is a Failure: 94 for a null, 6 for a number out of range, 13 for anything else.
class Variant : public VARIANT {
 public:
    Variant() noexcept : VARIANT{} {}
    explicit Variant(bool value) noexcept
        : Variant(VT_BOOL, &VARIANT::boolVal, value ? VARIANT_TRUE : VARIANT_FALSE) {}
    explicit Variant(std::uint8_t value) noexcept : Variant(VT_UI1, &VARIANT::bVal, value) {}
    explicit Variant(std::int16_t value) noexcept : Variant(VT_I2, &VARIANT::iVal, value) {}
    explicit Variant(std::int32_t value) noexcept : Variant(VT_I4, &VARIANT::lVal, value) {}
    explicit Variant(float value) noexcept : Variant(VT_R4, &VARIANT::fltVal, value) {}
    explicit Variant(double value) noexcept : Variant(VT_R8, &VARIANT::dblVal, value) {}
    explicit Variant(Date value) noexcept : Variant(VT_DATE, &VARIANT::date, value.days) {}
    explicit Variant(std::wstring_view value);
    explicit Variant(const wchar_t* value) : Variant(std::wstring_view(value)) {}
    explicit Variant(const std::wstring& value) : Variant(std::wstring_view(value)) {}
    explicit Variant(ComPtr<IDispatch> value) noexcept;
    /// A copy; by-reference values stay by reference.
    explicit Variant(const VARIANT& value);

    Variant(const Variant& other) : Variant(static_cast<const VARIANT&>(other)) {}
    Variant(Variant&& other) noexcept : VARIANT(other) { other.vt = VT_EMPTY; }
    Variant& operator=(Variant other) noexcept;
    ~Variant() {
        if (vt != VT_EMPTY) VariantClear(this);
    }

    [[nodiscard]] static Variant null() noexcept;
    /// The marker of an omitted optional argument.
    [[nodiscard]] static Variant missing() noexcept;
    /// Takes ownership of a value, which becomes empty.
    [[nodiscard]] static Variant attach(VARIANT& value) noexcept;
    /// Gives up ownership; this value becomes empty.
    [[nodiscard]] VARIANT detach() noexcept;

    [[nodiscard]] bool is_null() const noexcept { return vt == VT_NULL; }
    [[nodiscard]] bool is_empty() const noexcept { return vt == VT_EMPTY; }
    [[nodiscard]] bool is_error() const noexcept { return vt == VT_ERROR; }
    [[nodiscard]] bool is_missing() const noexcept {
        return vt == VT_ERROR && scode == DISP_E_PARAMNOTFOUND;
    }
    [[nodiscard]] bool is_object() const noexcept { return vt == VT_DISPATCH || vt == VT_UNKNOWN; }

    /// The value as another type.
    [[nodiscard]] Variant as(VARTYPE type) const;
    [[nodiscard]] std::wstring to_text() const;
    /// The value as text, where empty and null both give an empty text.
    [[nodiscard]] std::wstring to_text_or_empty() const;
    [[nodiscard]] double to_double() const;
    [[nodiscard]] std::int32_t to_int32() const;
    [[nodiscard]] std::int16_t to_int16() const;
    [[nodiscard]] bool to_bool() const;
    [[nodiscard]] Date to_date() const;
    /// The object held; failure 424 when the value is not one, 91 when it is none.
    [[nodiscard]] ComPtr<IDispatch> to_object() const;

    /// True for numbers, booleans, empty, and texts that read as a number; for an object, whether
    /// its default value is.
    [[nodiscard]] bool is_numeric() const;
    /// True for dates and for texts that read as one; for an object, whether its default value is.
    [[nodiscard]] bool is_date() const;

    /// The same type and, bit for bit, the same content; texts are compared by their characters.
    [[nodiscard]] bool same_as(const Variant& other) const noexcept;

 private:
    template <class Value, class Given>
    Variant(VARTYPE type, Value VARIANT::*field, Given value) noexcept : Variant() {
        vt = type;
        this->*field = static_cast<Value>(value);
    }
};

static_assert(sizeof(Variant) == sizeof(VARIANT), "arrays of VARIANT are handed out as Variant");

/// The size in bytes of a plain type's value; 0 for types that own memory and unknown ones.
[[nodiscard]] std::size_t plain_size(VARTYPE type) noexcept;

/// Throws the Failure for the HRESULT of a platform conversion.
[[noreturn]] void throw_conversion_failure(HRESULT result);

}  // namespace kovrel
