// A real ADODB.Recordset made in memory.
#pragma once

#include <string>
#include <vector>

#include "automation/host_object.h"

namespace kovrel::test {

// The field types that the tests use, by ADO's published numbers.
enum class AdoType : std::int32_t { integer = 3, text = 202, long_binary = 205 };

struct AdoField {
    std::wstring name;
    AdoType type = AdoType::integer;
    std::int32_t size = 0;
};

// Open and empty; none where the system has no ADO that answers late-bound calls.
ComPtr<IDispatch> make_recordset(const std::vector<AdoField>& fields);

// One row after the other; each row gives the values of all fields.
void add_rows(IDispatch* recordset, const std::vector<std::vector<Variant>>& rows);

}  // namespace kovrel::test
