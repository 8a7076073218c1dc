// The bar, drawn by member name: on the progress window's picture and on those of hosts.
#pragma once

#include <cstdint>

#include "automation/host_object.h"

namespace kovrel {

/// Draws the percentage as a text and, over it, a box that inverts what it covers. Leaves the
/// picture's `AutoRedraw` true, its `ScaleWidth` 100 and its `DrawMode` 10. What lies outside 0 to
/// 100 is drawn past the picture's edges. Failures are the picture's own.
void draw_progress_bar(const HostObject& picture, std::int32_t percentage);

}  // namespace kovrel
