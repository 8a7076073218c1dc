// clsFGen: combo boxes filled from recordsets.
#include <algorithm>
#include <utility>

#include "automation/safe_array.h"
#include "library/clsFGen.h"
#include "runtime/failure.h"
#include "services/guarded.h"

namespace kovrel {
namespace {

/// Transposes a fetched array (fields first, rows second). Its cells are moved, since nobody else
/// uses it.
Variant rows_first(Variant fetched, std::int32_t columns) {
    SAFEARRAY* source = array_in(fetched, VT_VARIANT, 2);
    const std::int32_t fields = array_extent(source, 1);
    const std::int32_t rows = array_extent(source, 2);
    Variant table = new_table(rows, columns);
    const ArrayAccess<VARIANT> from(source);
    const ArrayAccess<VARIANT> to(table.parray);
    const auto fetched_cells = from.elements();
    const auto cells = to.elements();
    const auto field_count = static_cast<std::size_t>(fields);
    const auto row_count = static_cast<std::size_t>(rows);
    const auto column_count = static_cast<std::size_t>(columns);
    for (std::size_t row = 0; row < row_count; ++row) {
        for (std::size_t column = 0; column < column_count; ++column) {
            std::swap(fetched_cells[row * field_count + column], cells[column * row_count + row]);
        }
    }
    return table;
}

}  // namespace

bool clsFGen::cargaComboMSFormsDeRecordset(const ComPtr<IDispatch>& cmbCombo,
                                           const ComPtr<IDispatch>& rsRecordset,
                                           std::int16_t intNumCampos) {
    return guarded<bool>(
        {L") en procedimiento cargaComboMSFormsDeRecordset del Módulo de clase clsFGen."},
        [&](bool& loaded) {
            const HostObject combo(cmbCombo);
            combo.call(L"Clear");
            const HostObject records(rsRecordset);
            if (records.get(L"RecordCount").to_double() < 1) {
                loaded = true;
                return;
            }
            const Variant bookmark = records.get(L"Bookmark");
            records.call(L"MoveFirst");
            constexpr std::int32_t all_rows = -1;
            Variant fetched = records.get(L"GetRows", {Variant(all_rows)});
            std::int32_t columns = array_extent(array_in(fetched, VT_VARIANT, 2), 1);
            if (intNumCampos != 0) columns = std::min<std::int32_t>(columns, intNumCampos);
            if (combo.get(L"ColumnCount").to_double() != columns) {
                combo.put(L"ColumnCount", Variant(columns));
            }
            combo.put(L"List", rows_first(std::move(fetched), columns));
            loaded = true;
            records.put(L"Bookmark", bookmark);
        });
}

bool clsFGen::CargaComboDeRecordset(const ComPtr<IDispatch>& cmbCombo,
                                    const ComPtr<IDispatch>& rsRecordset) {
    return guarded<bool>({L") en procedimiento CargaComboDeRecordset del Módulo de clase clsFGen."},
                         [&](bool& loaded) {
                             const HostObject records(rsRecordset);
                             if (records.get(L"RecordCount").to_double() <= 0) return;
                             const Variant bookmark = records.get(L"Bookmark");
                             records.call(L"MoveFirst");
                             const HostObject combo(cmbCombo);
                             combo.call(L"Clear");
                             while (!records.get(L"EOF").to_bool()) {
                                 const HostObject field(records.element(L"Fields", 0));
                                 combo.call(L"AddItem", {field.get(L"Value")});
                                 records.call(L"MoveNext");
                             }
                             loaded = true;
                             records.put(L"Bookmark", bookmark);
                         });
}

}  // namespace kovrel
