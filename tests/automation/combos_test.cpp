// clsFGen's combo loaders: what is read, what is written, in which order.
#include "tests/automation/combos.h"

#include "automation/safe_array.h"
#include "tests/support/ado_recordset.h"
#include "tests/support/host_controls.h"

namespace kovrel::test {
namespace {

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

TEST_F(Combos, EveryCellIsInItsRowAndColumn) {
    BoxWatcher no_box;
    const auto value = [](std::size_t row, std::size_t field) {
        return static_cast<std::int32_t>(row * 2000 + field);
    };
    const std::vector<std::pair<std::size_t, std::size_t>> sizes{
        {1, 1}, {1, 4}, {340, 3}, {341, 3}, {342, 3}, {1'100, 1}, {1'025, 2}, {700, 7}, {3, 1'100}};
    for (const auto& [rows, fields] : sizes) {
        std::vector<ScriptedRecordset::Row> table(rows);
        for (std::size_t row = 0; row < rows; ++row) {
            for (std::size_t field = 0; field < fields; ++field) {
                table[row].emplace_back(value(row, field));
            }
        }
        for (const std::size_t columns : {fields, (fields + 1) / 2}) {
            ScriptedRecordset records(table);
            ScriptedCombo combo;
            EXPECT_TRUE(load_columns(combo, records, static_cast<std::int16_t>(columns)));
            const Variant list = combo.object().value(L"List");
            EXPECT_EQ(array_extent(list.parray, 1), static_cast<std::int32_t>(rows));
            ASSERT_EQ(array_extent(list.parray, 2), static_cast<std::int32_t>(columns));
            const ArrayAccess<VARIANT> access(list.parray);
            std::size_t wrong = 0;
            for (std::size_t row = 0; row < rows; ++row) {
                for (std::size_t field = 0; field < columns; ++field) {
                    const VARIANT& cell = access.elements()[field * rows + row];
                    wrong += cell.vt == VT_I4 && cell.lVal == value(row, field) ? 0 : 1;
                }
            }
            EXPECT_EQ(wrong, 0U) << rows << " rows of " << fields << ", " << columns << " columns";
        }
    }
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
}

}  // namespace
}  // namespace kovrel::test
