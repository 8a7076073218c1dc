#include "tests/zip/refusing_calls.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>

namespace kovrel::zip::test {
namespace {

std::atomic<bool> counting = false;
std::atomic<std::size_t> calls_left = 0;
std::atomic<int> error_to_give = 0;
std::atomic<const char*> refused = nullptr;

bool is_refused(const char* name) {
    if (!counting || --calls_left != 0) return false;
    refused = name;
    errno = error_to_give;
    return true;
}

}  // namespace

void refuse_call(std::size_t n, int error) {
    calls_left = n;
    error_to_give = error;
    refused = nullptr;
    counting = true;
}

std::string stop_refusing() {
    counting = false;
    const char* const name = refused;
    return name == nullptr ? "" : name;
}

}  // namespace kovrel::zip::test

using kovrel::zip::test::is_refused;

// The names are those that the linker looks for.
extern "C" {

int __real_open(const char* path, int flags, mode_t mode);
int __wrap_open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return is_refused("open") ? -1 : __real_open(path, flags, mode);
}

ssize_t __real_pread(int file, void* room, std::size_t size, off_t offset);
ssize_t __wrap_pread(int file, void* room, std::size_t size, off_t offset) {
    return is_refused("pread") ? -1 : __real_pread(file, room, size, offset);
}

ssize_t __real_pwrite(int file, const void* bytes, std::size_t size, off_t offset);
ssize_t __wrap_pwrite(int file, const void* bytes, std::size_t size, off_t offset) {
    return is_refused("pwrite") ? -1 : __real_pwrite(file, bytes, size, offset);
}

ssize_t __real_readlink(const char* path, char* room, std::size_t size);
ssize_t __wrap_readlink(const char* path, char* room, std::size_t size) {
    return is_refused("readlink") ? -1 : __real_readlink(path, room, size);
}

DIR* __real_opendir(const char* path);
DIR* __wrap_opendir(const char* path) {
    return is_refused("opendir") ? nullptr : __real_opendir(path);
}

int __real_access(const char* path, int mode);
int __wrap_access(const char* path, int mode) {
    return is_refused("access") ? -1 : __real_access(path, mode);
}

int __real_fchmod(int file, mode_t mode);
int __wrap_fchmod(int file, mode_t mode) {
    return is_refused("fchmod") ? -1 : __real_fchmod(file, mode);
}

int __real_fchown(int file, uid_t user, gid_t group);
int __wrap_fchown(int file, uid_t user, gid_t group) {
    return is_refused("fchown") ? -1 : __real_fchown(file, user, group);
}

int __real_flock(int file, int operation);
int __wrap_flock(int file, int operation) {
    return is_refused("flock") ? -1 : __real_flock(file, operation);
}

int __real_fstat(int file, struct stat* status);
int __wrap_fstat(int file, struct stat* status) {
    return is_refused("fstat") ? -1 : __real_fstat(file, status);
}

int __real_stat(const char* path, struct stat* status);
int __wrap_stat(const char* path, struct stat* status) {
    return is_refused("stat") ? -1 : __real_stat(path, status);
}

int __real_lstat(const char* path, struct stat* status);
int __wrap_lstat(const char* path, struct stat* status) {
    return is_refused("lstat") ? -1 : __real_lstat(path, status);
}

int __real_fsync(int file);
int __wrap_fsync(int file) {
    return is_refused("fsync") ? -1 : __real_fsync(file);
}

int __real_ftruncate(int file, off_t size);
int __wrap_ftruncate(int file, off_t size) {
    return is_refused("ftruncate") ? -1 : __real_ftruncate(file, size);
}

int __real_futimens(int file, const timespec* times);
int __wrap_futimens(int file, const timespec* times) {
    return is_refused("futimens") ? -1 : __real_futimens(file, times);
}

int __real_utimensat(int folder, const char* path, const timespec* times, int flags);
int __wrap_utimensat(int folder, const char* path, const timespec* times, int flags) {
    return is_refused("utimensat") ? -1 : __real_utimensat(folder, path, times, flags);
}

int __real_mkdir(const char* path, mode_t mode);
int __wrap_mkdir(const char* path, mode_t mode) {
    return is_refused("mkdir") ? -1 : __real_mkdir(path, mode);
}

int __real_rename(const char* from, const char* to);
int __wrap_rename(const char* from, const char* to) {
    return is_refused("rename") ? -1 : __real_rename(from, to);
}

int __real_unlink(const char* path);
int __wrap_unlink(const char* path) {
    return is_refused("unlink") ? -1 : __real_unlink(path);
}

}  // extern "C"
