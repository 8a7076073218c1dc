#include "file_access.h"

#include <atomic>
#include <random>

#include "names.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

constexpr std::string_view first_letters = "zi";
constexpr std::string_view digits = "0123456789abcdef";
constexpr std::size_t digit_count = 8;
constexpr std::string_view extension = ".tmp";

bool is_temporary_name(std::string_view name) {
    return name.size() == first_letters.size() + digit_count + extension.size() &&
           name.starts_with(first_letters) && name.ends_with(extension) &&
           name.find_first_not_of(digits, first_letters.size()) == name.size() - extension.size();
}

// Different for each call and in each process. Asking the system for a random number takes as long
// as creating a file, so it is asked once; the steps and shifts are those of a common hash.
std::uint32_t next_number() {
    static const std::uint32_t first = std::random_device()();
    static std::atomic<std::uint32_t> count = 0;
    std::uint32_t value = first + ++count * 0x9E3779B9U;
    value = (value ^ value >> 16) * 0x85EBCA6BU;
    value = (value ^ value >> 13) * 0xC2B2AE35U;
    return value ^ value >> 16;
}

// A new name in the folder of `target`.
std::string temporary_name_beside(const std::string& target) {
    std::string name = folder_of(target).append(first_letters);
    std::uint32_t value = next_number();
    for (std::size_t i = 0; i < digit_count; ++i, value >>= 4) name.push_back(digits[value & 0xF]);
    return name.append(extension);
}

}  // namespace

void remove_abandoned_files_beside(const std::string& target) {
    const std::string folder = folder_of(target);
    // "." after a drive alone is its current folder, after anything else the folder itself.
    const auto names = folder_names(folder + '.');
    for (const std::string& name : names.value_or(std::vector<std::string>())) {
        if (is_temporary_name(name)) remove_unheld_file(folder + name);
    }
}

InputFile::InputFile(const std::string& path) : file_(open_for_reading(path)), path_(path) {
    if (!file_) throw ZipError(ZipCode::cannot_open_file, "could not open for reading: " + path);
}

std::uint64_t InputFile::size() const {
    if (const auto size = file_.size()) return *size;
    throw ZipError(ZipCode::read_failed, "could not read: " + path_);
}

std::size_t InputFile::read_at(std::uint64_t offset, std::span<std::uint8_t> room) const {
    std::size_t done = 0;
    while (done < room.size()) {
        const auto count = file_.read_some(offset + done, room.subspan(done));
        if (!count) throw ZipError(ZipCode::read_failed, "could not read: " + path_);
        if (*count == 0) break;
        done += *count;
    }
    return done;
}

NewFile::NewFile(const std::string& target) : target_(target) {
    remove_abandoned_files_beside(target);
    create_beside_target();
}

NewFile::NewFile(const std::string& target, std::uint16_t permissions)
    : target_(target), permissions_(permissions) {
    create_beside_target();
}

void NewFile::create_beside_target() {
    bool name_is_taken = true;
    for (int attempts = 0; name_is_taken && attempts < 100; ++attempts) {
        path_ = temporary_name_beside(target_);
        name_is_taken = !create();
    }
    if (!file_) throw ZipError(ZipCode::cannot_create, "could not create: " + target_);
}

NewFile::~NewFile() {
    file_ = OpenFile();
    if (!path_.empty()) remove_file(path_);
}

void NewFile::write_at(std::uint64_t offset, ByteView bytes) {
    while (!bytes.empty()) {
        const std::size_t count = file_.write_some(offset, bytes);
        if (count == 0) throw ZipError(ZipCode::write_failed, "could not write: " + target_);
        bytes = bytes.subspan(count);
        offset += count;
    }
}

void NewFile::set_size(std::uint64_t size) {
    if (!file_.set_size(size)) throw ZipError(ZipCode::write_failed, "could not write: " + target_);
}

void NewFile::replace_target() {
    if (!permissions_ && !file_.flush()) {
        throw ZipError(ZipCode::write_failed, "could not write: " + target_);
    }
    // The file stays open until it has its name, so that nobody else can remove it before.
    if (!rename_to_target()) {
        throw ZipError(ZipCode::cannot_create, "could not replace: " + target_);
    }
    path_.clear();
    set_status();
    file_ = OpenFile();
}

}  // namespace kovrel::zip
