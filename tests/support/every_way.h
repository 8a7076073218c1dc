// One call made in each of the ways that hosts make it, and what came back each time.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "tests/support/box_watcher.h"
#include "tests/support/early.h"

namespace kovrel::test {

enum class Way {
    values,              ///< late-bound, with values
    typed_references,    ///< late-bound, with variables that have a type
    variant_references,  ///< late-bound, with variables that are variants
    early,               ///< through the vtable, as compilers translate the call
};
inline constexpr std::array every_way{Way::values, Way::typed_references, Way::variant_references,
                                      Way::early};
inline constexpr std::array ways_that_write_back{Way::typed_references, Way::variant_references,
                                                 Way::early};

const char* name_of(Way way);

struct Answer {
    HRESULT result = E_UNEXPECTED;  ///< 0x800A0000 and the failure's number, in every way
    std::wstring description;       ///< of a failure
    std::wstring source;            ///< of a failure
    Variant value;
    std::vector<Variant> arguments;  ///< the caller's variables after the call
};

/// Arguments that are left out at the end, or given as missing, are filled in as the way demands:
/// a compiler passes the defaults that the type library declares.
Answer call_in(Way way, IDispatch* object, const std::wstring& member,
               std::vector<Variant> arguments = {});

/// A box as the user sees it.
struct ExpectedBox {
    const wchar_t* text;
    int style;
    const wchar_t* title;
    int pressed = IDOK;
};

/// Calls, answers the boxes, and fails the test unless exactly these were shown.
Answer call_in(Way way, IDispatch* object, const std::wstring& member,
               std::vector<Variant> arguments, const std::vector<ExpectedBox>& boxes);

/// A value with its type, for comparisons: "texto ...", "entero16 5", "fecha 45366,5".
std::string shown(const Variant& value);

/// The failure's number as it reaches a host.
constexpr HRESULT failure(int number) {
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

}  // namespace kovrel::test
