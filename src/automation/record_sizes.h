// The sizes of records in a type library file.
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

/// Writes the sizes into a finished type library file. Hosts make room for a record by its size,
/// and not every platform's writer works it out for a fixed array. Failure 57 when the file cannot
/// be changed or is no type library.
void write_record_sizes(const std::wstring& path, const std::vector<RecordSize>& sizes);

}  // namespace kovrel
