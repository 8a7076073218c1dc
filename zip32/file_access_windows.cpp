#include <windows.h>

#include <algorithm>
#include <utility>

#include "file_access.h"
#include "names.h"
#include "wide_text.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

constexpr std::intptr_t no_handle = -1;
constexpr DWORD share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// One call moves at most this much, so that a count always fits a DWORD.
constexpr std::size_t largest_move = std::size_t{1} << 30;

HANDLE as_handle(std::intptr_t value) {
    return reinterpret_cast<HANDLE>(value);
}

// The path as the file functions take it; past the classic limit, in the form without limit.
std::wstring system_path(const std::string& path) {
    const std::wstring wide = utf16_from_utf8(path);
    const DWORD needed = GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
    if (needed < MAX_PATH - 12 || wide.starts_with(L"\\\\?\\")) {
        return wide;
    }
    std::wstring full(needed, L'\0');
    full.resize(GetFullPathNameW(wide.c_str(), needed, full.data(), nullptr));
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC\\" + full.substr(2) : L"\\\\?\\" + full;
}

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

HANDLE open_to_compare(const std::string& path) {
    return CreateFileW(system_path(path).c_str(), FILE_READ_ATTRIBUTES, share_all, nullptr,
                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
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
    const HANDLE search = FindFirstFileW(system_path(path + "\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return names;
    }
    do {
        const std::wstring_view name = found.cFileName;
        if (name != L"." && name != L"..") {
            names.push_back(utf8_from_utf16(name));
        }
    } while (FindNextFileW(search, &found));
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

bool is_same_file(const std::string& first, const std::string& second) {
    const HANDLE one = open_to_compare(first);
    const HANDLE other = open_to_compare(second);
    BY_HANDLE_FILE_INFORMATION one_is{};
    BY_HANDLE_FILE_INFORMATION other_is{};
    const bool same = one != INVALID_HANDLE_VALUE && other != INVALID_HANDLE_VALUE &&
                      GetFileInformationByHandle(one, &one_is) &&
                      GetFileInformationByHandle(other, &other_is) &&
                      one_is.dwVolumeSerialNumber == other_is.dwVolumeSerialNumber &&
                      one_is.nFileIndexHigh == other_is.nFileIndexHigh &&
                      one_is.nFileIndexLow == other_is.nFileIndexLow;
    for (const HANDLE handle : {one, other}) {
        if (handle != INVALID_HANDLE_VALUE) {
            CloseHandle(handle);
        }
    }
    return same;
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

std::string name_key(const std::string& name) {
    const std::wstring wide = utf16_from_utf8(name);
    std::wstring upper(wide.size(), L'\0');
    LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, wide.data(), static_cast<int>(wide.size()),
                 upper.data(), static_cast<int>(upper.size()));
    return utf8_from_utf16(upper);
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

NewFile::NewFile(const std::string& target) : target_(target) {
    for (int attempt = 0; handle_ == no_handle && attempt < 100; ++attempt) {
        path_ = temporary_name_beside(target);
        handle_ = reinterpret_cast<std::intptr_t>(
            CreateFileW(system_path(path_).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                        CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (handle_ == no_handle && GetLastError() != ERROR_FILE_EXISTS) {
            break;
        }
    }
    if (handle_ == no_handle) {
        throw ZipError(ZipCode::cannot_create, "could not create: " + target);
    }
}

NewFile::~NewFile() {
    if (handle_ != no_handle) {
        CloseHandle(as_handle(handle_));
    }
    if (!path_.empty()) {
        remove_file(path_);
    }
}

void NewFile::write_at(std::uint64_t offset, ByteView bytes) {
    while (!bytes.empty()) {
        OVERLAPPED place{};
        place.Offset = static_cast<DWORD>(offset);
        place.OffsetHigh = static_cast<DWORD>(offset >> 32);
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), largest_move));
        if (!WriteFile(as_handle(handle_), bytes.data(), wanted, &count, &place) || count == 0) {
            throw ZipError(ZipCode::write_failed, "could not write: " + target_);
        }
        bytes = bytes.subspan(count);
        offset += count;
    }
}

void NewFile::set_size(std::uint64_t size) {
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(size);
    if (!SetFilePointerEx(as_handle(handle_), place, nullptr, FILE_BEGIN) ||
        !SetEndOfFile(as_handle(handle_))) {
        throw ZipError(ZipCode::write_failed, "could not write: " + target_);
    }
}

void NewFile::replace_target() {
    const bool stored = FlushFileBuffers(as_handle(handle_)) != 0;
    const bool closed = CloseHandle(as_handle(std::exchange(handle_, no_handle))) != 0;
    if (!stored || !closed) {
        throw ZipError(ZipCode::write_failed, "could not write: " + target_);
    }
    if (!MoveFileExW(system_path(path_).c_str(), system_path(target_).c_str(),
                     MOVEFILE_REPLACE_EXISTING)) {
        throw ZipError(ZipCode::cannot_create, "could not replace: " + target_);
    }
    path_.clear();
}

}  // namespace kovrel::zip
