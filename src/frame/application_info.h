// What the library's own file says of itself, whatever host has loaded it.
#pragma once

#include <cstdint>
#include <string>

namespace kovrel {

struct ApplicationInfo {
    std::wstring title;  ///< the product name in the version resource
    std::int16_t major = 0;
    std::int16_t minor = 0;
    std::int16_t revision = 0;
    std::wstring folder;     ///< of the library's file; ends in a backslash in a root only
    std::wstring file_name;  ///< of the library's file, without its extension
};

/// Failure 57 when the file carries no version resource.
[[nodiscard]] ApplicationInfo application_info();

}  // namespace kovrel
