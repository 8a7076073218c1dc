// The arguments of one late-bound call, matched to a member's parameters.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "automation/class_info.h"
#include "automation/variant.h"

namespace kovrel {

/// The most parameters that a declared member may have.
constexpr std::size_t max_parameters = 8;

/// A call that does not fit the member: what Invoke answers, and the argument at fault.
struct CallError {
    HRESULT result;
    std::optional<UINT> argument{};      ///< index into DISPPARAMS::rgvarg
    const wchar_t* parameter = nullptr;  ///< the name of the one at fault
};

class LateCall {
 public:
    /// Matches positional, named and omitted arguments to the parameters; throws CallError.
    LateCall(const MemberInfo& member, const DISPPARAMS& parameters, VARIANT* result);

    [[nodiscard]] const MemberInfo& member() const noexcept { return *member_; }

    /// The argument, by-reference variants followed, or its default when omitted. It can still be a
    /// by-reference value of another type.
    [[nodiscard]] const VARIANT& argument(std::size_t parameter) const;

    /// The argument as a value of a type, by the user's regional settings; throws CallError.
    [[nodiscard]] Variant coerced(std::size_t parameter, VARTYPE type) const;
    /// A copy of the argument without conversion, references followed.
    [[nodiscard]] Variant copied(std::size_t parameter) const;
    /// The argument as texts for a record's fixed array: the record itself, an array of texts, or
    /// a script's array object. Throws CallError for anything else, or for too many texts.
    [[nodiscard]] std::vector<std::wstring> texts(std::size_t parameter,
                                                  const RecordInfo& record) const;

    /// The text that the argument itself is; null when it refers to a variable or is of another
    /// type.
    [[nodiscard]] const BSTR* text(std::size_t parameter) const noexcept;
    /// The caller's variable where the argument refers to one of exactly this type, or else null.
    [[nodiscard]] void* variable(std::size_t parameter, VARTYPE type) const noexcept;

    /// Stores a changed value in the caller's variable, in the variable's own type when it has one.
    /// Does nothing for an argument passed by value.
    void write_back(std::size_t parameter, Variant value) const;

    /// Where the result goes, empty; null when the caller wants none.
    [[nodiscard]] VARIANT* result() const noexcept { return result_; }

    [[noreturn]] void fail(std::size_t parameter, HRESULT result) const;

 private:
    void bind_named(const DISPPARAMS& parameters);
    void check_omitted(const DISPPARAMS& parameters) const;

    const MemberInfo* member_;
    // Only the member's own parameters are initialized: most members have one or two.
    std::array<VARIANTARG*, max_parameters> arguments_;  // null: missing
    std::array<UINT, max_parameters> positions_;         // index into rgvarg
    VARIANT* result_;
};

}  // namespace kovrel
