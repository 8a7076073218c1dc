// The members that calls of every shape are made to, and their arguments.
#pragma once

#include "tests/automation/dispatch_comparison.h"

namespace kovrel::test {

std::vector<CallShape> shapes_of_values();
std::vector<CallShape> shapes_of_variables();

namespace shapes {

using Shaped = ShapedArgument;

constexpr const wchar_t* dates = L"clsFFechas";
constexpr const wchar_t* files = L"cgsFileOpR";
constexpr const wchar_t* general = L"clsFGen";
constexpr const wchar_t* literals = L"clsCSQL";

constexpr WORD method = DISPATCH_METHOD;
constexpr WORD value_read = DISPATCH_PROPERTYGET;
constexpr WORD value_put = DISPATCH_PROPERTYPUT;
constexpr WORD object_put = DISPATCH_PROPERTYPUTREF;

inline Shaped small(int value) {
    return Shaped::of(Variant(static_cast<std::int16_t>(value)));
}
inline Shaped number(int value) {
    return Shaped::of(Variant(value));
}
inline Shaped small_variable(int value) {
    return Shaped::typed(Variant(static_cast<std::int16_t>(value)));
}
inline Shaped text(const wchar_t* value) {
    return Shaped::of(Variant(value));
}
inline Shaped missing() {
    return Shaped::of(Variant::missing());
}
inline Shaped object() {
    return Shaped::of(Variant(create(L"Kovrel.clsMensajes")));
}

}  // namespace shapes
}  // namespace kovrel::test
