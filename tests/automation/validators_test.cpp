// clsFGen's field validators as hosts call them: results, messages, focus, drop-downs and failures.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include "tests/automation/box_lines.h"
#include "tests/automation/early.h"
#include "tests/support/host_controls.h"

namespace kovrel::test {
namespace {

Variant object(const ComPtr<ScriptedObject>& held) {
    return Variant(ComPtr<IDispatch>(held.get()));
}

Variant nothing() {
    return Variant{ComPtr<IDispatch>()};
}

/// A field whose default value and Tag are given; SetFocus works.
ComPtr<ScriptedObject> make_field(Variant value, const wchar_t* tag = L"Nombre") {
    auto field = ScriptedObject::make();
    field->property(L"Value", std::move(value))
        .property(L"Tag", Variant(tag))
        .property(L"MaxLength", Variant(std::int32_t{5}))
        .method(L"SetFocus")
        .default_member(L"Value");
    return field;
}

/// A combo box with a list; its default value is what `value` says.
ComPtr<ScriptedObject> make_combo(Variant value, const wchar_t* text, std::int32_t items,
                                  bool matched = false) {
    auto combo = make_field(std::move(value), L"Provincia");
    combo->property(L"Text", Variant(text))
        .property(L"ListCount", Variant(items))
        .property(L"MatchedWithList", Variant(matched))
        .method(L"DropDown");
    return combo;
}

const std::string list_box = narrow(L"64|Gestión|¡Seleccione un elemento de la lista!|1");
const std::string value_box = narrow(L"48|Gestión|¡Valor no válido para este campo!|1");
const std::string choose_box = narrow(L"48|Gestión|Seleccione un elemento de la lista.|1");
const std::string date_box = narrow(L"48|Gestión|Escriba la fecha correctamente.|1");

std::string empty_box(const wchar_t* tag) {
    return narrow(std::wstring(L"48|Gestión|El dato  \"") + tag + L"\" no puede quedar vacío.|1");
}

std::string wrong_box(const wchar_t* tag) {
    return narrow(std::wstring(L"48|Gestión|Escriba el dato \"") + tag + L"\" correctamente.|1");
}

std::string failure_line(const wchar_t* number_and_text, const wchar_t* member) {
    return narrow(std::wstring(L"16|kovrel|Error ") + number_and_text + L") en procedimiento " +
                  member + L" del Módulo de clase clsFGen.|1");
}

constexpr const wchar_t* no_member = L"438\\r (El objeto no admite esta propiedad o método";
constexpr const wchar_t* no_focus = L"5\\r (El control no puede recibir el foco";
constexpr const wchar_t* no_object = L"91\\r (Variable de objeto o bloque With no establecido";

class Validators : public testing::Test {
 protected:
    Validators() { put(general_.get(), L"AppOrigen", Variant(L"Gestión")); }

    bool fails(const wchar_t* member, const std::vector<LateArgument>& arguments) {
        const Outcome outcome = call(general_.get(), member, arguments);
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_BOOL);
        return outcome.value.boolVal != VARIANT_FALSE;
    }

