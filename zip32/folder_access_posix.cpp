#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>

#include "folder_access.h"
#include "posix_times.h"

namespace kovrel::zip {

PathState path_state(const std::string& path) {
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0) {
        return {errno == ENOENT ? PathKind::nothing : PathKind::other, 0};
    }
    const PathKind kind = S_ISREG(status.st_mode)   ? PathKind::file
                          : S_ISDIR(status.st_mode) ? PathKind::folder
                          : S_ISLNK(status.st_mode) ? PathKind::link
                                                    : PathKind::other;
    return {kind, moment_of(status.st_mtim)};
}

bool make_folder(const std::string& path, std::uint16_t permissions) {
    return mkdir(path.c_str(), permissions) == 0;
}

void set_folder_time(const std::string& path, Moment modified) {
    const auto times = access_and_modification(modified);
    utimensat(AT_FDCWD, path.c_str(), times.data(), AT_SYMLINK_NOFOLLOW);
}

std::optional<Moment> moment_of_dos_time(const DosTime& local) {
    const std::optional<LocalTime> read = from_dos_time(local);
    if (!read) return std::nullopt;
    std::tm parts{};
    parts.tm_year = read->year - 1900;
    parts.tm_mon = read->month - 1;
    parts.tm_mday = read->day;
    parts.tm_hour = read->hour;
    parts.tm_min = read->minute;
    parts.tm_sec = read->second;
    parts.tm_isdst = -1;
    return moment_of_unix_time(std::mktime(&parts));
}

}  // namespace kovrel::zip
