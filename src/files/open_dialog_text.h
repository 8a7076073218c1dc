// The texts of the system's open-file dialog: its filter list and the buffers that it fills in.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kovrel {

/// Characters in each of the dialog's buffers: the longest path of the 8-bit functions and the NUL
/// that ends it.
inline constexpr std::size_t open_dialog_buffer_size = 260;

/// The list that the dialog shows while no filter has been set.
inline constexpr std::wstring_view every_file_filter{L"Todos los Archivos (*.*)\0*.*\0\0", 30};

/// Descriptions and patterns separated by "|" as the system's list: each ended by a NUL, and one
/// NUL more at the end. A text without "|" that holds a NUL is such a list already; any other text
/// gives an empty one.
[[nodiscard]] std::wstring system_filter(std::wstring_view text);

/// A text padded with NULs, or cut, to the size of a buffer.
[[nodiscard]] std::wstring open_dialog_buffer(std::wstring_view text);

/// What a returned buffer holds up to its first NUL. Failure 5 when there is none.
[[nodiscard]] std::wstring single_choice(std::wstring_view buffer);

/// What a returned buffer of a multiple choice holds: each item in double quotes, single blanks
/// between them. An empty buffer gives two double quotes.
[[nodiscard]] std::wstring multiple_choice(std::wstring_view buffer);

}  // namespace kovrel
