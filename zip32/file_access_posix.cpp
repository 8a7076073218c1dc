#include <algorithm>
#include <cerrno>
#include <climits>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
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

std::string final_path(const std::string& path) {
    constexpr int most_links = 40;
    std::string result = path;
    std::string text(PATH_MAX, '\0');
    for (int links = 0; links < most_links; ++links) {
        const ssize_t length = readlink(result.c_str(), text.data(), text.size());
        if (length <= 0) {
            return result;
        }
        const std::string_view target(text.data(), static_cast<std::size_t>(length));
        result = is_absolute(target, PathStyle::posix)
                     ? std::string(target)
                     : folder_of(result, PathStyle::posix).append(target);
    }
    return path;
}

// A file under work is locked by its writer as long as the writer lives.
void remove_unheld_file(const std::string& path) {
    const int file = open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) {
        return;
    }
    struct stat opened {};
    struct stat named {};
    if (flock(file, LOCK_EX | LOCK_NB) == 0 && fstat(file, &opened) == 0 &&
        lstat(path.c_str(), &named) == 0 && S_ISREG(named.st_mode) &&
        opened.st_dev == named.st_dev && opened.st_ino == named.st_ino) {
        remove_file(path);
    }
    close(file);
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

}  // namespace kovrel::zip
