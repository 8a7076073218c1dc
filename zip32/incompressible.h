// Tells in one quick look whether deflating is a waste of time: pictures, films and archives are
// compressed already.
#pragma once

#include "bytes.h"

namespace kovrel::zip {

/// True when deflate could hardly save half a percent: all byte values are about equally frequent
/// everywhere, and next to nothing is repeated within deflate's reach. Never true below 4 KiB,
/// where trying is as quick as looking. `known` are the bytes right before `data` in memory that
/// deflate may refer back to: how many of them.
[[nodiscard]] bool looks_incompressible(ByteView data, std::size_t known = 0);

}  // namespace kovrel::zip
