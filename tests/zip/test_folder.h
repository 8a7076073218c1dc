// A temporary folder for one test, with helpers to fill it.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace kovrel::zip::test {

inline std::string utf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

inline std::filesystem::path from_utf8(const std::string& text) {
    return {std::u8string(text.begin(), text.end())};
}

class TestFolder {
 public:
    TestFolder() {
        std::random_device random;
        path_ = std::filesystem::temp_directory_path() /
                ("kovrel_zip_" + std::to_string(random()) + std::to_string(random()));
        std::filesystem::create_directories(path_);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    /// The UTF-8 path of a name in the folder.
    [[nodiscard]] std::string operator/(const std::string& name) const {
        return utf8(path_ / from_utf8(name));
    }
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    std::string write(const std::string& name, const std::string& data) const {
        std::string file = *this / name;
        std::filesystem::create_directories(from_utf8(file).parent_path());
        std::ofstream(from_utf8(file), std::ios::binary) << data;
        return file;
    }

    [[nodiscard]] std::string read(const std::string& name) const {
        std::ifstream file(from_utf8(*this / name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    [[nodiscard]] bool exists(const std::string& name) const {
        return std::filesystem::exists(from_utf8(*this / name));
    }

    /// How many files and folders lie directly in it.
    [[nodiscard]] std::size_t count() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(path_), {}));
    }

 private:
    std::filesystem::path path_;
};

/// Bytes that deflate well, but not in one run; the same for the same seed.
inline std::string compressible(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::string text;
    text.reserve(size + 16);
    while (text.size() < size) {
        text += "línea " + std::to_string(random() % 5000) + ";";
    }
    text.resize(size);
    return text;
}

inline std::string incompressible(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random());
    }
    return bytes;
}

}  // namespace kovrel::zip::test
