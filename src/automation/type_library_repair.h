// What not every platform's writer of type libraries gets right, put right in the finished file.
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

/// Writes the sizes of records, by which hosts make room for one: a fixed array's is not always
/// worked out. Failure 57 when the file cannot be changed or is no type library.
void write_record_sizes(const std::wstring& path, const std::vector<RecordSize>& sizes);

/// Makes every parameter's default that is true VARIANT_TRUE, all its bits set: where only eight
/// are kept, the value is true for some hosts and neither true nor false for others. Failure 57 as
/// above.
void write_true_defaults(const std::wstring& path);

}  // namespace kovrel
