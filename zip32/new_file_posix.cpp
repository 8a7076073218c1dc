// How a file is created beside its target and takes its place on POSIX systems.
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "file_access.h"
#include "posix_times.h"

namespace kovrel::zip {
namespace {

// Locks a new file against its removal by other updates; false if one has removed it already. On a
// file system without locks they cannot lock it to remove it either.
bool hold(int file) {
    if (flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
    struct stat status {};
    return fstat(file, &status) != 0 || status.st_nlink > 0;
}

// Where this user cannot keep the owner or the group, their permissions are not given to others.
void keep_permissions(int file, const struct stat& old) {
    mode_t mode = old.st_mode & 07777U;
    struct stat own {};
    if (fstat(file, &own) != 0) return;
    if (own.st_gid != old.st_gid && fchown(file, static_cast<uid_t>(-1), old.st_gid) != 0) {
        mode &= ~static_cast<mode_t>(S_IRWXG | S_ISGID);
    }
    if (own.st_uid != old.st_uid && fchown(file, old.st_uid, static_cast<gid_t>(-1)) != 0) {
        mode &= ~static_cast<mode_t>(S_ISUID);
    }
    [[maybe_unused]] const int changed = fchmod(file, mode);
}

}  // namespace

bool NewFile::create() {
    struct stat old {};
    const bool replaces = !permissions_ && stat(target_.c_str(), &old) == 0;
    // The replacement of a private archive must never be less private.
    const mode_t mode = permissions_.value_or(replaces ? 0600 : 0666);
    const int descriptor = open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor < 0) return errno != EEXIST;
    OpenFile file(descriptor);
    if (!hold(descriptor)) return false;
    if (replaces) keep_permissions(descriptor, old);
    file_ = std::move(file);
    return true;
}

void NewFile::set_status() noexcept {
    if (!modified_) return;
    const auto times = access_and_modification(*modified_);
    futimens(static_cast<int>(file_.handle()), times.data());
}

bool NewFile::rename_to_target() {
    return std::rename(path_.c_str(), target_.c_str()) == 0;
}

}  // namespace kovrel::zip
