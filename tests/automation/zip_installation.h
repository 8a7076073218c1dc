// Unregistered copies of the library, each in its own folder with or without a zip32.dll.
#pragma once

#include "tests/automation/zip_test.h"
#include "tests/support/library_module.h"

namespace kovrel::test {

/// A copy of the library. It stays loaded until the process ends, so its folder is removed by the
/// next run.
class Installation {
 public:
    explicit Installation(const std::string& name)
        : folder_((std::filesystem::path(KOVREL_INSTALLATIONS) / name).make_preferred()) {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        std::filesystem::copy_file(KOVREL_LIBRARY, folder_ / "kovrel.dll");
    }

    [[nodiscard]] std::filesystem::path zip32() const { return folder_ / "zip32.dll"; }

    [[nodiscard]] ComPtr<IDispatch> create_zip() const {
        CLSID class_id{};
        const HMODULE module = LoadLibraryW((folder_ / "kovrel.dll").c_str());
        EXPECT_NE(module, nullptr);
        if (module == nullptr || FAILED(CLSIDFromProgID(L"Kovrel.clsFZip", &class_id))) {
            return {};
        }
        return create_from(module, class_id);
    }

 private:
    std::filesystem::path folder_;
};

}  // namespace kovrel::test
