// Entry names: from a path to the name kept in an archive, and from an archive's bytes to UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kovrel::zip {

/// Whether a path's separators and drive are read as Windows reads them ("\" too, "C:").
enum class PathStyle { posix, windows };

inline constexpr PathStyle native_path_style =
#ifdef _WIN32
    PathStyle::windows;
#else
    PathStyle::posix;
#endif

/// Entries lie at most this many components deep: with more their folders are not taken out.
inline constexpr std::size_t deepest_name = 100;

/// The last component of a path; empty when the path ends in a separator, "." or "..".
[[nodiscard]] std::string last_component(std::string_view path,
                                         PathStyle style = native_path_style);

/// What precedes the last component, with its separator or drive: empty without any.
[[nodiscard]] std::string folder_of(std::string_view path, PathStyle style = native_path_style);

/// The path with "/" between its components and without drive, server, leading separators and the
/// components "." and "..", so that unpacking never leaves the chosen folder.
[[nodiscard]] std::string relative_name(std::string_view path, PathStyle style = native_path_style);

/// What stands between the separators, "." left out and ".." with what precedes it. A drive is one.
[[nodiscard]] std::vector<std::string> components(std::string_view path,
                                                  PathStyle style = native_path_style);

[[nodiscard]] bool ends_in_separator(std::string_view path, PathStyle style = native_path_style);

/// With "/" between them unless the folder is empty or ends in a separator.
[[nodiscard]] std::string join_path(std::string_view folder, std::string_view name,
                                    PathStyle style = native_path_style);

/// Whether it is a drive alone: "C:".
[[nodiscard]] bool is_drive(std::string_view component, PathStyle style = native_path_style);

[[nodiscard]] bool is_absolute(std::string_view path, PathStyle style = native_path_style);

[[nodiscard]] bool is_ascii(std::string_view text) noexcept;

/// Well-formed UTF-8: no overlong forms, no surrogates, nothing past U+10FFFF.
[[nodiscard]] bool is_utf8(std::string_view text) noexcept;

/// UTF-8 of text in code page 850, in which Western European DOS and Windows systems write names
/// without the UTF-8 mark (its lower-case letters are also those of 437).
[[nodiscard]] std::string utf8_from_code_page_850(std::string_view text);

/// The UTF-8 name of an existing entry: the bytes themselves with the UTF-8 mark (bit 11 of
/// `flags`); else the Unicode path field (0x7075) if its checksum matches; else the bytes if they
/// are UTF-8 and written on Unix (`made_by` >> 8 is 3); else the bytes as code page 850.
[[nodiscard]] std::string entry_name_utf8(std::string_view raw, std::uint16_t flags,
                                          std::uint16_t made_by, std::string_view extra);

/// The same of an entry's comment, whose Unicode field is 0x6375.
[[nodiscard]] std::string entry_comment_utf8(std::string_view raw, std::uint16_t flags,
                                             std::uint16_t made_by, std::string_view extra);

/// The same of the archive's own comment, of which nothing says how it is written: UTF-8 where the
/// bytes are, else code page 850.
[[nodiscard]] std::string archive_comment_utf8(std::string_view raw);

}  // namespace kovrel::zip