    /// Calls and expects a passing field and no box.
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

TEST_F(Validators, ARequiredFieldMustHoldMoreThanBlanks) {
    for (const Variant& value : {Variant(L""), Variant(L"   "), Variant(), Variant::null()}) {
        const auto field = make_field(value);
        expect_boxes(L"Requerido", {object(field)}, {empty_box(L"Nombre")});
        EXPECT_EQ(field->log(), (Log{L"get Value", L"get Tag", L"SetFocus()"}));
        EXPECT_EQ(field->references(), 1U);
    }
    for (const Variant& value : {Variant(L" x "), Variant(L"\t"), Variant(0.0), Variant(false)}) {
        const auto field = make_field(value);
        expect_pass(L"Requerido", {object(field)});
        EXPECT_EQ(field->log(), Log{L"get Value"});
    }
}

TEST_F(Validators, ANamelessFieldIsToldWithoutAName) {
    expect_boxes(L"Requerido", {object(make_field(Variant(L""), L""))},
                 {narrow(L"48|Gestión|El dato  no puede quedar vacío.|1")});
    auto numbered = make_field(Variant(L""));
    numbered->property(L"Tag", Variant(std::int16_t{7}));
    expect_boxes(L"Requerido", {object(numbered)}, {empty_box(L"7")});
}

TEST_F(Validators, AnExactLength) {
    const auto field = make_field(Variant(L"1234"));
    const std::int16_t one = 1;
    expect_pass(L"LongitudExacta", {object(field), false, one});
    expect_boxes(L"LongitudExacta", {object(field), false, std::int16_t{0}},
                 {wrong_box(L"Nombre")});
    expect_boxes(L"LongitudExacta", {object(field)}, {wrong_box(L"Nombre")});
    field->property(L"Value", Variant(L"12345"));
    field->clear_log();
    expect_pass(L"LongitudExacta", {object(field)});
    EXPECT_EQ(field->log(), (Log{L"get Value", L"get MaxLength"}));
    expect_boxes(L"LongitudExacta", {object(field), true, one}, {wrong_box(L"Nombre")});
    expect_pass(L"LongitudExacta",
                {object(make_field(Variant(L"123456"))), true, std::int16_t{-1}});
    // Any number: a length is that of its text.
    expect_pass(L"LongitudExacta", {object(make_field(Variant(12.34)))});
    auto texts = make_field(Variant(L"12345"));
    texts->property(L"MaxLength", Variant(L"5"));
    expect_pass(L"LongitudExacta", {object(texts)});
}

TEST_F(Validators, AnEmptyLength) {
    const auto field = make_field(Variant(L""));
    expect_pass(L"LongitudExacta", {object(field), true});
    EXPECT_EQ(field->log(), Log{L"get Value"});
    field->clear_log();
    expect_boxes(L"LongitudExacta", {object(field), false}, {empty_box(L"Nombre")});
    EXPECT_EQ(field->log(), (Log{L"get Value", L"get Tag", L"SetFocus()"}));
    // An omitted permission counts as none.
    expect_boxes(L"LongitudExacta", {object(field)}, {empty_box(L"Nombre")});
    expect_boxes(L"LongitudExacta", {object(make_field(Variant::null())), false},
                 {empty_box(L"Nombre")});
}

TEST_F(Validators, ALengthForgivesAFieldThatTakesNoFocus) {
    const auto field = make_field(Variant(L"1"));
    field->fails(L"SetFocus", failure(5, L"El control no puede recibir el foco"));
    expect_boxes(L"LongitudExacta", {object(field)}, {wrong_box(L"Nombre")});
    field->property(L"Value", Variant(L""));
    expect_boxes(L"LongitudExacta", {object(field)}, {empty_box(L"Nombre")});
    field->remove(L"SetFocus");
    expect_boxes(L"LongitudExacta", {object(field)}, {empty_box(L"Nombre")});
}

TEST_F(Validators, ACorrectDate) {
    for (const Variant& value : {Variant(L"21/11/2026"), Variant(L"1/2/2024"), Variant(Date{45000}),
                                 Variant(L"29/02/2024")}) {
        expect_pass(L"FechaCorrecta", {object(make_field(value))});
    }
    for (const wchar_t* const text : {L"29/02/2023", L"31/4/2024", L"hoy", L"2_/__/____", L"  "}) {
        const auto field = make_field(Variant(text));
        expect_boxes(L"FechaCorrecta", {object(field)}, {date_box});
        EXPECT_EQ(field->log(), (Log{L"get Value", L"SetFocus()"}));
    }
    // A number is no date.
    expect_boxes(L"FechaCorrecta", {object(make_field(Variant(45000.0)))}, {date_box});
}

TEST_F(Validators, AnEmptyDateIsTheUntouchedMaskToo) {
    for (const Variant& value :
         {Variant(L"__/__/____"), Variant(L""), Variant::null(), Variant()}) {
        const auto field = make_field(value, L"Alta");
        expect_pass(L"FechaCorrecta", {object(field), true});
        expect_boxes(L"FechaCorrecta", {object(field), false}, {empty_box(L"Alta")});
        expect_boxes(L"FechaCorrecta", {object(field)}, {empty_box(L"Alta")});
        field->fails(L"SetFocus", failure(5, L"x"));
        expect_boxes(L"FechaCorrecta", {object(field)}, {empty_box(L"Alta")});
    }
}

TEST_F(Validators, AWrongDateThatTakesNoFocusIsAFailure) {
    const auto field = make_field(Variant(L"hoy"));
    field->fails(L"SetFocus", failure(5, L"El control no puede recibir el foco"));
    expect_boxes(L"FechaCorrecta", {object(field)},
                 {date_box, failure_line(no_focus, L"FechaCorrecta")}, false);
}

struct Comparison {
    const wchar_t* member;
    const wchar_t* words;
    bool fails_when_less;
    bool fails_when_equal;
    bool fails_when_greater;
};

constexpr Comparison comparisons[] = {
    {L"FechaMayorQue", L"posterior", true, true, false},
    {L"FechaMayorIgualQue", L"posterior o igual", true, false, false},
    {L"FechaMenorQue", L"anterior", false, true, true},
    {L"FechaMenorIgualQue", L"anterior o igual", false, false, true},
};

TEST_F(Validators, DatesInOrder) {
    for (const Comparison& comparison : comparisons) {
        SCOPED_TRACE(narrow(comparison.member));
        const std::string box = narrow(std::wstring(L"48|Gestión|La fecha de baja debe ser ") +
                                       comparison.words + L" a la fecha de alta.|1");
        const auto expect = [&](const Variant& date, const Variant& other, bool fails) {
            const auto field = make_field(date, L"fecha de baja");
            const auto other_field = make_field(other, L"fecha de alta");
            expect_boxes(comparison.member, {object(field), object(other_field)},
                         fails ? Lines{box} : Lines{}, fails);
            EXPECT_EQ(field->calls_of(L"SetFocus()"), fails ? 1U : 0U);
            EXPECT_EQ(other_field->calls_of(L"SetFocus()"), 0U);
            EXPECT_EQ(field->references(), 1U);
            EXPECT_EQ(other_field->references(), 1U);
        };
        expect(Variant(L"01/02/2024"), Variant(L"02/01/2024"), comparison.fails_when_greater);
        expect(Variant(L"2/1/2024"), Variant(L"02/01/2024"), comparison.fails_when_equal);
        expect(Variant(L"31/12/2023"), Variant(L"01/01/2024"), comparison.fails_when_less);
        // The time of day counts.
        expect(Variant(Date{45000.5}), Variant(Date{45000.25}), comparison.fails_when_greater);
        expect(Variant(L"15/03/2023 10:00"), Variant(Date{45000}), comparison.fails_when_greater);
        // What is no date is nothing to compare.
        for (const Variant& value : {Variant(L""), Variant::null(), Variant(L"hoy"), Variant(1.0),
                                     Variant(L"__/__/____"), Variant()}) {
            expect(value, Variant(L"01/01/2024"), false);
            expect(Variant(L"01/01/2024"), value, false);
        }
    }
}

TEST_F(Validators, ADateComparedWithAPlainDate) {
    const auto field = make_field(Variant(L"01/01/2024"));
    expect_pass(L"FechaMayorQue", {object(field), Variant(Date{40000})});
    expect_pass(L"FechaMayorQue", {object(field), Variant::null()});
    // A plain date has no name to tell.
    expect_boxes(L"FechaMenorQue", {object(field), Variant(Date{40000})},
                 {failure_line(L"424\\r (Se requiere un objeto", L"FechaMenorQue")}, false);
    expect_boxes(L"FechaMenorQue", {object(field), nothing()},
                 {failure_line(no_object, L"FechaMenorQue")}, false);
}

TEST_F(Validators, ADateThatTakesNoFocusIsAFailure) {
    const auto field = make_field(Variant(L"01/01/2024"), L"una");
    const auto other = make_field(Variant(L"01/01/2024"), L"otra");
    field->fails(L"SetFocus", failure(5, L"El control no puede recibir el foco"));
    expect_boxes(L"FechaMayorQue", {object(field), object(other)},
                 {narrow(L"48|Gestión|La una debe ser posterior a la otra.|1"),
                  failure_line(no_focus, L"FechaMayorQue")},
                 false);
}

TEST_F(Validators, AnEmptyOptionalComboPasses) {
    for (const Variant& value : {Variant(L""), Variant(), Variant::null()}) {
        const auto combo = make_combo(value, L"", 3);
        expect_pass(L"ValidateComboALista", {object(combo)});
        expect_pass(L"ValidateComboALista", {object(combo), false});
        expect_pass(L"ValidateDataComboALista", {object(combo)});
        expect_boxes(L"ValidateComboALista", {object(combo), true}, {empty_box(L"Provincia")});
        expect_boxes(L"ValidateDataComboALista", {object(combo), true}, {empty_box(L"Provincia")});
        EXPECT_EQ(combo->calls_of(L"DropDown()"), 0U);
    }
}

TEST_F(Validators, AListItemPasses) {
    for (const bool required : {false, true}) {
        const auto combo = make_combo(Variant(L"León"), L"León", 3, true);
        expect_pass(L"ValidateComboALista", {object(combo), required});
        expect_pass(L"ValidateDataComboALista", {object(combo), required});
        EXPECT_EQ(combo->calls_of(L"SetFocus()"), 0U);
    }
    // Without a text there is nothing to find in the list.
    expect_pass(L"ValidateComboALista", {object(make_combo(Variant(L"x"), L"", 3)), true});
}

TEST_F(Validators, ATextThatIsNotInTheList) {
    auto combo = make_combo(Variant::null(), L"Lon", 3);
    expect_boxes(L"ValidateComboALista", {object(combo)}, {list_box});
    EXPECT_EQ(combo->log(), (Log{L"get Value", L"get Text", L"get Value", L"get ListCount",
                                 L"SetFocus()", L"DropDown()"}));
    combo = make_combo(Variant::null(), L"Lon", 0);
    expect_boxes(L"ValidateComboALista", {object(combo)}, {value_box});
    EXPECT_EQ(combo->log(), (Log{L"get Value", L"get Text", L"get Value", L"get ListCount"}));
    // A required one whose value is no longer there when it is asked for again.
    combo = make_combo(Variant(), L"Lon", 3);
    int reads = 0;
    combo
        ->property(L"Value",
                   [&](const auto&) { return ++reads == 1 ? Variant(L"Lon") : Variant(); })
        .default_member(L"Value");
    expect_boxes(L"ValidateComboALista", {object(combo), true}, {list_box});
    EXPECT_EQ(combo->calls_of(L"DropDown()"), 1U);
}

TEST_F(Validators, AComboThatFailsAfterItsBoxHasFailedItsCheck) {
    auto combo = make_combo(Variant::null(), L"Lon", 3);
    combo->fails(L"SetFocus", failure(5, L"El control no puede recibir el foco"));
    expect_boxes(L"ValidateComboALista", {object(combo)},
                 {list_box, failure_line(no_focus, L"ValidateComboALista")});
    combo->method(L"SetFocus").remove(L"DropDown");
    expect_boxes(L"ValidateComboALista", {object(combo)},
                 {list_box, failure_line(no_member, L"ValidateComboALista")});
}

TEST_F(Validators, ADataComboMustMatchItsList) {
    const auto combo = make_combo(Variant(L"Lon"), L"Lon", 3);
    for (const bool required : {false, true}) {
        combo->clear_log();
        expect_boxes(L"ValidateDataComboALista", {object(combo), required}, {choose_box});
        EXPECT_EQ(combo->log(),
                  (Log{L"get Value", L"get MatchedWithList", L"SetFocus()", L"DropDown()"}));
    }
    combo->fails(L"SetFocus", failure(5, L"El control no puede recibir el foco"));
    expect_boxes(L"ValidateDataComboALista", {object(combo)},
                 {choose_box, failure_line(no_focus, L"ValidateDataComboALista")}, false);
}

TEST_F(Validators, FieldsThatLackAMember) {
    auto bare = ScriptedObject::make();
    for (const wchar_t* const member : {L"Requerido", L"LongitudExacta", L"FechaCorrecta",
                                        L"ValidateComboALista", L"ValidateDataComboALista"}) {
        expect_boxes(member, {object(bare)}, {failure_line(no_member, member)}, false);
        expect_boxes(member, {nothing()}, {failure_line(no_object, member)}, false);
    }
    for (const Comparison& comparison : comparisons) {
        const auto field = make_field(Variant(L"01/01/2024"));
        expect_boxes(comparison.member, {object(bare), object(field)},
                     {failure_line(no_member, comparison.member)}, false);
        expect_boxes(comparison.member, {object(field), object(bare)},
                     {failure_line(no_member, comparison.member)}, false);
    }
    const auto nameless = make_field(Variant(L""));
    nameless->remove(L"Tag");
    expect_boxes(L"Requerido", {object(nameless)}, {failure_line(no_member, L"Requerido")}, false);
    EXPECT_EQ(nameless->calls_of(L"SetFocus()"), 0U);
    const auto limitless = make_field(Variant(L"x"));
    limitless->remove(L"MaxLength");
    expect_boxes(L"LongitudExacta", {object(limitless)},
                 {failure_line(no_member, L"LongitudExacta")}, false);
    EXPECT_EQ(bare->references(), 1U);
}

TEST_F(Validators, FieldsThatAnswerWrongTypes) {
    const auto field = make_field(Variant(L"x"));
    field->property(L"MaxLength", Variant(L"mucho"));
    expect_boxes(L"LongitudExacta", {object(field)},
                 {failure_line(L"13\\r (No coinciden los tipos", L"LongitudExacta")}, false);
    field->property(L"MaxLength", Variant::null());
    expect_boxes(L"LongitudExacta", {object(field)},
                 {failure_line(L"94\\r (Uso no válido de Null", L"LongitudExacta")}, false);
    field->property(L"Value", Variant::missing());
    expect_boxes(L"Requerido", {object(field)},
                 {failure_line(L"13\\r (No coinciden los tipos", L"Requerido")}, false);
    field->property(L"Value", Variant(L"")).property(L"Tag", Variant::null());
    expect_boxes(L"Requerido", {object(field)},
                 {failure_line(L"94\\r (Uso no válido de Null", L"Requerido")}, false);
    const auto combo = make_combo(Variant(L"x"), L"x", 1);
    combo->property(L"MatchedWithList", Variant::null());
    expect_boxes(L"ValidateDataComboALista", {object(combo)},
                 {failure_line(L"94\\r (Uso no válido de Null", L"ValidateDataComboALista")},
                 false);
    const auto bare = make_combo(Variant::null(), L"x", 1);
    bare->property(L"ListCount", Variant(L"x"));
    // The check had failed by then.
    expect_boxes(L"ValidateComboALista", {object(bare)},
                 {failure_line(L"13\\r (No coinciden los tipos", L"ValidateComboALista")});
}

TEST_F(Validators, FailuresOfAFieldKeepTheirNumbers) {
    const auto field = make_field(Variant(L""));
    field->fails(L"Value", {-2147352567, L"Objeto desconectado", DISP_E_EXCEPTION, 0});
    field->default_member(L"Value");
    expect_boxes(L"Requerido", {object(field)},
                 {failure_line(L"-2147352567\\r (Objeto desconectado", L"Requerido")}, false);
    field->fails(L"Value", {0, L"Su código", DISP_E_EXCEPTION, 2185});
    field->default_member(L"Value");
    expect_boxes(L"Requerido", {object(field)}, {failure_line(L"2185\\r (Su código", L"Requerido")},
                 false);
}

TEST_F(Validators, FieldsThatReleaseThemselvesOrCallBack) {
    using Check = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, IDispatch**, VARIANT_BOOL*);
    const int before = ScriptedObject::alive();
    auto field = make_field(Variant(L""));
    field->method(L"SetFocus", [&](const auto&) {
        field = nullptr;
        return Variant();
    });
    IDispatch* raw = field.get();
    {
        BoxWatcher boxes({answer(IDOK)});
        VARIANT_BOOL failed = VARIANT_FALSE;
        EXPECT_EQ(early<Check>(general_.get(), L"Requerido")(general_.get(), &raw, &failed), S_OK);
        EXPECT_EQ(failed, VARIANT_TRUE);
    }
    EXPECT_EQ(ScriptedObject::alive(), before);

