// Replaces a system function in the library's calls to it: for effects that a test cannot observe,
// like the beep, and for results that are hard to provoke.
#pragma once

#include <windows.h>

#include <string>

namespace kovrel::test {

/// Puts `replacement` where a loaded module keeps the address of an imported function, for as long
/// as it lives; a function that the module does not import is replaced where it is looked up by
/// GetProcAddress. Patches end in the reverse order.
class ImportPatch {
 public:
    ImportPatch(const wchar_t* module, const char* function, void* replacement);
    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;
    ~ImportPatch();

    /// False when the module neither imports the function by its name nor looks any up.
    [[nodiscard]] bool in_place() const { return entry_ != nullptr; }

 private:
    void* put(void* address);

    void** entry_ = nullptr;
    void* original_ = nullptr;
    std::string looked_up_;  ///< empty: imported
};

}  // namespace kovrel::test
