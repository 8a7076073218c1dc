// clsFGen's field validators in every way of calling them, and with fields that fail.
#include "tests/automation/validators.h"
#include "tests/support/every_way.h"

namespace kovrel::test {
namespace {

TEST_F(Validators, FieldsThatLackAMember) {
    auto bare = ScriptedObject::make();
    for (const wchar_t* const member : {L"Requerido", L"LongitudExacta", L"FechaCorrecta",
                                        L"ValidateComboALista", L"ValidateDataComboALista"}) {
        expect_boxes(member, {to_variant(bare)}, {failure_line(no_member, member)}, false);
        expect_boxes(member, {nothing()}, {failure_line(no_object, member)}, false);
    }
    for (const Comparison& comparison : comparisons) {
        const auto field = make_field(Variant(L"01/01/2024"));
        expect_boxes(comparison.member, {to_variant(bare), to_variant(field)},
                     {failure_line(no_member, comparison.member)}, false);
        expect_boxes(comparison.member, {to_variant(field), to_variant(bare)},
                     {failure_line(no_member, comparison.member)}, false);
    }
    // The other field's Tag is read only for the message.
    for (const Comparison& comparison : comparisons) {
        const auto field =
            make_field(Variant(comparison.fails_when_less ? L"31/12/2023" : L"02/01/2024"));
        const auto other = make_field(Variant(L"01/01/2024"));
        other->remove(L"Tag");
        expect_boxes(comparison.member, {to_variant(field), to_variant(other)},
                     {failure_line(no_member, comparison.member)}, false);
        EXPECT_EQ(field->calls_of(L"SetFocus()"), 0U);
    }
    const auto nameless = make_field(Variant(L""));
    nameless->remove(L"Tag");
    expect_boxes(L"Requerido", {to_variant(nameless)}, {failure_line(no_member, L"Requerido")},
                 false);
    EXPECT_EQ(nameless->calls_of(L"SetFocus()"), 0U);
    const auto limitless = make_field(Variant(L"x"));
    limitless->remove(L"MaxLength");
    expect_boxes(L"LongitudExacta", {to_variant(limitless)},
                 {failure_line(no_member, L"LongitudExacta")}, false);
    EXPECT_EQ(bare->references(), 1U);
}

TEST_F(Validators, FieldsThatAnswerWrongTypes) {
    const auto field = make_field(Variant(L"x"));
    field->property(L"MaxLength", Variant(L"mucho"));
    expect_boxes(L"LongitudExacta", {to_variant(field)},
                 {failure_line(L"13\\r (No coinciden los tipos", L"LongitudExacta")}, false);
    field->property(L"MaxLength", Variant::null());
    expect_boxes(L"LongitudExacta", {to_variant(field)},
                 {failure_line(L"94\\r (Uso no válido de Null", L"LongitudExacta")}, false);
    field->property(L"Value", Variant::missing());
    expect_boxes(L"Requerido", {to_variant(field)},
                 {failure_line(L"13\\r (No coinciden los tipos", L"Requerido")}, false);
    field->property(L"Value", Variant(L"")).property(L"Tag", Variant::null());
    expect_boxes(L"Requerido", {to_variant(field)},
                 {failure_line(L"94\\r (Uso no válido de Null", L"Requerido")}, false);
    const auto combo = make_combo(Variant(L"x"), L"x", 1);
    combo->property(L"MatchedWithList", Variant::null());
    expect_boxes(L"ValidateDataComboALista", {to_variant(combo)},
                 {failure_line(L"94\\r (Uso no válido de Null", L"ValidateDataComboALista")},
                 false);
    const auto bare = make_combo(Variant::null(), L"x", 1);
    bare->property(L"ListCount", Variant(L"x"));
    // The result is already true when this fails.
    expect_boxes(L"ValidateComboALista", {to_variant(bare)},
                 {failure_line(L"13\\r (No coinciden los tipos", L"ValidateComboALista")});
}

TEST_F(Validators, FailuresOfAFieldKeepTheirNumbers) {
    const auto field = make_field(Variant(L""));
    field->fails(L"Value", {-2147352567, L"Objeto desconectado", DISP_E_EXCEPTION, 0});
    field->default_member(L"Value");
    expect_boxes(L"Requerido", {to_variant(field)},
                 {failure_line(L"-2147352567\\r (Objeto desconectado", L"Requerido")}, false);
    field->fails(L"Value", {0, L"Su código", DISP_E_EXCEPTION, 2185});
    field->default_member(L"Value");
    expect_boxes(L"Requerido", {to_variant(field)},
                 {failure_line(L"2185\\r (Su código", L"Requerido")}, false);
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
        EXPECT_TRUE(fails(L"Requerido", {to_variant(inner)}));
        return Variant();
    });
    expect_boxes(L"Requerido", {to_variant(outer)},
                 {empty_box(L"exterior"), empty_box(L"interior")});
    EXPECT_EQ(inner->references(), 1U);
    EXPECT_EQ(outer->references(), 1U);
}

TEST_F(Validators, ADefaultValueThatIsAnotherObject) {
    const auto inner = make_field(Variant(L"lleno"));
    const auto outer = ScriptedObject::make();
    outer->property(L"Value", to_variant(inner)).default_member(L"Value");
    expect_pass(L"Requerido", {to_variant(outer)});
    // A cycle of default members ends in failure 13.
    const auto endless = ScriptedObject::make();
    ScriptedObject* const raw = endless.get();
    endless->property(L"Value", [raw](const auto&) { return Variant(ComPtr<IDispatch>(raw)); })
        .default_member(L"Value");
    expect_boxes(L"Requerido", {to_variant(endless)},
                 {failure_line(L"13\\r (No coinciden los tipos", L"Requerido")}, false);
    EXPECT_EQ(endless->references(), 1U);
}

