#include "automation/record_sizes.h"

#include <cstdio>
#include <memory>

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
    explicit TypeLibraryFile(const std::wstring& path) : file_(_wfopen(path.c_str(), L"r+b")) {
        if (!file_ || number_at(0) != signature) throw Failure(FailureNumber::device_io);
    }

    [[nodiscard]] std::uint32_t number_at(std::size_t offset) {
        std::uint32_t number = 0;
        seek(offset);
        if (std::fread(&number, sizeof number, 1, file_.get()) != 1) {
            throw Failure(FailureNumber::device_io);
        }
        return number;
    }

    void put(std::size_t offset, std::uint32_t number) {
        seek(offset);
        if (std::fwrite(&number, sizeof number, 1, file_.get()) != 1 ||
            std::fflush(file_.get()) != 0) {
            throw Failure(FailureNumber::device_io);
        }
    }

 private:
    struct Close {
        void operator()(std::FILE* file) const noexcept { std::fclose(file); }
    };

    void seek(std::size_t offset) {
        if (std::fseek(file_.get(), static_cast<long>(offset), SEEK_SET) != 0) {
            throw Failure(FailureNumber::device_io);
        }
    }

    std::unique_ptr<std::FILE, Close> file_;
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
