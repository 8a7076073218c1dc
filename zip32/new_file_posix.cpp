// The file that an archive is written to, on POSIX systems.
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "file_access.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

int descriptor(std::intptr_t handle) {
    return static_cast<int>(handle);
}

// Locks a new file against its removal by others; false when one of them was faster. A file system
// without locks has none for them either.
bool hold(int file) {
    struct stat status {};
    return (flock(file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) &&
           fstat(file, &status) == 0 && status.st_nlink > 0;
}

// Where the owner or the group may not be kept, what they could do with the file is not given to
// others in their place.
void keep_permissions(int file, const struct stat& old) {
    mode_t mode = old.st_mode & 07777U;
    struct stat own {};
    if (fstat(file, &own) != 0) {
        return;
    }
    if (own.st_gid != old.st_gid && fchown(file, static_cast<uid_t>(-1), old.st_gid) != 0) {
        mode &= ~static_cast<mode_t>(S_IRWXG | S_ISGID);
    }
    if (own.st_uid != old.st_uid && fchown(file, old.st_uid, static_cast<gid_t>(-1)) != 0) {
        mode &= ~static_cast<mode_t>(S_ISUID);
    }
    [[maybe_unused]] const int changed = fchmod(file, mode);
}

}  // namespace

NewFile::NewFile(const std::string& target) : target_(target) {
    remove_abandoned_files_beside(target);
    struct stat old {};
    const bool replaces = stat(target.c_str(), &old) == 0;
    for (int attempt = 0; handle_ < 0 && attempt < 100; ++attempt) {
        path_ = temporary_name_beside(target);
        // What replaces a private file is never less private itself.
        const int file =
            open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, replaces ? 0600 : 0666);
        if (file < 0 && errno != EEXIST) {
            break;
        }
        if (file >= 0 && !hold(file)) {
            close(file);
            continue;
        }
        handle_ = file;
    }
    if (handle_ < 0) {
        path_.clear();
        throw ZipError(ZipCode::cannot_create, "could not create: " + target);
    }
    if (replaces) {
        keep_permissions(descriptor(handle_), old);
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
    if (fsync(descriptor(handle_)) != 0 && errno != EINVAL) {
        throw ZipError(ZipCode::write_failed, "could not write: " + target_);
    }
    // The file is held until it has its name: it is nobody's to remove in between.
    if (std::rename(path_.c_str(), target_.c_str()) != 0) {
        throw ZipError(ZipCode::cannot_create, "could not replace: " + target_);
    }
    path_.clear();
    close(descriptor(std::exchange(handle_, -1)));
}

}  // namespace kovrel::zip
