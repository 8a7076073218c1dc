#include <windows.h>

#include "folder_access.h"
#include "services/text_encoding.h"
#include "windows_files.h"

namespace kovrel::zip {
namespace {

// Symbolic links and junctions stand for another name; other reparse points, such as those of
// deduplicated files and of files in the cloud, do not.
bool is_link(const std::wstring& path, DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return true;
    FindClose(search);
    return IsReparseTagNameSurrogate(found.dwReserved0) != 0;
}

}  // namespace

PathState path_state(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(system_path(path).c_str(), GetFileExInfoStandard, &data)) {
        const DWORD error = GetLastError();
        const bool nothing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
        return {nothing ? PathKind::nothing : PathKind::other, 0};
    }
    const DWORD attributes = data.dwFileAttributes;
    const PathKind kind = is_link(system_path(path), attributes)         ? PathKind::link
                          : (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathKind::folder
                          : (attributes & FILE_ATTRIBUTE_DEVICE) != 0    ? PathKind::other
                                                                         : PathKind::file;
    return {kind, moment_of(data.ftLastWriteTime)};
}

bool make_folder(const std::string& path, std::uint16_t /*permissions*/) {
    return CreateDirectoryW(system_path(path).c_str(), nullptr) != 0;
}

void set_folder_time(const std::string& path, Moment modified) {
    const OpenFile folder = open_file(path, FILE_WRITE_ATTRIBUTES, share_all, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT);
    const FILETIME time = file_time_of(modified);
    if (folder) SetFileTime(as_handle(folder), nullptr, nullptr, &time);
}

std::optional<Moment> moment_of_dos_time(const DosTime& local) {
    const std::optional<LocalTime> read = from_dos_time(local);
    if (!read) return std::nullopt;
    SYSTEMTIME parts{};
    parts.wYear = static_cast<WORD>(read->year);
    parts.wMonth = static_cast<WORD>(read->month);
    parts.wDay = static_cast<WORD>(read->day);
    parts.wHour = static_cast<WORD>(read->hour);
    parts.wMinute = static_cast<WORD>(read->minute);
    parts.wSecond = static_cast<WORD>(read->second);
    SYSTEMTIME universal{};
    FILETIME time{};
    if (!TzSpecificLocalTimeToSystemTime(nullptr, &parts, &universal) ||
        !SystemTimeToFileTime(&universal, &time)) {
        return std::nullopt;
    }
    return moment_of(time);
}

}  // namespace kovrel::zip
