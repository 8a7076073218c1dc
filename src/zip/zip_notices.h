// What the user is told before an archive is made, and how its files are counted.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "runtime/notice.h"

namespace kovrel {

/// The archive has no file name. Unlike the others, under the library's own title.
[[nodiscard]] Notice archive_needs_a_name();
[[nodiscard]] Notice output_folder_missing(std::wstring title, std::wstring_view folder);
/// An existing archive is about to be replaced; OK is the only answer.
[[nodiscard]] Notice archive_will_be_replaced(std::wstring title);
[[nodiscard]] Notice no_files_to_archive(std::wstring title);

/// The number of names before the first empty one.
[[nodiscard]] std::size_t count_file_names(std::span<const std::wstring> names) noexcept;

}  // namespace kovrel
