// zip32.dll, ours or the published one: whichever lies beside the library or in the system folder.
#pragma once

#include <windows.h>

#include <string>

#include "runtime/owned.h"
#include "zip32/zip32.h"

namespace kovrel {

/// The loaded DLL and its entry points.
class ZipLibrary {
 public:
    /// Looks in the library's own folder, then in the system folder; never the current directory
    /// or PATH (DLL planting). A DLL that cannot be loaded (invalid, or of the other bitness) is
    /// skipped. Failure 53 when there is none, 48 when none can be loaded, 453 when it lacks an
    /// entry point, each naming the file.
    ZipLibrary();

    /// One of the functions that only our own DLL has. Failure 453.
    [[nodiscard]] void* function(const char* name) const;

 private:
    using Module = Owned<HMODULE, &FreeLibrary>;
    struct Loaded {
        Module module;
        std::wstring path;
    };

    static Loaded load();
    explicit ZipLibrary(Loaded loaded);

    Module module_;
    std::wstring path_;

 public:
    decltype(&ZpInit) init;
    decltype(&ZpSetOptions) set_options;
    decltype(&ZpArchive) archive;
};

}  // namespace kovrel
