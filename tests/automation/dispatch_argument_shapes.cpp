// Arguments of every type, passed as values and as variables.
#include "tests/automation/dispatch_shapes.h"

namespace kovrel::test {

using namespace shapes;

std::vector<CallShape> shapes_of_values() {
    std::vector<CallShape> shapes;
    const std::vector<std::pair<const char*, Variant>> given{
        {"nothing", Variant()},
        {"null", Variant::null()},
        {"a byte", Variant(std::uint8_t{4})},
        {"a small number", Variant(std::int16_t{4})},
        {"a number", Variant(4)},
        {"a large number", Variant(70000)},
        {"a real number", Variant(4.5)},
        {"a short real number", Variant(4.5F)},
        {"a flag", Variant(true)},
        {"a date", Variant(Date{4})},
        {"a number as text", Variant(L"4")},
        {"a text", Variant(L"cuatro")},
        {"no object", Variant(ComPtr<IDispatch>())},
        {"an object", object().held},
    };
    for (const auto& [name, value] : given) {
        const std::string what = name;
        shapes.push_back(
            {what + " for a number", dates, L"EsBisiesto", method, {Shaped::of(value)}});
        shapes.push_back({what + " for a number's variable",
                          dates,
                          L"ConvierteAñoA2",
                          method,
                          {Shaped::of(value)}});
        shapes.push_back(
            {what + " for a byte's variable", dates, L"mes_letra", method, {Shaped::of(value)}});
        shapes.push_back(
            {what + " for a text", files, L"AddBackSlash", method, {Shaped::of(value)}});
        shapes.push_back({what + " for a text's variable",
                          literals,
                          L"Conv_String",
                          method,
                          {Shaped::of(value)}});
        shapes.push_back({what + " for a flag's variable",
                          literals,
                          L"Conv_Boolean",
                          method,
                          {Shaped::of(value)}});
        shapes.push_back({what + " for a date's variable",
                          dates,
                          L"PrimerDiaSemana",
                          method,
                          {Shaped::of(value)}});
        shapes.push_back({what + " for a variant's variable",
                          general,
                          L"Nz",
                          method,
                          {Shaped::of(value), small(7)}});
    }
    return shapes;
}

std::vector<CallShape> shapes_of_variables() {
    std::vector<CallShape> shapes{
        {"a variable of its type", dates, L"ConvierteAñoA4", method, {small_variable(24)}},
        {"a variable of its type for a value",
         dates,
         L"EsBisiesto",
         method,
         {small_variable(2024)}},
        {"a wider variable", dates, L"ConvierteAñoA4", method, {Shaped::typed(Variant(24))}},
        {"a narrower variable",
         dates,
         L"ConvierteAñoA4",
         method,
         {Shaped::typed(Variant(std::uint8_t{24}))}},
        {"a wider variable for a value",
         dates,
         L"EsBisiesto",
         method,
         {Shaped::typed(Variant(2024))}},
        {"a text variable for a number",
         dates,
         L"ConvierteAñoA4",
         method,
         {Shaped::typed(Variant(L"24"))}},
        {"a text variable",
         general,
         L"QuitaCaracteresyEspacios",
         method,
         {Shaped::typed(Variant(L"a-b"))}},
        {"a number's variable for a text",
         general,
         L"QuitaCaracteresyEspacios",
         method,
         {Shaped::typed(Variant(5))}},
        {"a script's variable",
         dates,
         L"ConvierteAñoA4",
         method,
         {Shaped::variant(Variant(std::int16_t{24}))}},
        {"a script's variable for a value",
         dates,
         L"EsBisiesto",
         method,
         {Shaped::variant(Variant(std::int16_t{2024}))}},
        {"a script's variable for a text",
         general,
         L"QuitaCaracteresyEspacios",
         method,
         {Shaped::variant(Variant(L"a-b"))}},
        {"variables for variants",
         files,
         L"SplitPath",
         method,
         {text(L"a\\b.c"), Shaped::typed(Variant(L"")), Shaped::variant(Variant()),
          Shaped::typed(Variant(L""))}},
        {"values for variables",
         files,
         L"SplitPath",
         method,
         {text(L"a\\b.c"), text(L""), Shaped::of(Variant()), text(L"")}},
        {"a number's variable for a variant",
         files,
         L"SplitPath",
         method,
         {text(L"12"), Shaped::typed(Variant(L"")), Shaped::typed(Variant(5))}},
        {"a missing variable",
         files,
         L"QuitarCaracterEx",
         method,
         {text(L"abc"), text(L"b"), Shaped::variant(Variant::missing())}},
    };
    for (const VARTYPE type : {VT_I2, VT_BSTR, VT_VARIANT, VT_DISPATCH}) {
        shapes.push_back({"a reference to nothing, " + std::to_string(type),
                          dates,
                          L"EsBisiesto",
                          method,
                          {Shaped::nothing(static_cast<VARTYPE>(type))}});
    }
    return shapes;
}

}  // namespace kovrel::test
