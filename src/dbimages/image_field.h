// Contents of files in recordset fields: sizes of the chunks, names of temporary files, the
// position of a record as a text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/notice.h"

namespace kovrel {

/// The position of a record: the host's text, the position and the number of records.
[[nodiscard]] std::wstring record_location(std::wstring_view text, std::int64_t position,
                                           std::int64_t count);

/// The position of a record in a recordset that cannot tell it.
inline constexpr std::wstring_view unknown_record_location = L"VOID";

/// The chunks that a content is moved in: one of `first` bytes, then `count` of `size` bytes.
struct ChunkPlan {
    std::int64_t first = 0;
    std::int64_t count = 0;
    std::int64_t size = 0;

    bool operator==(const ChunkPlan&) const = default;
};

/// The chunks that a file of `length` bytes is stored in. Each has one byte more than its share of
/// the file; fields in use are stored so, and are written back out with those bytes.
[[nodiscard]] ChunkPlan storing_chunks(std::int64_t length) noexcept;

/// The chunks that a field of `length` bytes is read in; the first one may have none.
[[nodiscard]] ChunkPlan reading_chunks(std::int64_t length) noexcept;

/// The name of a temporary file in a folder, from 00000000.tmp to 01000000.tmp by a random number
/// from 0 up to 1.
[[nodiscard]] std::wstring temporary_file_name(std::wstring_view folder, double random);

/// What the user is told when a picture cannot be read from a field.
[[nodiscard]] Notice picture_failure(std::int32_t number, std::wstring_view description);

}  // namespace kovrel
