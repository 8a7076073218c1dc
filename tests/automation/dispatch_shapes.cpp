// Every kind of call, every count and naming of arguments, and every malformed DISPPARAMS.
#include "tests/automation/dispatch_shapes.h"

#include <array>

namespace kovrel::test {

using namespace shapes;

namespace {

std::vector<CallShape> kinds_of_call() {
    std::vector<CallShape> shapes;
    constexpr std::array<WORD, 12> combinations{0x0, 0x1, 0x2, 0x3,  0x4,  0x5,
                                                0x6, 0x8, 0xC, 0x0F, 0x10, 0xFFFF};
    for (const WORD flags : combinations) {
        const std::string kind = ", flags " + std::to_string(flags);
        shapes.push_back({"a method" + kind, dates, L"EsBisiesto", flags, {small(2024)}});
        shapes.push_back({"a property" + kind, dates, L"AppOrigen", flags});
        shapes.push_back({"a property's value" + kind,
                          dates,
                          L"AppOrigen",
                          flags,
                          {text(L"a")},
                          {DISPID_PROPERTYPUT}});
    }
    for (const WORD flags : {value_put, object_put, WORD{value_put | object_put}}) {
        const std::string kind = ", flags " + std::to_string(flags);
        shapes.push_back(
            {"an object" + kind, general, L"Mensajes", flags, {object()}, {DISPID_PROPERTYPUT}});
    }
    shapes.push_back(
        {"a field's value", files, L"hWnd", value_put, {number(5)}, {DISPID_PROPERTYPUT}});
    shapes.push_back({"a field's value of another type",
                      files,
                      L"hWnd",
                      value_put,
                      {text(L"5")},
                      {DISPID_PROPERTYPUT}});
    shapes.push_back({"what can only be written", files, L"Filter", value_read});
    shapes.push_back({"what can only be read",
                      L"clsMensajes",
                      L"ArchiVersion",
                      value_put,
                      {text(L"a")},
                      {DISPID_PROPERTYPUT}});
    return shapes;
}

std::vector<CallShape> counts() {
    return {
        {"none of one", dates, L"EsBisiesto", method},
        {"two of one", dates, L"EsBisiesto", method, {small(2024), small(1)}},
        {"one of two", dates, L"Dias_Mes", method, {small(2)}},
        {"three of two", dates, L"Dias_Mes", method, {small(2), small(2024), small(1)}},
        {"one of none", general, L"BarraProgresoFinaliza", method, {small(1)}},
        {"only the required ones", files, L"QuitarCaracterEx", method, {text(L"abc"), text(L"b")}},
        {"all of them", files, L"QuitarCaracterEx", method, {text(L"abc"), text(L"b"), text(L"x")}},
        {"one too few", files, L"QuitarCaracterEx", method, {text(L"abc")}},
        {"the optional one missing",
         files,
         L"QuitarCaracterEx",
         method,
         {text(L"abc"), text(L"b"), missing()}},
        {"a required one missing", files, L"QuitarCaracterEx", method, {missing(), text(L"b")}},
        {"the last required one missing",
         files,
         L"QuitarCaracterEx",
         method,
         {text(L"abc"), missing()}},
        {"a required number missing", dates, L"EsBisiesto", method, {missing()}},
        {"a required variable missing", dates, L"Dias_Mes", method, {small(2), missing()}},
        {"a variant missing", general, L"Nz", method, {missing(), small(7)}},
        {"optional variables with a default left out",
         general,
         L"Solo_Numero",
         method,
         {small_variable(49)}},
        {"an optional variable with a default missing",
         general,
         L"Solo_Numero",
         method,
         {small_variable(49), missing()}},
        {"an optional flag with a default left out",
         general,
         L"Verifica_NIF",
         method,
         {text(L"12345678Z")}},
        {"nothing to read", dates, L"AppOrigen", value_read},
        {"an argument too many to read", dates, L"AppOrigen", value_read, {small(1)}},
        {"nothing to put", dates, L"AppOrigen", value_put},
        {"two values to put",
         dates,
         L"AppOrigen",
         value_put,
         {text(L"a"), text(L"b")},
         {DISPID_PROPERTYPUT}},
    };
}

std::vector<CallShape> named() {
    return {
        {"by name", dates, L"EsBisiesto", method, {small(2024)}, {0}},
        {"by name in order", dates, L"Dias_Mes", method, {small(2), small(2024)}, {0, 1}},
        {"by name in reverse", dates, L"Dias_Mes", method, {small(2024), small(2)}, {1, 0}},
        {"the last by name", dates, L"Dias_Mes", method, {small(2), small(2024)}, {1}},
        {"the last by name for a taken place",
         dates,
         L"Dias_Mes",
         method,
         {small(2), small(2024)},
         {0}},
        {"twice the same name", dates, L"Dias_Mes", method, {small(2), small(2024)}, {1, 1}},
        {"only the last by name", dates, L"Dias_Mes", method, {small(2024)}, {1}},
        {"a name too far", dates, L"EsBisiesto", method, {small(2024)}, {7}},
        {"a negative name", dates, L"EsBisiesto", method, {small(2024)}, {-9}},
        {"a put name for a method",
         dates,
         L"EsBisiesto",
         method,
         {small(2024)},
         {DISPID_PROPERTYPUT}},
        {"the optional one by name",
         files,
         L"QuitarCaracterEx",
         method,
         {text(L"abc"), text(L"b"), text(L"x")},
         {2}},
        {"a required one left out by name",
         files,
         L"QuitarCaracterEx",
         method,
         {text(L"abc"), text(L"x")},
         {2}},
        {"a name that is none beside others",
         files,
         L"QuitarCaracterEx",
         method,
         {text(L"abc"), text(L"b"), text(L"x")},
         {5}},
        {"put by the parameter's place", dates, L"AppOrigen", value_put, {text(L"a")}, {0}},
        {"put without a name", dates, L"AppOrigen", value_put, {text(L"a")}},
        {"put by another name", dates, L"AppOrigen", value_put, {text(L"a")}, {3}},
        {"read with a put name",
         dates,
         L"AppOrigen",
         value_read,
         {text(L"a")},
         {DISPID_PROPERTYPUT}},
    };
}

std::vector<CallShape> records() {
    std::vector<CallShape> shapes;
    const auto add = [&](CallShape shape) { shapes.push_back(std::move(shape)); };
    const CallShape plain{"", dates, L"EsBisiesto", method, {small(2024)}};
    const CallShape failing{"", dates, L"primerdia_mesanterior", method, {small(0), small(2024)}};
    const CallShape mistaken{"", dates, L"EsBisiesto", method, {text(L"no")}};
    for (const CallShape& shape : {plain, failing, mistaken}) {
        const std::string of = shape.member == plain.member && shape.arguments[0].held.vt == VT_I2
                                   ? "a call"
                               : shape.member == failing.member ? "a failure"
                                                                : "a mistake";
        CallShape changed = shape;
        changed.name = of;
        add(changed);
        changed.name = of + " without room for the result";
        changed.takes_result = false;
        add(changed);
        changed.name = of + " without room for anything";
        changed.takes_exception = false;
        changed.takes_bad_argument = false;
        add(changed);
        changed.takes_result = true;
        changed.name = of + " with room for the result alone";
        add(changed);
    }
    CallShape changed = plain;
    changed.name = "no record";
    changed.without_parameters = true;
    add(changed);
    changed = plain;
    changed.name = "more names than arguments";
    changed.named = {0, 0};
    changed.change = [](DISPPARAMS& parameters) { parameters.cNamedArgs = 2; };
    add(changed);
    changed = {"a put with a result", dates, L"AppOrigen", value_put, {text(L"a")},
               {DISPID_PROPERTYPUT}};
    changed.takes_result = true;
    add(changed);
    return shapes;
}

}  // namespace

std::vector<CallShape> all_shapes() {
    std::vector<CallShape> shapes;
    for (const auto& group : {kinds_of_call(), counts(), named(), shapes_of_values(),
                              shapes_of_variables(), records()}) {
        shapes.insert(shapes.end(), group.begin(), group.end());
    }
    return shapes;
}

}  // namespace kovrel::test
