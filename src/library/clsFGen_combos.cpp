// clsFGen: combo boxes filled from recordsets.
#include <algorithm>

#include "automation/safe_array.h"
#include "library/clsFGen.h"
#include "runtime/failure.h"
#include "services/guarded.h"

namespace kovrel {
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
            SAFEARRAY* const table = array_in(fetched, VT_VARIANT, 2);
            const std::int32_t fields = array_extent(table, 1);
            const std::int32_t columns =
                intNumCampos != 0 ? std::min<std::int32_t>(fields, intNumCampos) : fields;
            if (combo.get(L"ColumnCount").to_double() != columns) {
                combo.put(L"ColumnCount", Variant(columns));
            }
            // Fetched with the fields first and the rows second.
            exchange_dimensions(table);
            if (columns != fields) limit_last_dimension(table, columns);
            combo.put(L"List", fetched);
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
