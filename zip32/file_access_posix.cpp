#include <algorithm>
#include <cerrno>
#include <climits>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "file_access.h"
#include "names.h"
#include "posix_times.h"
#include "runtime/owned.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

constexpr std::uint32_t dos_read_only = 0x01;
constexpr std::uint32_t dos_folder = 0x10;

DosTime local_dos_time(std::time_t moment) {
    std::tm local{};
    if (localtime_r(&moment, &local) == nullptr) return to_dos_time({1980, 1, 1, 0, 0, 0});
    return to_dos_time({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                        local.tm_min, local.tm_sec});
}

bool is_same(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

int descriptor(const OpenFile& file) {
    return static_cast<int>(file.handle());
}

// A call that a signal has interrupted is made again.
template <typename Call>
ssize_t uninterrupted(Call call) {
    ssize_t result = 0;
    do {
        result = call();
    } while (result < 0 && errno == EINTR);
    return result;
}

}  // namespace

std::uint16_t made_by_this_system() noexcept {
    return 3 << 8 | 20;
}

std::optional<FileStatus> file_status(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        // An archive of which the system cannot say whether it is there must not be replaced.
        if (errno == EIO || errno == ENOMEM || errno == ESTALE) {
            throw ZipError(ZipCode::read_failed, "could not examine: " + path);
        }
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) return std::nullopt;
    FileStatus result;
    result.folder = S_ISDIR(status.st_mode);
    result.hidden_or_system = last_component(path).starts_with('.');
    result.size = static_cast<std::uint64_t>(status.st_size);
    result.modified = local_dos_time(status.st_mtime);
    result.moment = moment_of(status.st_mtim);
    result.attributes = static_cast<std::uint32_t>(status.st_mode & 0xFFFF) << 16 |
                        (result.folder ? dos_folder : 0) |
                        ((status.st_mode & S_IWUSR) == 0 ? dos_read_only : 0);
    return result;
}

std::optional<std::vector<std::string>> folder_names(const std::string& path) {
    std::vector<std::string> names;
    const Owned<DIR*, &closedir> folder(opendir(path.c_str()));
    if (!folder) return std::nullopt;
    errno = 0;
    while (const dirent* found = readdir(folder.get())) {
        const std::string_view name = found->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
        errno = 0;
    }
    if (errno != 0) return std::nullopt;
    std::sort(names.begin(), names.end());
    return names;
}

bool is_same_file(const std::string& first, const std::string& second) {
    struct stat one {};
    struct stat other {};
    return stat(first.c_str(), &one) == 0 && stat(second.c_str(), &other) == 0 &&
           is_same(one, other);
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
        if (length <= 0) return result;
        const std::string_view target(text.data(), static_cast<std::size_t>(length));
        result = is_absolute(target) ? std::string(target) : folder_of(result).append(target);
    }
    return path;
}

std::string absolute_path(const std::string& path) {
    if (is_absolute(path)) return path;
    std::string folder(PATH_MAX, '\0');
    if (getcwd(folder.data(), folder.size()) == nullptr) return path;
    folder.resize(folder.find('\0'));
    return folder.append("/").append(path);
}

// Whoever writes a temporary file holds a lock on it.
void remove_unheld_file(const std::string& path) {
    const OpenFile file(open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat opened {};
    struct stat named {};
    if (file && flock(descriptor(file), LOCK_EX | LOCK_NB) == 0 &&
        fstat(descriptor(file), &opened) == 0 && lstat(path.c_str(), &named) == 0 &&
        S_ISREG(named.st_mode) && is_same(opened, named)) {
        remove_file(path);
    }
}

OpenFile::~OpenFile() {
    if (*this) close(descriptor(*this));
}

OpenFile open_for_reading(const std::string& path) {
    return OpenFile(open(path.c_str(), O_RDONLY | O_CLOEXEC));
}

std::optional<std::uint64_t> OpenFile::size() const noexcept {
    struct stat status {};
    if (fstat(descriptor(*this), &status) != 0) return std::nullopt;
    return static_cast<std::uint64_t>(status.st_size);
}

std::optional<std::size_t> OpenFile::read_some(std::uint64_t offset,
                                               std::span<std::uint8_t> room) const noexcept {
    const ssize_t count = uninterrupted([&] {
        return pread(descriptor(*this), room.data(), room.size(), static_cast<off_t>(offset));
    });
    return count < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(count));
}

std::size_t OpenFile::write_some(std::uint64_t offset, ByteView bytes) const noexcept {
    const ssize_t count = uninterrupted([&] {
        return pwrite(descriptor(*this), bytes.data(), bytes.size(), static_cast<off_t>(offset));
    });
    return static_cast<std::size_t>(std::max<ssize_t>(count, 0));
}

bool OpenFile::set_size(std::uint64_t size) const noexcept {
    return ftruncate(descriptor(*this), static_cast<off_t>(size)) == 0;
}

bool OpenFile::flush() const noexcept {
    // EINVAL: a file system that has nothing to flush.
    return fsync(descriptor(*this)) == 0 || errno == EINVAL;
}

}  // namespace kovrel::zip
