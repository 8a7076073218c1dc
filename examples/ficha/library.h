// The library's objects that the form works with, called by name.
#pragma once

#include "automation.h"

namespace ficha {

/// Thrown where the library is not registered for programs of this bitness.
class NotRegistered {};

struct Library {
    Library();

    Object general;   ///< clsFGen: checks, keystrokes, progress, words
    Object messages;  ///< its catalogue of messages
    Object dates;     ///< clsFFechas
    Object files;     ///< cgsFileOpR
    Object images;    ///< clsADODBServices
    Object archives;  ///< clsFZip
};

}  // namespace ficha