    const auto inner = make_field(Variant(L""), L"interior");
    const auto outer = make_field(Variant(L""), L"exterior");
    outer->method(L"SetFocus", [&](const auto&) {
        EXPECT_TRUE(fails(L"Requerido", {object(inner)}));
        return Variant();
    });
    expect_boxes(L"Requerido", {object(outer)}, {empty_box(L"exterior"), empty_box(L"interior")});
    EXPECT_EQ(inner->references(), 1U);
    EXPECT_EQ(outer->references(), 1U);
}

TEST_F(Validators, ADefaultValueThatIsAnotherObject) {
    const auto inner = make_field(Variant(L"lleno"));
    const auto outer = ScriptedObject::make();
    outer->property(L"Value", object(inner)).default_member(L"Value");
    expect_pass(L"Requerido", {object(outer)});
    // One that leads back to itself ends in a clear failure.
    const auto endless = ScriptedObject::make();
    ScriptedObject* const raw = endless.get();
    endless->property(L"Value", [raw](const auto&) { return Variant(ComPtr<IDispatch>(raw)); })
        .default_member(L"Value");
    expect_boxes(L"Requerido", {object(endless)},
                 {failure_line(L"13\\r (No coinciden los tipos", L"Requerido")}, false);
    EXPECT_EQ(endless->references(), 1U);
}

TEST_F(Validators, WithoutACatalogueTheFailureIsTold) {
    ASSERT_EQ(put(general_.get(), L"Mensajes", nothing(), DISPATCH_PROPERTYPUTREF).result, S_OK);
    expect_boxes(L"Requerido", {object(make_field(Variant(L"")))},
                 {failure_line(no_object, L"Requerido")}, false);
}

TEST_F(Validators, EarlyBound) {
    using One = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, IDispatch**, VARIANT_BOOL*);
    using WithFlag =
        HRESULT(STDMETHODCALLTYPE*)(IDispatch*, IDispatch**, VARIANT_BOOL*, VARIANT_BOOL*);
    using Length =
        HRESULT(STDMETHODCALLTYPE*)(IDispatch*, IDispatch**, VARIANT_BOOL*, SHORT*, VARIANT_BOOL*);
    using Compare = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, IDispatch**, VARIANT*, VARIANT_BOOL*);
    IDispatch* const general = general_.get();
    const auto empty = make_field(Variant(L""));
    const auto date = make_field(Variant(L"01/01/2024"));
    const auto combo = make_combo(Variant::null(), L"Lon", 0);
    IDispatch* raw_empty = empty.get();
    IDispatch* raw_date = date.get();
    IDispatch* raw_combo = combo.get();
    VARIANT_BOOL yes = VARIANT_TRUE;
    VARIANT_BOOL no = VARIANT_FALSE;
    VARIANT_BOOL result = VARIANT_FALSE;
    SHORT sum = 0;
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK)});
    EXPECT_EQ(early<One>(general, L"Requerido")(general, &raw_empty, &result), S_OK);
    EXPECT_EQ(result, VARIANT_TRUE);
    EXPECT_EQ(early<Length>(general, L"LongitudExacta")(general, &raw_empty, &yes, &sum, &result),
              S_OK);
    EXPECT_EQ(result, VARIANT_FALSE);
    EXPECT_EQ(early<WithFlag>(general, L"FechaCorrecta")(general, &raw_date, &no, &result), S_OK);
    EXPECT_EQ(result, VARIANT_FALSE);
    Variant other = object(date);
    EXPECT_EQ(early<Compare>(general, L"FechaMayorQue")(general, &raw_date, &other, &result), S_OK);
    EXPECT_EQ(result, VARIANT_TRUE);
    EXPECT_EQ(early<WithFlag>(general, L"ValidateComboALista")(general, &raw_combo, &no, &result),
              S_OK);
    EXPECT_EQ(result, VARIANT_TRUE);
    EXPECT_EQ(
        lines_of(boxes),
        (Lines{empty_box(L"Nombre"),
               narrow(L"48|Gestión|La Nombre debe ser posterior a la Nombre.|1"), value_box}));
}

