// The library's objects that the form works with, created and called by name.
#pragma once

#include "automation/host_object.h"

namespace ficha {

/// Thrown where the library is not registered for programs of this bitness.
class NotRegistered {};

struct Library {
    Library();

    kovrel::HostObject general;   ///< clsFGen: checks, keystrokes, progress, words
    kovrel::HostObject messages;  ///< its catalogue of messages
    kovrel::HostObject dates;     ///< clsFFechas
    kovrel::HostObject files;     ///< cgsFileOpR
    kovrel::HostObject images;    ///< clsADODBServices
    kovrel::HostObject archives;  ///< clsFZip
};

}  // namespace ficha
