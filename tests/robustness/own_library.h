// The library loaded from a folder of the tests' own without the registry, so that its temporary
// files are there and its imports can be patched in this process only.
#pragma once

#include <string>
#include <vector>

#include "tests/support/late.h"

namespace kovrel::test {

struct OwnMember {
    std::wstring name;
    DISPID id = DISPID_UNKNOWN;
    WORD kind = 0;  ///< DISPATCH_METHOD, ...
    std::vector<std::wstring> parameters;
    std::vector<VARTYPE> types;  ///< pointers followed; VT_USERDEFINED for a type of a library
};

struct OwnClass {
    std::wstring name;
    CLSID id{};
    std::vector<OwnMember> members;

    [[nodiscard]] const OwnMember& member(const std::wstring& wanted, WORD kind) const;
};

/// Loaded at first use, never unloaded.
class OwnLibrary {
 public:
    static const OwnLibrary& get();

    /// Those that hosts create.
    [[nodiscard]] const std::vector<OwnClass>& classes() const noexcept { return classes_; }
    [[nodiscard]] const OwnClass& named(const std::wstring& name) const;
    [[nodiscard]] HMODULE module() const noexcept { return module_; }
    /// With the backslash at the end.
    [[nodiscard]] std::wstring folder() const;
    /// Null when that fails.
    [[nodiscard]] ComPtr<IDispatch> create(const OwnClass& of_class) const;
    [[nodiscard]] ComPtr<IDispatch> create(const std::wstring& name) const {
        return create(named(name));
    }
    /// The result of DllCanUnloadNow.
    [[nodiscard]] HRESULT can_unload() const;

 private:
    OwnLibrary();

    HMODULE module_;
    std::vector<OwnClass> classes_;
};

}  // namespace kovrel::test