// A form with real controls, into which the user types.

class HostFields : public Validators {
 protected:
    /// Types into a field as the user does and waits until it shows the text. Keys that come while
    /// the window manager is still moving the keyboard to the form are lost: they are typed again.
    void type(const HostControl& field, const std::wstring& text, const std::wstring& shown) {
        const std::wstring before = field.text();
        bool arrived = false;
        for (int attempts = 0; attempts < 5 && !arrived; ++attempts) {
            ASSERT_TRUE(bring_to_front(form_.window()));
            field.set_text(before);
            SetFocus(field.window);
            press_key(VK_END);
            type_text(text);
            arrived = pump_until([&] { return field.text() == shown; }, Milliseconds{4000});
        }
        EXPECT_TRUE(arrived) << narrow(field.text());
    }
    static Variant argument(const HostControl& field) {
        return Variant(ComPtr<IDispatch>(field.dispatch()));
    }
    /// The window manager may give the keyboard to nobody when a box has closed: the form comes to
    /// the front first, as a click of the user's would bring it.
    void expect_focus(const HostControl& field) {
        EXPECT_TRUE(bring_to_front(form_.window()));
        EXPECT_TRUE(pump_until([&] { return GetFocus() == field.window; }))
            << "the focus is on " << narrow(class_of(GetFocus()));
    }

