// The boxes that a call showed, one line each: "style|title|text|button pressed", carriage returns
// written \r.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/box_watcher.h"

namespace kovrel::test {

using Lines = std::vector<std::string>;

inline Lines lines_of(const BoxWatcher& boxes) {
    const auto seen = boxes.seen();
    Lines lines;
    std::transform(seen.begin(), seen.end(), std::back_inserter(lines),
                   [](const SeenBox& box) { return narrow(as_line(box)); });
    return lines;
}

}  // namespace kovrel::test
