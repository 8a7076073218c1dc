// Where an entry may be taken out to: never outside the chosen folder, and never what the system
// takes for something else than a file of that name.
#pragma once

#include <string>
#include <string_view>

#include "names.h"

namespace kovrel::zip {

enum class NameFault {
    none,
    not_utf8,
    empty,          // no component at all: "", ".", "./"
    absolute,       // begins with a separator
    drive,          // Windows: "C:"
    server,         // Windows: begins with two separators
    climbs,         // has a component ".."
    bad_character,  // a control character; on Windows one of : < > " | ? *
    bad_end,        // Windows: a component ends in "." or a blank, which the system drops
    reserved,       // Windows: a component is the name of a device
    too_long,       // a component of more than 255 bytes (on Windows, UTF-16 units)
    too_deep,       // more than 100 components
};

struct TargetName {
    std::string path;  // relative, "/" between its components; empty with a fault
    NameFault fault = NameFault::none;
};

/// Where an entry's name leads. Components "." and empty ones are left out; on Windows "\"
/// separates too, elsewhere it is a character as any other.
[[nodiscard]] TargetName target_name(std::string_view name, PathStyle style = native_path_style);

}  // namespace kovrel::zip
