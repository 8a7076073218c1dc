#include "tools/type_library_repair.h"

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
constexpr std::size_t kind_at = 0x00;
constexpr std::uint32_t kind_mask = 0x0F;
constexpr std::uint32_t interface_kind = 3;
constexpr std::uint32_t dispatch_kind = 4;  // a dual interface's
constexpr std::size_t members_at = 0x04;
constexpr std::size_t member_counts_at = 0x18;
constexpr std::size_t instance_size_at = 0x50;

// Of a type's members, which begin with their common length: of each function, its length, the
// number of its parameters, and the parameters at its end with their defaults in front of them.
constexpr std::uint32_t low_word = 0xFFFF;
constexpr std::size_t function_flags_at = 0x10;
constexpr std::uint32_t has_defaults = 0x1000;
constexpr std::size_t parameter_count_at = 0x14;
constexpr std::size_t parameter_size = 12;
constexpr std::size_t default_size = 4;

// Small values are stored in the default's offset field, preceded by their type.
constexpr std::uint32_t cut_true = 0xAC0000FF;
constexpr std::uint32_t whole_true = 0xAC00FFFF;

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

    [[nodiscard]] std::size_t type_count() { return number_at(type_count_at); }
    [[nodiscard]] std::size_t offset_of_type(std::size_t type) {
        const bool longer = (number_at(flags_at) & help_dll_flag) != 0;
        const std::size_t directory = header_size + (longer ? 4 : 0) + type_count() * 4;
        return number_at(directory) + type * type_size;
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

void complete_defaults(TypeLibraryFile& file, std::size_t function, std::size_t end) {
    if ((file.number_at(function + function_flags_at) & has_defaults) == 0) return;
    const std::size_t count = file.number_at(function + parameter_count_at) & low_word;
    std::size_t at = end - count * (parameter_size + default_size);
    for (std::size_t index = 0; index < count; ++index, at += default_size) {
        if (file.number_at(at) == cut_true) file.put(at, whole_true);
    }
}

}  // namespace

void write_record_sizes(const std::wstring& path, const std::vector<RecordSize>& sizes) {
    TypeLibraryFile file(path);
    for (const RecordSize& size : sizes) {
        file.put(file.offset_of_type(size.type) + instance_size_at, size.bytes);
    }
}

void write_true_defaults(const std::wstring& path) {
    TypeLibraryFile file(path);
    for (std::size_t index = 0; index < file.type_count(); ++index) {
        const std::size_t type = file.offset_of_type(index);
        const std::uint32_t kind = file.number_at(type + kind_at) & kind_mask;
        if (kind != interface_kind && kind != dispatch_kind) continue;
        std::size_t function = file.number_at(type + members_at) + sizeof(std::uint32_t);
        const std::size_t count = file.number_at(type + member_counts_at) & low_word;
        for (std::size_t member = 0; member < count; ++member) {
            const std::size_t end = function + (file.number_at(function) & low_word);
            complete_defaults(file, function, end);
            function = end;
        }
    }
}

}  // namespace kovrel
