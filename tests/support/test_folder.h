// A folder of a test's own, removed with all that it holds.
#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace kovrel::test {

class TestFolder {
 public:
    explicit TestFolder(const std::wstring& name = L"Prueba ñ")
        : path_(std::filesystem::temp_directory_path() /
                (name + L" " + std::to_wstring(GetCurrentProcessId()))) {
        remove();
        std::filesystem::create_directories(path_);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder() { remove(); }

    /// Full path of an entry, with backslashes.
    [[nodiscard]] std::wstring operator/(const std::wstring& name) const {
        return path_.wstring() + L'\\' + name;
    }
    [[nodiscard]] std::wstring path() const { return path_.wstring(); }

    std::wstring write(const std::wstring& name, std::string_view content = {}) const {
        std::ofstream(path_ / name, std::ios::binary)
            .write(content.data(), static_cast<std::streamsize>(content.size()));
        return *this / name;
    }

 private:
    /// With the prefix that lifts the length limit, since tests make deep folders.
    void remove() const {
        std::error_code ignored;
        std::filesystem::remove_all(LR"(\\?\)" + path_.wstring(), ignored);
    }

    std::filesystem::path path_;
};

inline std::string content_of(const std::wstring& file) {
    std::ifstream stream(std::filesystem::path(file), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace kovrel::test
