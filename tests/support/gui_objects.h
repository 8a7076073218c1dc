// How many drawing objects and windows a program holds, for tests that look for leaks.
#pragma once

#include <cstddef>
#include <ostream>

namespace kovrel::test {

struct GuiObjects {
    std::size_t drawing = 0;  // of the process: fonts, bitmaps, ...; 0 where none can be counted
    std::size_t windows = 0;  // of this thread, hidden ones and controls included

    bool operator==(const GuiObjects&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const GuiObjects& objects) {
    return out << objects.drawing << " drawing objects, " << objects.windows << " windows";
}

[[nodiscard]] GuiObjects gui_objects();

}  // namespace kovrel::test
