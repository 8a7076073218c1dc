// clsFGen's combo loaders with objects that fail, lack members or call back.
#include "automation/safe_array.h"
#include "tests/automation/combos.h"

namespace kovrel::test {
namespace {

TEST_F(Combos, AFailureLeavesTheRecordsetWhereItHappened) {
    BoxWatcher boxes({answer(IDOK)});
    ScriptedCombo combo;
    ScriptedRecordset records({{Variant(L"uno")}, {Variant::null()}, {Variant(L"tres")}});
    EXPECT_FALSE(load_items(combo, records));
    EXPECT_EQ(combo.items, Texts{L"uno"});
    EXPECT_EQ(records.position, 1U);
    EXPECT_EQ(lines_of(boxes),
              (Lines{failure_line(L"94\\r (Uso no válido de Null", single_column)}));
}

TEST_F(Combos, AFailureToRestoreTheBookmarkKeepsTheResult) {
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    ScriptedCombo combo;
    ScriptedRecordset records(three_rows());
    records.object().property(
        L"Bookmark", [](const auto&) { return Variant(1.0); },
        [](const auto&) -> Variant { throw failure(3001, L"Marcador no válido"); });
    EXPECT_TRUE(load_columns(combo, records));
    EXPECT_TRUE(load_items(combo, records));
    EXPECT_EQ(lines_of(boxes),
              (Lines{failure_line(L"3001\\r (Marcador no válido", multi_column),
                     failure_line(L"3001\\r (Marcador no válido", single_column)}));
    EXPECT_EQ(combo.items.size(), 3U);
}

TEST_F(Combos, AClosedRecordset) {
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    ScriptedCombo combo;
    combo.items = {L"vieja"};
    ScriptedRecordset records(three_rows());
    records.object().fails(L"RecordCount", failure(3704, L"El objeto está cerrado"));
    EXPECT_FALSE(load_items(combo, records));
    EXPECT_EQ(combo.items, Texts{L"vieja"});
    EXPECT_FALSE(load_columns(combo, records));
    EXPECT_EQ(combo.items, Texts{});
    EXPECT_EQ(lines_of(boxes),
              (Lines{failure_line(L"3704\\r (El objeto está cerrado", single_column),
                     failure_line(L"3704\\r (El objeto está cerrado", multi_column)}));
}

TEST_F(Combos, ARecordsetThatReturnsWrongTypes) {
    const auto fetched = [](Variant answered) {
        return [answered](const auto&) { return answered; };
    };
    ScriptedCombo combo;
    ScriptedRecordset records(three_rows());
    const std::vector<std::pair<Variant, const wchar_t*>> answers{
        {Variant::null(), L"94\\r (Uso no válido de Null"},
        {Variant(L"filas"), L"13\\r (No coinciden los tipos"},
        {new_byte_array(4), L"13\\r (No coinciden los tipos"},
        {Variant(), L"13\\r (No coinciden los tipos"}};
    for (const auto& [answered, text] : answers) {
        BoxWatcher boxes({answer(IDOK)});
        records.object().method(L"GetRows", fetched(answered));
        EXPECT_FALSE(load_columns(combo, records));
        EXPECT_EQ(lines_of(boxes), (Lines{failure_line(text, multi_column)}));
    }
    Variant vector;
    vector.parray = SafeArrayCreateVector(VT_VARIANT, 0, 3);
    vector.vt = VT_ARRAY | VT_VARIANT;
    std::array<SAFEARRAYBOUND, 2> bounds{SAFEARRAYBOUND{2, 1}, SAFEARRAYBOUND{2, 1}};
    Variant from_one;
    from_one.parray = SafeArrayCreate(VT_VARIANT, 2, bounds.data());
    from_one.vt = VT_ARRAY | VT_VARIANT;
    for (const Variant& answered : {vector, from_one}) {
        BoxWatcher boxes({answer(IDOK)});
        records.object().method(L"GetRows", fetched(answered));
        EXPECT_FALSE(load_columns(combo, records));
        EXPECT_EQ(lines_of(boxes),
                  (Lines{failure_line(L"9\\r (Subíndice fuera del intervalo", multi_column)}));
    }
    EXPECT_EQ(combo.object().calls_of(L"put List = [3x3]"), 0U);
}

TEST_F(Combos, ObjectsThatLackAMember) {
    ScriptedCombo combo;
    ScriptedRecordset records(three_rows());
    const wchar_t* const text = L"438\\r (El objeto no admite esta propiedad o método";
    for (const wchar_t* const member : {L"List", L"ColumnCount", L"Clear"}) {
        combo.object().remove(member);
        BoxWatcher boxes({answer(IDOK)});
        EXPECT_FALSE(load_columns(combo, records));
        EXPECT_EQ(lines_of(boxes), (Lines{failure_line(text, multi_column)}));
    }
    ScriptedCombo whole;
    for (const wchar_t* const member : {L"Fields", L"MoveFirst", L"Bookmark", L"RecordCount"}) {
        records.object().remove(member);
        BoxWatcher boxes({answer(IDOK)});
        EXPECT_FALSE(load_items(whole, records));
        EXPECT_EQ(lines_of(boxes), (Lines{failure_line(text, single_column)}));
    }
}

TEST_F(Combos, RecordsetsThatLackAMember) {
    const wchar_t* const text = L"438\\r (El objeto no admite esta propiedad o método";
    const auto expect_failure = [&](const wchar_t* procedure, const wchar_t* member,
                                    std::size_t position) {
        SCOPED_TRACE(narrow(std::wstring(procedure) + L", " + member));
        ScriptedCombo combo;
        combo.items = {L"vieja"};
        ScriptedRecordset records(three_rows());
        records.position = 2;
        records.object().remove(member);
        BoxWatcher boxes({answer(IDOK)});
        EXPECT_FALSE(load(procedure, {combo.argument(), records.argument()}));
        EXPECT_EQ(lines_of(boxes), (Lines{failure_line(text, procedure)}));
        EXPECT_EQ(records.position, position);  // not moved back after the failure
        EXPECT_EQ(combo.object().calls_of(L"put List = [3x3]"), 0U);
        EXPECT_EQ(combo.object().references(), 1U);
        EXPECT_EQ(records.object().references(), 1U);
    };
    for (const wchar_t* const member : {L"RecordCount", L"Bookmark", L"MoveFirst"}) {
        expect_failure(multi_column, member, 2);
        expect_failure(single_column, member, 2);
    }
    expect_failure(multi_column, L"GetRows", 0);
    for (const wchar_t* const member : {L"EOF", L"Fields", L"MoveNext"}) {
        expect_failure(single_column, member, 0);
    }
}

TEST_F(Combos, AComboBoxThatCannotBeFilledOneByOne) {
    const wchar_t* const text = L"438\\r (El objeto no admite esta propiedad o método";
    for (const wchar_t* const member : {L"Clear", L"AddItem"}) {
        ScriptedCombo combo;
        ScriptedRecordset records(three_rows());
        records.position = 2;
        combo.object().remove(member);
        BoxWatcher boxes({answer(IDOK)});
        EXPECT_FALSE(load_items(combo, records));
        EXPECT_EQ(lines_of(boxes), (Lines{failure_line(text, single_column)}));
        EXPECT_EQ(records.position, 0U);  // not moved back after the failure
        EXPECT_EQ(records.object().references(), 1U);
        EXPECT_EQ(combo.object().references(), 1U);
    }
}

TEST_F(Combos, EarlyBoundFailures) {
    using Load =
        HRESULT(STDMETHODCALLTYPE*)(IDispatch*, IDispatch**, IDispatch**, SHORT, VARIANT_BOOL*);
    using LoadItems =
        HRESULT(STDMETHODCALLTYPE*)(IDispatch*, IDispatch**, IDispatch**, VARIANT_BOOL*);
    IDispatch* const general = general_.get();
    ScriptedCombo combo;
    ScriptedRecordset records({{Variant(L"uno")}, {Variant::null()}});
    IDispatch* raw_combo = &combo.object();
    IDispatch* raw_records = &records.object();
    IDispatch* nothing = nullptr;
    VARIANT_BOOL loaded = VARIANT_TRUE;
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK), answer(IDOK)});
    EXPECT_EQ(early<LoadItems>(general, single_column)(general, &raw_combo, &raw_records, &loaded),
              S_OK);
    EXPECT_EQ(loaded, VARIANT_FALSE);
    EXPECT_EQ(combo.items, Texts{L"uno"});
    loaded = VARIANT_TRUE;
    EXPECT_EQ(early<LoadItems>(general, single_column)(general, &raw_combo, &nothing, &loaded),
              S_OK);
    EXPECT_EQ(loaded, VARIANT_FALSE);
    loaded = VARIANT_TRUE;
    EXPECT_EQ(early<Load>(general, multi_column)(general, &raw_combo, &raw_records, -1, &loaded),
              S_OK);
    EXPECT_EQ(loaded, VARIANT_FALSE);
    combo.object().remove(L"List");
    loaded = VARIANT_TRUE;
    EXPECT_EQ(early<Load>(general, multi_column)(general, &raw_combo, &raw_records, 0, &loaded),
              S_OK);
    EXPECT_EQ(loaded, VARIANT_FALSE);
    EXPECT_EQ(
        lines_of(boxes),
        (Lines{
            failure_line(L"94\\r (Uso no válido de Null", single_column),
            failure_line(L"91\\r (Variable de objeto o bloque With no establecido", single_column),
            failure_line(L"9\\r (Subíndice fuera del intervalo", multi_column),
            failure_line(L"438\\r (El objeto no admite esta propiedad o método", multi_column)}));
    EXPECT_EQ(combo.object().references(), 1U);
    EXPECT_EQ(records.object().references(), 1U);
}

