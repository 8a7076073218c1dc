// clsFGen's combo loaders as hosts call them: what is read, what is written, in which order.
#include <gtest/gtest.h>

#include "automation/safe_array.h"
#include "tests/support/ado_recordset.h"
#include "tests/support/box_lines.h"
#include "tests/support/early.h"
#include "tests/support/host_controls.h"
#include "tests/support/scripted_recordset.h"

namespace kovrel::test {
namespace {

using Texts = std::vector<std::wstring>;

ScriptedRecordset::Row row(std::int32_t number, const wchar_t* name, double amount) {
    return {Variant(number), Variant(name), Variant(amount)};
}

std::vector<ScriptedRecordset::Row> three_rows() {
    return {row(1, L"Ana", 1.5), row(2, L"Íñigo", 2), row(3, L"Zoe", 3)};
}

std::string failure_line(const wchar_t* number_and_text, const wchar_t* procedure) {
    return narrow(std::wstring(L"16|kovrel|Error ") + number_and_text + L") en procedimiento " +
                  procedure + L" del Módulo de clase clsFGen.|1");
}

constexpr const wchar_t* multi_column = L"cargaComboMSFormsDeRecordset";
constexpr const wchar_t* single_column = L"CargaComboDeRecordset";

class Combos : public testing::Test {
 protected:
    bool load(const wchar_t* member, const std::vector<LateArgument>& arguments) {
        const Outcome outcome = call(general_.get(), member, arguments);
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_BOOL);
        return outcome.value.boolVal != VARIANT_FALSE;
    }
    bool load_columns(const ScriptedCombo& combo, const ScriptedRecordset& records,
                      std::int16_t columns = 0) {
        return load(multi_column, {combo.argument(), records.argument(), columns});
    }
    bool load_items(const ScriptedCombo& combo, const ScriptedRecordset& records) {
        return load(single_column, {combo.argument(), records.argument()});
    }

    ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
};

TEST_F(Combos, AllColumnsInOneReadAndOneAssignment) {
    BoxWatcher no_box;
    ScriptedCombo combo;
    ScriptedRecordset records(three_rows());
    records.position = 1;
    EXPECT_TRUE(load(multi_column, {combo.argument(), records.argument()}));
    EXPECT_EQ(combo.lines(), (Texts{L"1|Ana|1,5", L"2|Íñigo|2", L"3|Zoe|3"}));
    EXPECT_EQ(combo.object().log(),
              (Log{L"Clear()", L"get ColumnCount", L"put ColumnCount = 3", L"put List = [3x3]"}));
    EXPECT_EQ(records.object().log(), (Log{L"get RecordCount", L"get Bookmark", L"MoveFirst()",
                                           L"GetRows(-1)", L"put Bookmark = 1"}));
    EXPECT_EQ(records.position, 1U);
    EXPECT_EQ(combo.object().references(), 1U);
    EXPECT_EQ(records.object().references(), 1U);
}

TEST_F(Combos, TheNumberOfColumnsCanOnlyBeReduced) {
    BoxWatcher no_box;
    ScriptedRecordset records(three_rows());
    ScriptedCombo combo;
    EXPECT_TRUE(load_columns(combo, records, 2));
    EXPECT_EQ(combo.lines(), (Texts{L"1|Ana", L"2|Íñigo", L"3|Zoe"}));
    EXPECT_EQ(combo.object().value(L"ColumnCount").to_int32(), 2);
    EXPECT_TRUE(load_columns(combo, records, 5));
    EXPECT_EQ(combo.lines(), (Texts{L"1|Ana|1,5", L"2|Íñigo|2", L"3|Zoe|3"}));
    EXPECT_EQ(combo.object().value(L"ColumnCount").to_int32(), 3);
    combo.object().clear_log();
    EXPECT_TRUE(load_columns(combo, records, 3));
    EXPECT_EQ(combo.object().log(), (Log{L"Clear()", L"get ColumnCount", L"put List = [3x3]"}));
    EXPECT_TRUE(load_columns(combo, records, 1));
    EXPECT_EQ(combo.lines(), (Texts{L"1", L"2", L"3"}));
}

TEST_F(Combos, CellsKeepTheirTypes) {
    BoxWatcher no_box;
    ScriptedCombo combo;
    ScriptedRecordset records({{Variant::null(), Variant(true), Variant()}});
    EXPECT_TRUE(load_columns(combo, records));
    const Variant list = combo.object().value(L"List");
    const ArrayAccess<VARIANT> access(list.parray);
    EXPECT_EQ(access.elements()[0].vt, VT_NULL);
    EXPECT_EQ(access.elements()[1].vt, VT_BOOL);
    EXPECT_EQ(access.elements()[2].vt, VT_EMPTY);
}

TEST_F(Combos, ANegativeNumberOfColumnsIsAFailure) {
    BoxWatcher boxes({answer(IDOK)});
    ScriptedCombo combo;
    ScriptedRecordset records(three_rows());
    records.position = 1;
    EXPECT_FALSE(load_columns(combo, records, -1));
    EXPECT_EQ(lines_of(boxes),
              (Lines{failure_line(L"9\\r (Subíndice fuera del intervalo", multi_column)}));
    EXPECT_EQ(records.position, 3U);  // not moved back after the failure
}

TEST_F(Combos, AnEmptyRecordsetClearsTheListOnlyWhenLoadingColumns) {
    BoxWatcher no_box;
    for (const std::int32_t count : {0, -1}) {
        ScriptedCombo combo;
        ScriptedRecordset records(three_rows());
        records.object().property(L"RecordCount", Variant(count));
        combo.items = {L"vieja"};
        EXPECT_FALSE(load_items(combo, records));
        EXPECT_EQ(combo.items, Texts{L"vieja"});
        EXPECT_EQ(combo.object().log(), Log{});
        EXPECT_TRUE(load_columns(combo, records));
        EXPECT_EQ(combo.items, Texts{});
        EXPECT_EQ(combo.object().log(), Log{L"Clear()"});
        EXPECT_EQ(records.object().log(), (Log{L"get RecordCount", L"get RecordCount"}));
    }
}

TEST_F(Combos, ItemsOneByOneFromTheFirstField) {
    BoxWatcher no_box;
    ScriptedCombo combo;
    combo.items = {L"vieja"};
    ScriptedRecordset records(
        {{Variant(L"uno")}, {Variant(L"dos")}, {Variant(3.5)}, {Variant(L"")}, {Variant(L"ñ")}});
    records.position = 4;
    EXPECT_TRUE(load_items(combo, records));
    EXPECT_EQ(combo.items, (Texts{L"uno", L"dos", L"3,5", L"", L"ñ"}));
    EXPECT_EQ(records.position, 4U);
    EXPECT_EQ(records.object().log().back(), L"put Bookmark = 4");
    EXPECT_EQ(combo.object().log().front(), L"Clear()");
    EXPECT_EQ(combo.object().log().size(), 6U);
    EXPECT_EQ(combo.object().references(), 1U);
    EXPECT_EQ(records.object().references(), 1U);
}

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

TEST_F(Combos, FieldsCollectionsWithoutADefaultMember) {
    BoxWatcher no_box;
    const auto field = [](const auto&) {
        auto made = ScriptedObject::make();
        made->property(L"Value", Variant(L"valor"));
        return Variant(ComPtr<IDispatch>(made.get()));
    };
    {
        // Without a default member.
        ScriptedCombo combo;
        ScriptedRecordset records({{Variant(1.0)}});
        records.object().property(L"Fields", [&](const auto&) {
            auto fields = ScriptedObject::make();
            fields->method(L"Item", field);
            return Variant(ComPtr<IDispatch>(fields.get()));
        });
        EXPECT_TRUE(load_items(combo, records));
        EXPECT_EQ(combo.items, Texts{L"valor"});
    }
    // The property takes the index itself, as those of script classes do.
    ScriptedCombo combo;
    ScriptedRecordset records({{Variant(1.0)}});
    records.object().method(L"Fields", [&](const auto& arguments) {
        if (arguments.empty()) throw bare_failure(DISP_E_BADPARAMCOUNT);
        return field(arguments);
    });
    EXPECT_TRUE(load_items(combo, records));
    EXPECT_EQ(combo.items, Texts{L"valor"});
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

TEST_F(Combos, EarlyBound) {
    using Load =
        HRESULT(STDMETHODCALLTYPE*)(IDispatch*, IDispatch**, IDispatch**, SHORT, VARIANT_BOOL*);
    using LoadItems =
        HRESULT(STDMETHODCALLTYPE*)(IDispatch*, IDispatch**, IDispatch**, VARIANT_BOOL*);
    BoxWatcher no_box;
    ScriptedCombo combo;
    ScriptedRecordset records(three_rows());
    IDispatch* raw_combo = &combo.object();
    IDispatch* raw_records = &records.object();
    VARIANT_BOOL loaded = VARIANT_FALSE;
    EXPECT_EQ(early<Load>(general_.get(), multi_column)(general_.get(), &raw_combo, &raw_records, 2,
                                                        &loaded),
              S_OK);
    EXPECT_EQ(loaded, VARIANT_TRUE);
    EXPECT_EQ(combo.lines(), (Texts{L"1|Ana", L"2|Íñigo", L"3|Zoe"}));
    loaded = VARIANT_FALSE;
    EXPECT_EQ(early<LoadItems>(general_.get(), single_column)(general_.get(), &raw_combo,
                                                              &raw_records, &loaded),
              S_OK);
    EXPECT_EQ(loaded, VARIANT_TRUE);
    EXPECT_EQ(combo.items, (Texts{L"1", L"2", L"3"}));
    EXPECT_EQ(combo.object().references(), 1U);
}

TEST_F(Combos, ARealComboBoxFromARealRecordset) {
    // A single field: Wine's GetRows mixes up the values of several.
    const auto recordset = make_recordset({{L"Nombre", AdoType::text, 40}});
    ASSERT_TRUE(recordset) << "no ADO here";
    BoxWatcher no_box;
    const HostObject records(recordset);
    add_rows(recordset.get(), {{Variant(L"Álava")}, {Variant(L"Coruña")}, {Variant(L"León")}});
    records.call(L"MoveFirst");
    records.call(L"MoveNext");
    HostForm form(L"Provincias");
    const HostControl combo = form.add_combo(L"Provincia", {L"vieja"});
    EXPECT_TRUE(
        load(single_column, {Variant(ComPtr<IDispatch>(combo.dispatch())), Variant(recordset)}));
    EXPECT_EQ(ask(combo.window, CB_GETCOUNT), 3);
    std::array<wchar_t, 64> text{};
    ask(combo.window, CB_GETLBTEXT, 1, reinterpret_cast<LPARAM>(text.data()));
    EXPECT_STREQ(text.data(), L"Coruña");
    EXPECT_EQ(HostObject(records.element(L"Fields", 0)).get(L"Value").to_text(), L"Coruña");
}

TEST_F(Combos, ARealComboBoxTakesAWholeList) {
    BoxWatcher no_box;
    HostForm form(L"Provincias");
    const HostControl combo = form.add_combo(L"Provincia", {L"vieja"});
    ScriptedRecordset records({{Variant(L"Álava")}, {Variant(L"Zamora")}});
    EXPECT_TRUE(
        load(multi_column, {Variant(ComPtr<IDispatch>(combo.dispatch())), records.argument()}));
    EXPECT_EQ(ask(combo.window, CB_GETCOUNT), 2);
    EXPECT_TRUE(save_picture(form.window(), picture_folder() / L"combo_loaded.png"));
}

}  // namespace
}  // namespace kovrel::test
