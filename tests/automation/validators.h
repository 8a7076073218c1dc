// Scripted fields and combo boxes, the boxes that the validators show, and the fixture that calls
// them.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/support/box_lines.h"
#include "tests/support/host_controls.h"
#include "tests/support/late.h"

namespace kovrel::test {

inline Variant nothing() {
    return Variant{ComPtr<IDispatch>()};
}

/// A field whose default value and Tag are given; SetFocus works.
inline ComPtr<ScriptedObject> make_field(Variant value, const wchar_t* tag = L"Nombre") {
    auto field = ScriptedObject::make();
    field->property(L"Value", std::move(value))
        .property(L"Tag", Variant(tag))
        .property(L"MaxLength", Variant(std::int32_t{5}))
        .method(L"SetFocus")
        .default_member(L"Value");
    return field;
}

/// A combo box with a list; its default value is what `value` says.
inline ComPtr<ScriptedObject> make_combo(Variant value, const wchar_t* text, std::int32_t items,
                                         bool matched = false) {
    auto combo = make_field(std::move(value), L"Provincia");
    combo->property(L"Text", Variant(text))
        .property(L"ListCount", Variant(items))
        .property(L"MatchedWithList", Variant(matched))
        .method(L"DropDown");
    return combo;
}

inline const std::string list_box = narrow(L"64|Gestión|¡Seleccione un elemento de la lista!|1");
inline const std::string value_box = narrow(L"48|Gestión|¡Valor no válido para este campo!|1");
inline const std::string choose_box = narrow(L"48|Gestión|Seleccione un elemento de la lista.|1");
inline const std::string date_box = narrow(L"48|Gestión|Escriba la fecha correctamente.|1");

inline std::string empty_box(const wchar_t* tag) {
    return narrow(std::wstring(L"48|Gestión|El dato  \"") + tag + L"\" no puede quedar vacío.|1");
}

inline std::string wrong_box(const wchar_t* tag) {
    return narrow(std::wstring(L"48|Gestión|Escriba el dato \"") + tag + L"\" correctamente.|1");
}

inline std::string failure_line(const wchar_t* number_and_text, const wchar_t* member) {
    return narrow(std::wstring(L"16|kovrel|Error ") + number_and_text + L") en procedimiento " +
                  member + L" del Módulo de clase clsFGen.|1");
}

inline constexpr const wchar_t* no_member = L"438\\r (El objeto no admite esta propiedad o método";
inline constexpr const wchar_t* no_focus = L"5\\r (El control no puede recibir el foco";
inline constexpr const wchar_t* no_object =
    L"91\\r (Variable de objeto o bloque With no establecido";

struct Comparison {
    const wchar_t* member;
    const wchar_t* words;
    bool fails_when_less;
    bool fails_when_equal;
    bool fails_when_greater;
};

inline constexpr Comparison comparisons[] = {
    {L"FechaMayorQue", L"posterior", true, true, false},
    {L"FechaMayorIgualQue", L"posterior o igual", true, false, false},
    {L"FechaMenorQue", L"anterior", false, true, true},
    {L"FechaMenorIgualQue", L"anterior o igual", false, false, true},
};

class Validators : public testing::Test {
 protected:
    Validators() { put(general_.get(), L"AppOrigen", Variant(L"Gestión")); }

    bool fails(const wchar_t* member, const std::vector<LateArgument>& arguments) {
        const Outcome outcome = call(general_.get(), member, arguments);
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_BOOL);
        return outcome.value.boolVal != VARIANT_FALSE;
    }

    /// Expects that the field passes without a box.
    void expect_pass(const wchar_t* member, const std::vector<LateArgument>& arguments) {
        BoxWatcher no_box;
        EXPECT_FALSE(fails(member, arguments));
    }

    /// Calls, answers as many boxes as announced, and compares them and the result.
    void expect_boxes(const wchar_t* member, const std::vector<LateArgument>& arguments,
                      const Lines& lines, bool result = true) {
        BoxWatcher boxes(std::vector<Expectation>(lines.size(), answer(IDOK)));
        EXPECT_EQ(fails(member, arguments), result);
        EXPECT_EQ(lines_of(boxes), lines);
    }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
};

}  // namespace kovrel::test