TEST_F(Validators, TheHostsOwnCatalogueShowsTheMessages) {
    const auto catalogue = create(L"Kovrel.clsMensajes");
    put(catalogue.get(), L"AppOrigen", Variant(L"Otra"));
    ASSERT_EQ(put(general_.get(), L"Mensajes", Variant(catalogue), DISPATCH_PROPERTYPUTREF).result,
              S_OK);
    expect_boxes(L"Requerido", {to_variant(make_field(Variant(L"")))},
                 {narrow(L"48|Otra|El dato  \"Nombre\" no puede quedar vacío.|1")});
    // Boxes outside the catalogue keep the name of the instance.
    expect_boxes(L"ValidateComboALista", {to_variant(make_combo(Variant::null(), L"Lon", 3))},
                 {list_box});
    put(general_.get(), L"AppOrigen", Variant(L""));
    expect_boxes(L"ValidateComboALista", {to_variant(make_combo(Variant::null(), L"Lon", 0))},
                 {narrow(L"48||¡Valor no válido para este campo!|1")});
}

TEST_F(Validators, WithoutACatalogueShowsTheErrorBox) {
    ASSERT_EQ(put(general_.get(), L"Mensajes", nothing(), DISPATCH_PROPERTYPUTREF).result, S_OK);
    expect_boxes(L"Requerido", {to_variant(make_field(Variant(L"")))},
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
    Variant other = to_variant(date);
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

TEST_F(Validators, EveryWayOfCallingThemDoesTheSame) {
    struct Case {
        const wchar_t* member;
        std::vector<Variant> arguments;
        std::string box;  ///< empty: the field passes
    };
    const auto empty = make_field(Variant(L""));
    const auto full = make_field(Variant(L"12345"));
    const auto wrong = make_field(Variant(L"hoy"));
    const auto earlier = make_field(Variant(L"01/01/2024"), L"primera");
    const auto later = make_field(Variant(L"02/01/2024"), L"segunda");
    const auto combo = make_combo(Variant::null(), L"Lon", 3);
    const auto bound = make_combo(Variant(L"Lon"), L"Lon", 3);
    const auto listed = make_combo(Variant(L"León"), L"León", 3, true);
    const auto order = [](const wchar_t* first, const wchar_t* words, const wchar_t* second) {
        return narrow(std::wstring(L"48|Gestión|La ") + first + L" debe ser " + words + L" a la " +
                      second + L".|1");
    };
    const std::vector<Case> cases{
        {L"Requerido", {to_variant(empty)}, empty_box(L"Nombre")},
        {L"Requerido", {to_variant(full)}, {}},
        {L"LongitudExacta", {to_variant(full), Variant(false), Variant(std::int16_t{0})}, {}},
        {L"LongitudExacta",
         {to_variant(full), Variant(true), Variant(std::int16_t{1})},
         wrong_box(L"Nombre")},
        {L"LongitudExacta", {to_variant(empty), Variant(false)}, empty_box(L"Nombre")},
        {L"FechaCorrecta", {to_variant(earlier), Variant(false)}, {}},
        {L"FechaCorrecta", {to_variant(empty), Variant(true)}, {}},
        {L"FechaCorrecta", {to_variant(empty), Variant(false)}, empty_box(L"Nombre")},
        {L"FechaCorrecta", {to_variant(wrong), Variant(true)}, date_box},
        {L"FechaMayorQue",
         {to_variant(earlier), to_variant(later)},
         order(L"primera", L"posterior", L"segunda")},
        {L"FechaMayorQue", {to_variant(later), to_variant(earlier)}, {}},
        {L"FechaMayorIgualQue",
         {to_variant(earlier), to_variant(later)},
         order(L"primera", L"posterior o igual", L"segunda")},
        {L"FechaMayorIgualQue", {to_variant(later), to_variant(later)}, {}},
        {L"FechaMenorQue",
         {to_variant(later), to_variant(earlier)},
         order(L"segunda", L"anterior", L"primera")},
        {L"FechaMenorQue", {to_variant(earlier), to_variant(later)}, {}},
        {L"FechaMenorIgualQue",
         {to_variant(later), to_variant(earlier)},
         order(L"segunda", L"anterior o igual", L"primera")},
        {L"FechaMenorIgualQue", {to_variant(later), to_variant(later)}, {}},
        {L"ValidateComboALista", {to_variant(combo), Variant(false)}, list_box},
        {L"ValidateComboALista", {to_variant(listed), Variant(true)}, {}},
        {L"ValidateDataComboALista", {to_variant(bound), Variant(true)}, choose_box},
        {L"ValidateDataComboALista", {to_variant(listed), Variant(false)}, {}},
    };
    for (const Case& one : cases) {
        for (const Way way : every_way) {
            SCOPED_TRACE(narrow(one.member) + ", " + name_of(way));
            const std::size_t expected = one.box.empty() ? 0 : 1;
            BoxWatcher boxes(std::vector<Expectation>(expected, answer(IDOK)));
            const Answer called = call_in(way, general_.get(), one.member, one.arguments);
            EXPECT_EQ(called.result, S_OK);
            EXPECT_EQ(called.value.vt, VT_BOOL);
            EXPECT_EQ(called.value.to_bool(), !one.box.empty());
            EXPECT_EQ(lines_of(boxes), one.box.empty() ? Lines{} : Lines{one.box});
            // What the caller passed is still its own.
            EXPECT_EQ(called.arguments.at(0).pdispVal, one.arguments.at(0).pdispVal);
        }
    }
}

}  // namespace
}  // namespace kovrel::test