    HostForm form_{L"Clientes"};
};

TEST_F(HostFields, TheFocusGoesBackToAnEmptyField) {
    const HostControl name = form_.add_text(L"Nombre");
    const HostControl post_code = form_.add_text(L"Código postal", 5);
    type(post_code, L"2800", L"2800");
    expect_boxes(L"Requerido", {argument(name)}, {empty_box(L"Nombre")});
    expect_focus(name);
    type(name, L"Ana", L"Ana");
    expect_pass(L"Requerido", {argument(name)});
    expect_boxes(L"LongitudExacta", {argument(post_code), false}, {wrong_box(L"Código postal")});
    expect_focus(post_code);
    type(post_code, L"15", L"28001");  // the control itself takes no more
    expect_pass(L"LongitudExacta", {argument(post_code), false});
    EXPECT_TRUE(save_picture(form_.window(), picture_folder() / L"host_form.png"));
}

TEST_F(HostFields, ADisabledFieldTakesNoFocus) {
    const HostControl name = form_.add_text(L"Nombre");
    EnableWindow(name.window, FALSE);
    expect_boxes(L"Requerido", {argument(name)},
                 {empty_box(L"Nombre"), failure_line(no_focus, L"Requerido")}, false);
    expect_boxes(L"LongitudExacta", {argument(name)}, {empty_box(L"Nombre")});
}

