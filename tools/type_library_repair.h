// Corrections to a finished type library for what some platforms' ICreateTypeLib2 gets wrong.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kovrel {

/// The size in bytes of one record, by the type's place in the file.
struct RecordSize {
    std::size_t type;
    std::uint32_t bytes;
};

/// Writes the sizes of records, which hosts allocate by: not every writer computes that of a fixed
/// array. Failure 57 when the file cannot be changed or is no type library.
void write_record_sizes(const std::wstring& path, const std::vector<RecordSize>& sizes);

/// Makes every default of true VARIANT_TRUE, all bits set: some writers keep eight bits, a value
/// that hosts do not all take for true. Failure 57 as above.
void write_true_defaults(const std::wstring& path);

}  // namespace kovrel
