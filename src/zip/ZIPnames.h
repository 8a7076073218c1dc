// The list of files to compress, as hosts pass it.
#pragma once

#include "automation/native_type.h"

namespace kovrel {

/// Up to 100 file names from index 0 on; the first empty one ends the list.
struct ZIPnames : TextRecord<100> {
    static const RecordInfo info;
};

}  // namespace kovrel