TEST_F(HostFields, DatesOfRealFields) {
    const HostControl masked = form_.add_masked_date(L"fecha de alta");
    const HostControl picker = form_.add_date_picker(L"fecha de baja");
    SYSTEMTIME day{};
    day.wYear = 2024;
    day.wMonth = 2;
    day.wDay = 29;
    SendMessageW(picker.window, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&day));
    expect_boxes(L"FechaCorrecta", {argument(masked)}, {empty_box(L"fecha de alta")});
    expect_focus(masked);
    masked.set_text(L"");
    type(masked, L"01/03/2024", L"01/03/2024");
    expect_pass(L"FechaCorrecta", {argument(masked)});
    expect_pass(L"FechaCorrecta", {argument(picker)});
    expect_boxes(L"FechaMayorQue", {argument(picker), argument(masked)},
                 {narrow(L"48|Gestión|La fecha de baja debe ser posterior a la fecha de alta.|1")});
    expect_focus(picker);
    SendMessageW(picker.window, DTM_SETSYSTEMTIME, GDT_NONE, reinterpret_cast<LPARAM>(&day));
    expect_pass(L"FechaMayorQue", {argument(picker), argument(masked)});
}

TEST_F(HostFields, ARealComboBoxOpensItsList) {
    const HostControl combo = form_.add_combo(L"Provincia", {L"Álava", L"León", L"Zamora"});
    const HostControl none = form_.add_combo(L"Municipio", {});
    type(combo, L"Len", L"Len");
    expect_boxes(L"ValidateComboALista", {argument(combo)}, {list_box});
    EXPECT_TRUE(combo.is_dropped_down());
    EXPECT_EQ(GetParent(GetFocus()), combo.window);
    EXPECT_TRUE(save_picture(form_.window(), picture_folder() / L"host_form_combo.png"));
    SendMessageW(combo.window, CB_SHOWDROPDOWN, FALSE, 0);
    combo.set_text(L"León");
    expect_pass(L"ValidateComboALista", {argument(combo), true});
    expect_pass(L"ValidateDataComboALista", {argument(combo), true});
    none.set_text(L"x");
    expect_boxes(L"ValidateComboALista", {argument(none)}, {value_box});
    EXPECT_FALSE(none.is_dropped_down());
}

TEST_F(HostFields, AComboBoxWithoutDropDownIsOpenedByItsKey) {
    const HostControl combo = form_.add_combo(L"Provincia", {L"Álava", L"León"});
    combo.object->property(L"Value", Variant(L"Len")).default_member(L"Value");
    combo.object->remove(L"DropDown");
    type(combo, L"Len", L"Len");
    expect_boxes(L"ValidateDataComboALista", {argument(combo)}, {choose_box});
    EXPECT_TRUE(pump_until([&] { return combo.is_dropped_down(); }));
}

}  // namespace
}  // namespace kovrel::test
