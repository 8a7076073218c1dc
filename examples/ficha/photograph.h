// The frame of the form that shows the customer's photograph.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "automation.h"

namespace ficha {

class Photograph {
 public:
    /// Takes what the library gives for a field; nothing where that is no picture.
    void set(const Value& picture);
    /// As large as the frame holds, its proportions kept; a hint while there is no picture.
    void draw(const DRAWITEMSTRUCT& frame) const;

 private:
    Owner<IPicture> picture_;
};

}  // namespace ficha
