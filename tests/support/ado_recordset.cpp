#include "tests/support/ado_recordset.h"

#include "runtime/failure.h"

namespace kovrel::test {

ComPtr<IDispatch> make_recordset(const std::vector<AdoField>& fields) {
    CLSID class_id{};
    ComPtr<IDispatch> recordset;
    if (FAILED(CLSIDFromProgID(L"ADODB.Recordset", &class_id)) ||
        FAILED(CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                recordset.put_void()))) {
        return {};
    }
    try {
        const HostObject records(recordset);
        const HostObject collection(records.get(L"Fields"));
        constexpr std::int32_t nullable = 0x20;
        for (const AdoField& field : fields) {
            collection.call(L"Append",
                            {Variant(field.name), Variant(static_cast<std::int32_t>(field.type)),
                             Variant(field.size), Variant(nullable)});
        }
        records.call(L"Open");
    } catch (const Failure&) {
        return {};
    }
    return recordset;
}

void add_rows(IDispatch* recordset, const std::vector<std::vector<Variant>>& rows) {
    const HostObject records(recordset);
    for (const auto& row : rows) {
        records.call(L"AddNew");
        for (std::size_t index = 0; index < row.size(); ++index) {
            const HostObject field(records.element(L"Fields", static_cast<std::int32_t>(index)));
            field.put(L"Value", row[index]);
        }
    }
}

}  // namespace kovrel::test
