// Draws the bar through late-bound calls, on the progress window's picture or a host's.
#pragma once

#include <cstdint>

#include "automation/host_object.h"

namespace kovrel {

/// Draws the percentage and over it a box that inverts what it covers. Leaves the picture's
/// `AutoRedraw` true, its `ScaleWidth` 100 and its `DrawMode` 10. Percentages outside 0 to 100 are
/// drawn past the picture's edges. Failures are the picture's own.
void draw_progress_bar(const HostObject& picture, std::int32_t percentage);

}  // namespace kovrel
