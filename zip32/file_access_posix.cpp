#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "file_access.h"
#include "names.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

constexpr std::uint32_t dos_read_only = 0x01;
constexpr std::uint32_t dos_folder = 0x10;

int descriptor(std::intptr_t handle) {
    return static_cast<int>(handle);
}

DosTime local_dos_time(std::time_t moment) {
    std::tm local{};
    if (localtime_r(&moment, &local) == nullptr) {
        return to_dos_time({1980, 1, 1, 0, 0, 0});
    }
    return to_dos_time({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                        local.tm_min, local.tm_sec});
}

std::uint32_t entry_attributes(const struct stat& status) {
    std::uint32_t dos = S_ISDIR(status.st_mode) ? dos_folder : 0;
    if ((status.st_mode & S_IWUSR) == 0) {
        dos |= dos_read_only;
    }
    return static_cast<std::uint32_t>(status.st_mode & 0xFFFF) << 16 | dos;
}

}  // namespace

std::uint16_t made_by_this_system() noexcept {
    return 3 << 8 | 20;
}

std::optional<FileStatus> file_status(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 ||
        (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode))) {
        return std::nullopt;
    }
    FileStatus result;
    result.folder = S_ISDIR(status.st_mode);
    result.hidden_or_system = last_component(path, PathStyle::posix).starts_with('.');
    result.size = static_cast<std::uint64_t>(status.st_size);
    result.modified = local_dos_time(status.st_mtime);
    result.attributes = entry_attributes(status);
    return result;
}

std::vector<std::string> folder_names(const std::string& path) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(path.c_str()), closedir);
    while (folder) {
        const dirent* found = readdir(folder.get());
        if (found == nullptr) {
            break;
        }
        const std::string_view name = found->d_name;
        if (name != "." && name != "..") {
            names.emplace_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool is_same_file(const std::string& first, const std::string& second) {
    struct stat one {};
    struct stat other {};
    return stat(first.c_str(), &one) == 0 && stat(second.c_str(), &other) == 0 &&
           one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

bool is_replaceable(const std::string& path) {
    return access(path.c_str(), W_OK) == 0;
}

bool remove_file(const std::string& path) noexcept {
    return unlink(path.c_str()) == 0;
}

std::string name_key(const std::string& name) {
    return name;
}

InputFile::InputFile(const std::string& path)
    : handle_(open(path.c_str(), O_RDONLY | O_CLOEXEC)), path_(path) {
    if (handle_ < 0) {
        throw ZipError(ZipCode::cannot_open_file, "could not open for reading: " + path);
    }
}

InputFile::InputFile(InputFile&& other) noexcept
    : handle_(std::exchange(other.handle_, -1)), path_(std::move(other.path_)) {}

InputFile::~InputFile() {
    if (handle_ >= 0) {
        close(descriptor(handle_));
    }
}

std::uint64_t InputFile::size() const {
    struct stat status {};
    if (fstat(descriptor(handle_), &status) != 0) {
        throw ZipError(ZipCode::read_failed, "could not read: " + path_);
    }
    return static_cast<std::uint64_t>(status.st_size);
}

std::size_t InputFile::read_at(std::uint64_t offset, std::span<std::uint8_t> room) const {
    std::size_t done = 0;
    while (done < room.size()) {
        const ssize_t count = pread(descriptor(handle_), room.data() + done, room.size() - done,
                                    static_cast<off_t>(offset + done));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            throw ZipError(ZipCode::read_failed, "could not read: " + path_);
        }
        if (count == 0) {
            break;
        }
        done += static_cast<std::size_t>(count);
    }
    return done;
}

NewFile::NewFile(const std::string& target) : target_(target) {
    for (int attempt = 0; handle_ < 0 && attempt < 100; ++attempt) {
        path_ = temporary_name_beside(target);
        handle_ = open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (handle_ < 0 && errno != EEXIST) {
            break;
        }
    }
    if (handle_ < 0) {
        throw ZipError(ZipCode::cannot_create, "could not create: " + target);
    }
    struct stat status {};
    if (stat(target.c_str(), &status) == 0) {
        // The new archive keeps the old one's permissions; where it may not, the default stands.
        [[maybe_unused]] const int changed = fchmod(descriptor(handle_), status.st_mode & 07777U);
    }
}

NewFile::~NewFile() {
    if (handle_ >= 0) {
        close(descriptor(handle_));
    }
    if (!path_.empty()) {
        remove_file(path_);
    }
}

void NewFile::write_at(std::uint64_t offset, ByteView bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            pwrite(descriptor(handle_), bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            throw ZipError(ZipCode::write_failed, "could not write: " + target_);
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
        offset += static_cast<std::uint64_t>(count);
    }
}

void NewFile::set_size(std::uint64_t size) {
    if (ftruncate(descriptor(handle_), static_cast<off_t>(size)) != 0) {
        throw ZipError(ZipCode::write_failed, "could not write: " + target_);
    }
}

void NewFile::replace_target() {
    const bool stored = fsync(descriptor(handle_)) == 0 || errno == EINVAL;
    const bool closed = close(descriptor(std::exchange(handle_, -1))) == 0;
    if (!stored || !closed) {
        throw ZipError(ZipCode::write_failed, "could not write: " + target_);
    }
    if (std::rename(path_.c_str(), target_.c_str()) != 0) {
        throw ZipError(ZipCode::cannot_create, "could not replace: " + target_);
    }
    path_.clear();
}

}  // namespace kovrel::zip
