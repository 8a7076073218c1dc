// The fixture of the tests of clsFGen's combo loaders.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/support/box_lines.h"
#include "tests/support/early.h"
#include "tests/support/scripted_recordset.h"

namespace kovrel::test {

class Combos : public testing::Test {
 protected:
    using Texts = std::vector<std::wstring>;

    static ScriptedRecordset::Row row(std::int32_t number, const wchar_t* name, double amount) {
        return {Variant(number), Variant(name), Variant(amount)};
    }

    static std::vector<ScriptedRecordset::Row> three_rows() {
        return {row(1, L"Ana", 1.5), row(2, L"Íñigo", 2), row(3, L"Zoe", 3)};
    }

    static std::string failure_line(const wchar_t* number_and_text, const wchar_t* procedure) {
        return narrow(std::wstring(L"16|kovrel|Error ") + number_and_text + L") en procedimiento " +
                      procedure + L" del Módulo de clase clsFGen.|1");
    }

    static constexpr const wchar_t* multi_column = L"cargaComboMSFormsDeRecordset";
    static constexpr const wchar_t* single_column = L"CargaComboDeRecordset";

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

}  // namespace kovrel::test
