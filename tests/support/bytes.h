// Arrays of bytes in VARIANTs, as strings.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "automation/safe_array.h"

namespace kovrel::test {

inline Variant bytes_of(std::string_view content) {
    Variant array = new_byte_array(content.size());
    const ArrayAccess<std::uint8_t> access(array.parray);
    std::copy(content.begin(), content.end(), access.elements().begin());
    return array;
}

inline std::string content_in(const Variant& array) {
    const ArrayAccess<std::uint8_t> access(array_in(array, VT_UI1, 1));
    return {access.elements().begin(), access.elements().end()};
}

}  // namespace kovrel::test
