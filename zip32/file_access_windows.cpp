#include <windows.h>

#include <algorithm>
#include <utility>

#include "file_access.h"
#include "runtime/owned.h"
#include "services/text_encoding.h"
#include "windows_files.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

constexpr DWORD share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

DosTime local_dos_time(const FILETIME& moment) {
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    if (!FileTimeToSystemTime(&moment, &universal) ||
        !SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local)) {
        return to_dos_time({1980, 1, 1, 0, 0, 0});
    }
    return to_dos_time(
        {local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond});
}

// Null when there is no such file.
Owned<HANDLE, &CloseHandle> open_to_compare(const std::string& path) {
    const HANDLE file = CreateFileW(system_path(path).c_str(), FILE_READ_ATTRIBUTES, share_all,
                                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    return Owned<HANDLE, &CloseHandle>(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

}  // namespace

// Not DOS, although the attributes are its: Info-ZIP's unzip takes the names of DOS entries for
// code page 850 even where they are marked as UTF-8.
std::uint16_t made_by_this_system() noexcept {
    return 10 << 8 | 20;
}

std::optional<FileStatus> file_status(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (path.empty() ||
        !GetFileAttributesExW(system_path(path).c_str(), GetFileExInfoStandard, &data) ||
        (data.dwFileAttributes & FILE_ATTRIBUTE_DEVICE) != 0) {
        return std::nullopt;
    }
    constexpr DWORD kept = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                           FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_ARCHIVE;
    FileStatus result;
    result.folder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    result.hidden_or_system =
        (data.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0;
    result.size = std::uint64_t{data.nFileSizeHigh} << 32 | data.nFileSizeLow;
    result.modified = local_dos_time(data.ftLastWriteTime);
    result.attributes = data.dwFileAttributes & kept;
    return result;
}

std::vector<std::string> folder_names(const std::string& path) {
    std::vector<std::string> names;
    WIN32_FIND_DATAW found{};
    const HANDLE handle = FindFirstFileW(system_path(path + "\\*").c_str(), &found);
    if (handle == INVALID_HANDLE_VALUE) {
        return names;
    }
    const Owned<HANDLE, &FindClose> search(handle);
    do {
        const std::wstring_view name = found.cFileName;
        if (name != L"." && name != L"..") {
            names.push_back(to_utf8(name));
        }
    } while (FindNextFileW(handle, &found));
    std::sort(names.begin(), names.end());
    return names;
}

bool is_same_file(const std::string& first, const std::string& second) {
    const auto one = open_to_compare(first);
    const auto other = open_to_compare(second);
    BY_HANDLE_FILE_INFORMATION one_is{};
    BY_HANDLE_FILE_INFORMATION other_is{};
    return one && other && GetFileInformationByHandle(one.get(), &one_is) &&
           GetFileInformationByHandle(other.get(), &other_is) &&
           one_is.dwVolumeSerialNumber == other_is.dwVolumeSerialNumber &&
           one_is.nFileIndexHigh == other_is.nFileIndexHigh &&
           one_is.nFileIndexLow == other_is.nFileIndexLow;
}

bool is_replaceable(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(system_path(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) == 0;
}

bool remove_file(const std::string& path) noexcept {
    try {
        return DeleteFileW(system_path(path).c_str()) != 0;
    } catch (const std::exception&) {
        return false;
    }
}

std::string final_path(const std::string& path) {
    const auto file = open_to_compare(path);
    if (!file) return path;
    std::wstring found(GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED),
                       L'\0');
    found.resize(GetFinalPathNameByHandleW(file.get(), found.data(),
                                           static_cast<DWORD>(found.size()), FILE_NAME_NORMALIZED));
    return found.empty() ? path : to_utf8(without_limit_prefix(found));
}

void remove_unheld_file(const std::string& path) {
    // A file under work is opened so that nobody else can, until it has its target's name.
    remove_file(path);
}

std::string name_key(const std::string& name) {
    const std::wstring wide = from_utf8(name);
    std::wstring upper(wide.size(), L'\0');
    LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, wide.data(), static_cast<int>(wide.size()),
                 upper.data(), static_cast<int>(upper.size()));
    return to_utf8(upper);
}

InputFile::InputFile(const std::string& path)
    : handle_(reinterpret_cast<std::intptr_t>(CreateFileW(system_path(path).c_str(), GENERIC_READ,
                                                          share_all, nullptr, OPEN_EXISTING,
                                                          FILE_FLAG_SEQUENTIAL_SCAN, nullptr))),
      path_(path) {
    if (handle_ == no_handle) {
        throw ZipError(ZipCode::cannot_open_file, "could not open for reading: " + path);
    }
}

InputFile::InputFile(InputFile&& other) noexcept
    : handle_(std::exchange(other.handle_, no_handle)), path_(std::move(other.path_)) {}

InputFile::~InputFile() {
    if (handle_ != no_handle) {
        CloseHandle(as_handle(handle_));
    }
}

std::uint64_t InputFile::size() const {
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(as_handle(handle_), &size)) {
        throw ZipError(ZipCode::read_failed, "could not read: " + path_);
    }
    return static_cast<std::uint64_t>(size.QuadPart);
}

std::size_t InputFile::read_at(std::uint64_t offset, std::span<std::uint8_t> room) const {
    std::size_t done = 0;
    while (done < room.size()) {
        OVERLAPPED place{};
        place.Offset = static_cast<DWORD>(offset + done);
        place.OffsetHigh = static_cast<DWORD>((offset + done) >> 32);
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(std::min(room.size() - done, largest_move));
        if (!ReadFile(as_handle(handle_), room.data() + done, wanted, &count, &place) &&
            GetLastError() != ERROR_HANDLE_EOF) {
            throw ZipError(ZipCode::read_failed, "could not read: " + path_);
        }
        if (count == 0) {
            break;
        }
        done += count;
    }
    return done;
}

}  // namespace kovrel::zip
