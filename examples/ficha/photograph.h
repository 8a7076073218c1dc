// The frame of the form that shows the customer's photograph.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "automation.h"

namespace ficha {

class Photograph {
 public:
    /// Takes the picture that the library returns for a field; none if it is not a picture.
    void set(const Value& picture);
    /// Scaled to the frame with its proportions; a hint while there is no picture.
    void draw(const DRAWITEMSTRUCT& frame) const;

 private:
    Owner<IPicture> picture_;
};

}  // namespace ficha
