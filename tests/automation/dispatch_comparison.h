// The same late-bound call answered by an object of the library and by the platform's own dispatch
// over the type library.
#pragma once

#include <string>
#include <vector>

#include "tests/support/every_way.h"

namespace kovrel::test {

/// One argument, made anew for each call: a value, or a variable that the call is given.
struct ShapedArgument {
    enum class Passed { value, typed_variable, variant_variable, nothing };

    static ShapedArgument of(Variant value) { return {Passed::value, std::move(value)}; }
    /// A variable of the value's own type.
    static ShapedArgument typed(Variant value) {
        return {Passed::typed_variable, std::move(value)};
    }
    static ShapedArgument variant(Variant value) {
        return {Passed::variant_variable, std::move(value)};
    }
    /// A reference of a type to nothing.
    static ShapedArgument nothing(VARTYPE type) {
        Variant held;
        held.vt = type;
        held.llVal = 0;
        return {Passed::nothing, std::move(held)};
    }

    Passed passed;
    Variant held;
};

/// What a host hands to Invoke.
struct CallShape {
    std::string name;
    const wchar_t* class_name;
    const wchar_t* member;
    WORD flags = DISPATCH_METHOD;
    std::vector<ShapedArgument> arguments{};  ///< in their natural order, the named ones at the end
    std::vector<DISPID> named{};              ///< of the last arguments, in their natural order
    bool takes_result = true;
    bool takes_exception = true;
    bool takes_bad_argument = true;
    /// What is malformed in DISPPARAMS.
    void (*change)(DISPPARAMS& parameters) = nullptr;
    bool without_parameters = false;
};

/// Every kind of call, count and naming of arguments, type and way of passing them.
std::vector<CallShape> all_shapes();

enum class Dispatch { own, platform };

/// Everything that comes back, as text: HRESULT, result, exception record and variables.
std::string answer_to(const CallShape& shape, Dispatch dispatch);

}  // namespace kovrel::test
