// Two-dimensional arrays, as recordsets give them.
#pragma once

#include <array>
#include <cstdint>

#include "automation/variant.h"

namespace kovrel::test {

/// A new array of empty values, both indexes from 0.
[[nodiscard]] inline Variant new_table(std::int32_t rows, std::int32_t columns) {
    std::array bounds{SAFEARRAYBOUND{static_cast<ULONG>(rows), 0},
                      SAFEARRAYBOUND{static_cast<ULONG>(columns), 0}};
    Variant table;
    table.parray = SafeArrayCreate(VT_VARIANT, 2, bounds.data());
    table.vt = VT_ARRAY | VT_VARIANT;
    return table;
}

}  // namespace kovrel::test