TEST_F(Combos, ObjectsThatReleaseThemselvesOrCallBack) {
    const int before = ScriptedObject::alive();
    {
        BoxWatcher boxes({answer(IDOK)});
        auto combo = ScriptedObject::make();
        ScriptedObject* const raw = combo.get();
        combo->method(L"Clear", [&](const auto&) {
            combo = nullptr;
            return Variant();
        });
        ScriptedRecordset records(three_rows());
        Variant argument{ComPtr<IDispatch>(raw)};
        IDispatch* borrowed = argument.pdispVal;
        using Load =
            HRESULT(STDMETHODCALLTYPE*)(IDispatch*, IDispatch**, IDispatch**, SHORT, VARIANT_BOOL*);
        IDispatch* raw_records = &records.object();
        VARIANT_BOOL loaded = VARIANT_TRUE;
        EXPECT_EQ(early<Load>(general_.get(), multi_column)(general_.get(), &borrowed, &raw_records,
                                                            0, &loaded),
                  S_OK);
        EXPECT_EQ(loaded, VARIANT_FALSE);
        argument = Variant();
        EXPECT_EQ(boxes.seen().size(), 1U);
    }
    EXPECT_EQ(ScriptedObject::alive(), before);

    BoxWatcher no_box;
    ScriptedCombo inner;
    ScriptedCombo outer;
    ScriptedRecordset inner_records(three_rows());
    ScriptedRecordset records(three_rows());
    records.object().method(L"MoveFirst", [&](const auto&) {
        EXPECT_TRUE(load_columns(inner, inner_records));
        records.position = 0;
        return Variant();
    });
    EXPECT_TRUE(load_columns(outer, records));
    EXPECT_EQ(inner.lines(), outer.lines());
}

TEST_F(Combos, NoObjectsAtAll) {
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    const Variant nothing{ComPtr<IDispatch>()};
    EXPECT_FALSE(load(multi_column, {nothing, nothing}));
    EXPECT_FALSE(load(single_column, {nothing, nothing}));
    const wchar_t* const text = L"91\\r (Variable de objeto o bloque With no establecido";
    EXPECT_EQ(lines_of(boxes),
              (Lines{failure_line(text, multi_column), failure_line(text, single_column)}));
}

}  // namespace
}  // namespace kovrel::test
