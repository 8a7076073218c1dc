// clsFGen's field validators: what passes, the box shown, and where the focus goes.
#include "tests/automation/validators.h"

#include "tests/support/import_patch.h"

namespace kovrel::test {
namespace {

TEST_F(Validators, ARequiredFieldMustHoldMoreThanBlanks) {
    for (const Variant& value : {Variant(L""), Variant(L"   "), Variant(), Variant::null()}) {
        const auto field = make_field(value);
        expect_boxes(L"Requerido", {to_variant(field)}, {empty_box(L"Nombre")});
        EXPECT_EQ(field->log(), (Log{L"get Value", L"get Tag", L"SetFocus()"}));
        EXPECT_EQ(field->references(), 1U);
    }
    for (const Variant& value : {Variant(L" x "), Variant(L"\t"), Variant(0.0), Variant(false)}) {
        const auto field = make_field(value);
        expect_pass(L"Requerido", {to_variant(field)});
        EXPECT_EQ(field->log(), Log{L"get Value"});
    }
}

TEST_F(Validators, AFieldWithoutATagIsReportedWithoutAName) {
    expect_boxes(L"Requerido", {to_variant(make_field(Variant(L""), L""))},
                 {narrow(L"48|Gestión|El dato  no puede quedar vacío.|1")});
    auto numbered = make_field(Variant(L""));
    numbered->property(L"Tag", Variant(std::int16_t{7}));
    expect_boxes(L"Requerido", {to_variant(numbered)}, {empty_box(L"7")});
}

TEST_F(Validators, AnExactLength) {
    const auto field = make_field(Variant(L"1234"));
    const std::int16_t one = 1;
    expect_pass(L"LongitudExacta", {to_variant(field), false, one});
    expect_boxes(L"LongitudExacta", {to_variant(field), false, std::int16_t{0}},
                 {wrong_box(L"Nombre")});
    expect_boxes(L"LongitudExacta", {to_variant(field)}, {wrong_box(L"Nombre")});
    field->property(L"Value", Variant(L"12345"));
    field->clear_log();
    expect_pass(L"LongitudExacta", {to_variant(field)});
    EXPECT_EQ(field->log(), (Log{L"get Value", L"get MaxLength"}));
    expect_boxes(L"LongitudExacta", {to_variant(field), true, one}, {wrong_box(L"Nombre")});
    expect_pass(L"LongitudExacta",
                {to_variant(make_field(Variant(L"123456"))), true, std::int16_t{-1}});
    // The length of a number is that of its text.
    expect_pass(L"LongitudExacta", {to_variant(make_field(Variant(12.34)))});
    auto texts = make_field(Variant(L"12345"));
    texts->property(L"MaxLength", Variant(L"5"));
    expect_pass(L"LongitudExacta", {to_variant(texts)});
}

TEST_F(Validators, AnEmptyFieldWhereALengthIsRequired) {
    const auto field = make_field(Variant(L""));
    expect_pass(L"LongitudExacta", {to_variant(field), true});
    EXPECT_EQ(field->log(), Log{L"get Value"});
    field->clear_log();
    expect_boxes(L"LongitudExacta", {to_variant(field), false}, {empty_box(L"Nombre")});
    EXPECT_EQ(field->log(), (Log{L"get Value", L"get Tag", L"SetFocus()"}));
    // Omitted, PermitirLenCero counts as false.
    expect_boxes(L"LongitudExacta", {to_variant(field)}, {empty_box(L"Nombre")});
    expect_boxes(L"LongitudExacta", {to_variant(make_field(Variant::null())), false},
                 {empty_box(L"Nombre")});
}

TEST_F(Validators, LongitudExactaIgnoresAFailingSetFocus) {
    const auto field = make_field(Variant(L"1"));
    field->fails(L"SetFocus", failure(5, L"El control no puede recibir el foco"));
    expect_boxes(L"LongitudExacta", {to_variant(field)}, {wrong_box(L"Nombre")});
    field->property(L"Value", Variant(L""));
    expect_boxes(L"LongitudExacta", {to_variant(field)}, {empty_box(L"Nombre")});
    field->remove(L"SetFocus");
    expect_boxes(L"LongitudExacta", {to_variant(field)}, {empty_box(L"Nombre")});
}

TEST_F(Validators, ACorrectDate) {
    for (const Variant& value : {Variant(L"21/11/2026"), Variant(L"1/2/2024"), Variant(Date{45000}),
                                 Variant(L"29/02/2024")}) {
        expect_pass(L"FechaCorrecta", {to_variant(make_field(value))});
    }
    for (const wchar_t* const text : {L"29/02/2023", L"31/4/2024", L"hoy", L"2_/__/____", L"  "}) {
        const auto field = make_field(Variant(text));
        expect_boxes(L"FechaCorrecta", {to_variant(field)}, {date_box});
        EXPECT_EQ(field->log(), (Log{L"get Value", L"SetFocus()"}));
    }
    // A number is not a date.
    expect_boxes(L"FechaCorrecta", {to_variant(make_field(Variant(45000.0)))}, {date_box});
}

TEST_F(Validators, AnUntouchedMaskIsAnEmptyDate) {
    for (const Variant& value :
         {Variant(L"__/__/____"), Variant(L""), Variant::null(), Variant()}) {
        const auto field = make_field(value, L"Alta");
        expect_pass(L"FechaCorrecta", {to_variant(field), true});
        expect_boxes(L"FechaCorrecta", {to_variant(field), false}, {empty_box(L"Alta")});
        expect_boxes(L"FechaCorrecta", {to_variant(field)}, {empty_box(L"Alta")});
        field->fails(L"SetFocus", failure(5, L"x"));
        expect_boxes(L"FechaCorrecta", {to_variant(field)}, {empty_box(L"Alta")});
    }
}

TEST_F(Validators, FechaCorrectaReportsAFailingSetFocus) {
    const auto field = make_field(Variant(L"hoy"));
    field->fails(L"SetFocus", failure(5, L"El control no puede recibir el foco"));
    expect_boxes(L"FechaCorrecta", {to_variant(field)},
                 {date_box, failure_line(no_focus, L"FechaCorrecta")}, false);
}

TEST_F(Validators, DatesInOrder) {
    for (const Comparison& comparison : comparisons) {
        SCOPED_TRACE(narrow(comparison.member));
        const std::string box = narrow(std::wstring(L"48|Gestión|La fecha de baja debe ser ") +
                                       comparison.words + L" a la fecha de alta.|1");
        const auto expect = [&](const Variant& date, const Variant& other, bool fails) {
            const auto field = make_field(date, L"fecha de baja");
            const auto other_field = make_field(other, L"fecha de alta");
            expect_boxes(comparison.member, {to_variant(field), to_variant(other_field)},
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
        // Values that are not dates are not compared.
        for (const Variant& value : {Variant(L""), Variant::null(), Variant(L"hoy"), Variant(1.0),
                                     Variant(L"__/__/____"), Variant()}) {
            expect(value, Variant(L"01/01/2024"), false);
            expect(Variant(L"01/01/2024"), value, false);
        }
    }
}

TEST_F(Validators, ADateComparedWithAPlainDate) {
    const auto field = make_field(Variant(L"01/01/2024"));
    expect_pass(L"FechaMayorQue", {to_variant(field), Variant(Date{40000})});
    expect_pass(L"FechaMayorQue", {to_variant(field), Variant::null()});
    // The message needs the Tag of the other field, which a plain date lacks.
    expect_boxes(L"FechaMenorQue", {to_variant(field), Variant(Date{40000})},
                 {failure_line(L"424\\r (Se requiere un objeto", L"FechaMenorQue")}, false);
    expect_boxes(L"FechaMenorQue", {to_variant(field), nothing()},
                 {failure_line(no_object, L"FechaMenorQue")}, false);
}

TEST_F(Validators, DateComparisonsReportAFailingSetFocus) {
    for (const Comparison& comparison : comparisons) {
        const wchar_t* const date = comparison.fails_when_less ? L"31/12/2023" : L"02/01/2024";
        const auto field = make_field(Variant(date), L"una");
        const auto other = make_field(Variant(L"01/01/2024"), L"otra");
        field->fails(L"SetFocus", failure(5, L"El control no puede recibir el foco"));
        expect_boxes(comparison.member, {to_variant(field), to_variant(other)},
                     {narrow(std::wstring(L"48|Gestión|La una debe ser ") + comparison.words +
                             L" a la otra.|1"),
                      failure_line(no_focus, comparison.member)},
                     false);
    }
}

TEST_F(Validators, AnEmptyOptionalComboPasses) {
    for (const Variant& value : {Variant(L""), Variant(), Variant::null()}) {
        const auto combo = make_combo(value, L"", 3);
        expect_pass(L"ValidateComboALista", {to_variant(combo)});
        expect_pass(L"ValidateComboALista", {to_variant(combo), false});
        expect_pass(L"ValidateDataComboALista", {to_variant(combo)});
        expect_boxes(L"ValidateComboALista", {to_variant(combo), true}, {empty_box(L"Provincia")});
        expect_boxes(L"ValidateDataComboALista", {to_variant(combo), true},
                     {empty_box(L"Provincia")});
        EXPECT_EQ(combo->calls_of(L"DropDown()"), 0U);
    }
}

TEST_F(Validators, AListItemPasses) {
    for (const bool required : {false, true}) {
        const auto combo = make_combo(Variant(L"León"), L"León", 3, true);
        expect_pass(L"ValidateComboALista", {to_variant(combo), required});
        expect_pass(L"ValidateDataComboALista", {to_variant(combo), required});
        EXPECT_EQ(combo->calls_of(L"SetFocus()"), 0U);
    }
    // An empty text is not looked for in the list.
    expect_pass(L"ValidateComboALista", {to_variant(make_combo(Variant(L"x"), L"", 3)), true});
}

TEST_F(Validators, ATextThatIsNotInTheList) {
    auto combo = make_combo(Variant::null(), L"Lon", 3);
    expect_boxes(L"ValidateComboALista", {to_variant(combo)}, {list_box});
    EXPECT_EQ(combo->log(), (Log{L"get Value", L"get Text", L"get Value", L"get ListCount",
                                 L"SetFocus()", L"DropDown()"}));
    combo = make_combo(Variant::null(), L"Lon", 0);
    expect_boxes(L"ValidateComboALista", {to_variant(combo)}, {value_box});
    EXPECT_EQ(combo->log(), (Log{L"get Value", L"get Text", L"get Value", L"get ListCount"}));
    // A required one whose value is empty when it is read again.
    combo = make_combo(Variant(), L"Lon", 3);
    int reads = 0;
    combo
        ->property(L"Value",
                   [&](const auto&) { return ++reads == 1 ? Variant(L"Lon") : Variant(); })
        .default_member(L"Value");
    expect_boxes(L"ValidateComboALista", {to_variant(combo), true}, {list_box});
    EXPECT_EQ(combo->calls_of(L"DropDown()"), 1U);
}

TEST_F(Validators, AComboWhoseFocusOrListFailsAfterTheBox) {
    auto combo = make_combo(Variant::null(), L"Lon", 3);
    combo->fails(L"SetFocus", failure(5, L"El control no puede recibir el foco"));
    expect_boxes(L"ValidateComboALista", {to_variant(combo)},
                 {list_box, failure_line(no_focus, L"ValidateComboALista")});
    combo->method(L"SetFocus").remove(L"DropDown");
    expect_boxes(L"ValidateComboALista", {to_variant(combo)},
                 {list_box, failure_line(no_member, L"ValidateComboALista")});
}

TEST_F(Validators, ADataComboMustMatchItsList) {
    const auto combo = make_combo(Variant(L"Lon"), L"Lon", 3);
    for (const bool required : {false, true}) {
        combo->clear_log();
        expect_boxes(L"ValidateDataComboALista", {to_variant(combo), required}, {choose_box});
        EXPECT_EQ(combo->log(),
                  (Log{L"get Value", L"get MatchedWithList", L"SetFocus()", L"DropDown()"}));
    }
    combo->fails(L"SetFocus", failure(5, L"El control no puede recibir el foco"));
    expect_boxes(L"ValidateDataComboALista", {to_variant(combo)},
                 {choose_box, failure_line(no_focus, L"ValidateDataComboALista")}, false);
}

std::vector<std::pair<WORD, DWORD>> strokes;

UINT WINAPI note_strokes(UINT count, INPUT* inputs, int /*size*/) {
    for (UINT index = 0; index < count; ++index) {
        strokes.emplace_back(inputs[index].ki.wVk, inputs[index].ki.dwFlags);
    }
    return count;
}

TEST_F(Validators, AThreadWithoutWindowsSendsF4AsInput) {
    const ImportPatch patch(L"kovrel.dll", "SendInput", reinterpret_cast<void*>(&note_strokes));
    ASSERT_TRUE(patch.in_place());
    ASSERT_EQ(GetActiveWindow(), nullptr);
    const auto combo = make_combo(Variant(L"Lon"), L"Lon", 3);
    const auto expect_key = [&] {
        strokes.clear();
        expect_boxes(L"ValidateDataComboALista", {to_variant(combo)}, {choose_box});
        EXPECT_EQ(strokes,
                  (std::vector<std::pair<WORD, DWORD>>{{VK_F4, 0}, {VK_F4, KEYEVENTF_KEYUP}}));
    };
    combo->fails(L"DropDown", failure(5, L"La lista no se abre"));
    expect_key();
    combo->remove(L"DropDown");
    expect_key();
    // A list that opens needs no key.
    combo->method(L"DropDown");
    strokes.clear();
    expect_boxes(L"ValidateDataComboALista", {to_variant(combo)}, {choose_box});
    EXPECT_TRUE(strokes.empty());
}

}  // namespace
}  // namespace kovrel::test
