// Small pictures drawn from their outlines, sharp at any display resolution: the marks and signs
// that the windows' buttons and fields carry.
#pragma once

#include "ui/gdi.h"

namespace kovrel {

enum class Sign {
    accept,    ///< a green check mark
    papers,    ///< two sheets of paper
    accepted,  ///< a check mark in a green disc
    rejected,  ///< a cross in a red disc
};

/// A square picture with soft edges, `size` pixels wide. Failure 7 when it cannot be made.
[[nodiscard]] Icon draw_sign(Sign sign, int size);

}  // namespace kovrel
