// The current look of the common controls, whatever look the host has chosen for its own.
#pragma once

#include <windows.h>

namespace kovrel {

/// While it lives, windows of this thread are made with the controls that the library's own
/// manifest asks for. Where the file has no such manifest, the host's choice stays.
class VisualStyles {
 public:
    VisualStyles();
    VisualStyles(const VisualStyles&) = delete;
    VisualStyles& operator=(const VisualStyles&) = delete;
    ~VisualStyles();

 private:
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

}  // namespace kovrel
