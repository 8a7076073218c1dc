// Path strings (backslashes, folder, name and extension) and the removal or replacement of a text
// inside another.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kovrel {

/// The path with a backslash at its end; an empty path stays empty.
[[nodiscard]] std::wstring add_backslash(std::wstring_view path);

/// The path without the backslash at its end; of several only one goes.
[[nodiscard]] std::wstring remove_backslash(std::wstring_view path);

/// The parts of a full path.
struct PathParts {
    std::wstring folder;     ///< without its backslash; empty where there is none
    std::wstring name;       ///< with its extension
    std::wstring extension;  ///< all after the last dot, of a folder too; "*" where that is nothing
};

[[nodiscard]] PathParts split_path(std::wstring_view path);

/// What is left of a path in front of a name of `name_length` characters, with a backslash. A name
/// longer than the path is an invalid argument (failure 5).
[[nodiscard]] std::wstring folder_of_listed(std::wstring_view path, std::size_t name_length);

/// The longest text that a replacement may grow to: what the platform's strings hold.
inline constexpr std::size_t longest_text = (std::size_t{1} << 30) - 1;

/// Removes the occurrences of `searched`, or replaces them by `replacement`; comparisons are
/// binary and an empty `searched` changes nothing.
///
/// Removal skips the character after each removed occurrence: of two adjacent ones only the first
/// is removed. Replacement continues at the first character of the replacement, so an occurrence
/// that it forms with the rest is replaced too.
///
/// A `searched` that begins with the character of code 0 cleans a system buffer: all such
/// characters at the end are removed first, then one character at each occurrence.
///
/// A replacement that would grow without end, or a result longer than longest_text, is memory
/// exhaustion (failure 7).
[[nodiscard]] std::wstring replace_text(std::wstring_view text, std::wstring_view searched,
                                        std::optional<std::wstring_view> replacement);

}  // namespace kovrel
