// The value that a read of an INI file gives back.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kovrel {

/// The size of the buffer that values are read into: longer ones come back cut to one character
/// less, which the system keeps for the ending zero.
inline constexpr std::size_t ini_buffer_size = 255;

/// The first `count` characters of the buffer, or the default where the system stored none.
[[nodiscard]] inline std::wstring ini_value(std::wstring_view buffer, std::size_t count,
                                            std::wstring_view default_text) {
    return std::wstring(count != 0 ? buffer.substr(0, count) : default_text);
}

}  // namespace kovrel
