// zip32.dll, ours or the published one: whichever lies beside the library or in the system folder.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>

#include "zip32/zip32.h"

namespace kovrel {

/// The DLL, loaded as long as this lives, and its entry points.
class ZipLibrary {
 public:
    /// Looks in the library's own folder, then in the system folder, and nowhere else: what lies in
    /// the current folder or on the search path is none of ours. A DLL that cannot be loaded (no
    /// DLL, or one of the other bitness) is passed over. Failure 53 when there is none, 48 when
    /// there is but none that can be loaded, 453 when it lacks an entry point, each naming the
    /// file.
    ZipLibrary();

 private:
    struct FreeModule {
        void operator()(HMODULE module) const noexcept { FreeLibrary(module); }
    };
    using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeModule>;
    struct Loaded {
        Module module;
        std::wstring path;
    };

    static Loaded load();
    explicit ZipLibrary(Loaded loaded);

    Module module_;

 public:
    const decltype(&ZpInit) init;
    const decltype(&ZpSetOptions) set_options;
    const decltype(&ZpArchive) archive;
};

}  // namespace kovrel
