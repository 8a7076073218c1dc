// The list of files to compress, as hosts pass it.
#pragma once

#include "automation/native_type.h"

namespace kovrel {

/// Up to 100 file names from index 0 on; the first empty one ends the list.
struct ZIPnames : TextRecord<100> {
    static constexpr RecordInfo info{
        .name = L"ZIPnames",
        .help = L"Lista de archivos que se van a comprimir.",
        .id = {0x15bb8312, 0x9bf7, 0x4b46, {0x8a, 0x75, 0xac, 0xf9, 0xef, 0xcf, 0x3a, 0xd2}},
        .field = L"Nombres",
        .size = size,
    };
};

}  // namespace kovrel
