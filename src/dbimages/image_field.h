// Files in recordset fields: chunk sizes, names of temporary files, the position of a record as a
// text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/notice.h"

namespace kovrel {

/// The position of a record: the host's text, the position and the number of records.
[[nodiscard]] std::wstring record_location(std::wstring_view text, std::int64_t position,
                                           std::int64_t count);

/// The text for a recordset that has no position.
inline constexpr std::wstring_view unknown_record_location = L"VOID";

/// One chunk of `first` bytes, then `count` chunks of `size` bytes.
struct ChunkPlan {
    std::int64_t first = 0;
    std::int64_t count = 0;
    std::int64_t size = 0;

    bool operator==(const ChunkPlan&) const = default;
};

/// The chunks that a file of `length` bytes is stored in. Each has one byte more than its share of
/// the file, as fields in use are stored and written back to files.
[[nodiscard]] ChunkPlan storing_chunks(std::int64_t length) noexcept;

/// The chunks that a field of `length` bytes is read in; the first one may have none.
[[nodiscard]] ChunkPlan reading_chunks(std::int64_t length) noexcept;

/// The path of a temporary file in a folder, 00000000.tmp to 01000000.tmp; `random` is in [0, 1).
[[nodiscard]] std::wstring temporary_file_name(std::wstring_view folder, double random);

/// What the user is told when a picture cannot be read from a field.
[[nodiscard]] Notice picture_failure(std::int32_t number, std::wstring_view description);

}  // namespace kovrel
