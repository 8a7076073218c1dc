#include "automation/record_sizes.h"

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "runtime/failure.h"

namespace kovrel {
namespace {

// The published layout of the "MSFT" type library format.
constexpr std::uint32_t signature = 0x5446534D;
constexpr std::size_t header_size = 0x54;
constexpr std::size_t flags_at = 0x14;
constexpr std::size_t type_count_at = 0x20;
constexpr std::uint32_t help_dll_flag = 0x100;  // the header is one number longer
constexpr std::size_t type_size = 0x64;
constexpr std::size_t instance_size_at = 0x50;

class TypeLibraryFile {
 public:
    explicit TypeLibraryFile(const std::wstring& path)
        : file_(std::filesystem::path(path), std::ios::binary | std::ios::in | std::ios::out) {
        if (number_at(0) != signature) throw Failure(FailureNumber::device_io);
    }

    [[nodiscard]] std::uint32_t number_at(std::size_t offset) {
        std::array<char, sizeof(std::uint32_t)> bytes{};
        file_.seekg(static_cast<std::streamoff>(offset));
        file_.read(bytes.data(), bytes.size());
        if (!file_) throw Failure(FailureNumber::device_io);
        std::uint32_t number = 0;
        std::memcpy(&number, bytes.data(), bytes.size());
        return number;
    }

    void put(std::size_t offset, std::uint32_t number) {
        std::array<char, sizeof number> bytes{};
        std::memcpy(bytes.data(), &number, bytes.size());
        file_.seekp(static_cast<std::streamoff>(offset));
        file_.write(bytes.data(), bytes.size());
        if (!file_.flush()) throw Failure(FailureNumber::device_io);
    }

 private:
    std::fstream file_;
};

}  // namespace

void write_record_sizes(const std::wstring& path, const std::vector<RecordSize>& sizes) {
    TypeLibraryFile file(path);
    const std::size_t types = file.number_at(type_count_at);
    const bool longer = (file.number_at(flags_at) & help_dll_flag) != 0;
    const std::size_t directory = header_size + (longer ? 4 : 0) + types * 4;
    const std::size_t first_type = file.number_at(directory);
    for (const RecordSize& size : sizes) {
        file.put(first_type + size.type * type_size + instance_size_at, size.bytes);
    }
}

}  // namespace kovrel
