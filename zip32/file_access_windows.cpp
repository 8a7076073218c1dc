#include <windows.h>

#include <algorithm>

#include "file_access.h"
#include "runtime/owned.h"
#include "services/text_encoding.h"
#include "windows_files.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

// One call moves at most this much, so that a count always fits a DWORD.
constexpr std::size_t largest_move = std::size_t{1} << 30;

constexpr std::wstring_view unlimited = LR"(\\?\)";
constexpr std::wstring_view unlimited_server = LR"(\\?\UNC\)";
constexpr std::wstring_view server = LR"(\\)";

// The text that a function returns when called twice, first for the text's length.
template <typename Call>
std::wstring text_of(Call call) {
    std::wstring text(call(nullptr, 0), L'\0');
    text.resize(call(text.data(), static_cast<DWORD>(text.size())));
    return text;
}

std::wstring without_limit_prefix(const std::wstring& path) {
    if (path.starts_with(unlimited_server)) {
        return std::wstring(server).append(path, unlimited_server.size());
    }
    return path.starts_with(unlimited) ? path.substr(unlimited.size()) : path;
}

// Whether there may be a file after all: the disk, the network or memory has failed.
bool is_failing_device(DWORD error) {
    constexpr DWORD errors[] = {ERROR_NOT_ENOUGH_MEMORY,  ERROR_OUTOFMEMORY,  ERROR_CRC,
                                ERROR_DEV_NOT_EXIST,      ERROR_ADAP_HDW_ERR, ERROR_UNEXP_NET_ERR,
                                ERROR_NETNAME_DELETED,    ERROR_SEM_TIMEOUT,  ERROR_IO_DEVICE,
                                ERROR_NO_SYSTEM_RESOURCES};
    return std::ranges::find(errors, error) != std::end(errors);
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

OpenFile open_to_compare(const std::string& path) {
    return open_file(path, FILE_READ_ATTRIBUTES, share_all, OPEN_EXISTING,
                     FILE_FLAG_BACKUP_SEMANTICS);
}

OVERLAPPED at_offset(std::uint64_t offset) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
}

}  // namespace

OpenFile open_file(const std::string& path, DWORD access, DWORD share, DWORD disposition,
                   DWORD flags) {
    return OpenFile(reinterpret_cast<std::intptr_t>(CreateFileW(
        system_path(path).c_str(), access, share, nullptr, disposition, flags, nullptr)));
}

std::wstring full_path(const std::wstring& path) {
    return text_of([&](wchar_t* text, DWORD size) {
        return GetFullPathNameW(path.c_str(), size, text, nullptr);
    });
}

std::wstring system_path(const std::string& path) {
    std::wstring wide = from_utf8(path);
    const DWORD needed = GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
    if (needed < MAX_PATH - 12 || wide.starts_with(unlimited)) return wide;
    const std::wstring full = full_path(wide);
    return full.starts_with(server) ? std::wstring(unlimited_server).append(full, server.size())
                                    : std::wstring(unlimited).append(full);
}

// Not DOS, despite the DOS attributes: Info-ZIP's unzip decodes the names of DOS entries as code
// page 850 even where they are marked as UTF-8.
std::uint16_t made_by_this_system() noexcept {
    return 10 << 8 | 20;
}

std::optional<FileStatus> file_status(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (path.empty()) return std::nullopt;
    if (!GetFileAttributesExW(system_path(path).c_str(), GetFileExInfoStandard, &data)) {
        if (is_failing_device(GetLastError())) {
            throw ZipError(ZipCode::read_failed, "could not examine: " + path);
        }
        return std::nullopt;
    }
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DEVICE) != 0) return std::nullopt;
    constexpr DWORD kept = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                           FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_ARCHIVE;
    FileStatus result;
    result.folder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    result.hidden_or_system =
        (data.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0;
    result.size = std::uint64_t{data.nFileSizeHigh} << 32 | data.nFileSizeLow;
    result.modified = local_dos_time(data.ftLastWriteTime);
    result.moment = moment_of(data.ftLastWriteTime);
    result.attributes = data.dwFileAttributes & kept;
    return result;
}

std::optional<std::vector<std::string>> folder_names(const std::string& path) {
    std::vector<std::string> names;
    WIN32_FIND_DATAW found{};
    const HANDLE handle = FindFirstFileW(system_path(path + "\\*").c_str(), &found);
    if (handle == INVALID_HANDLE_VALUE) return std::nullopt;
    const Owned<HANDLE, &FindClose> search(handle);
    do {
        const std::wstring_view name = found.cFileName;
        if (name != L"." && name != L"..") names.push_back(to_utf8(name));
    } while (FindNextFileW(handle, &found));
    if (GetLastError() != ERROR_NO_MORE_FILES) return std::nullopt;
    std::sort(names.begin(), names.end());
    return names;
}

bool is_same_file(const std::string& first, const std::string& second) {
    const OpenFile one = open_to_compare(first);
    const OpenFile other = open_to_compare(second);
    BY_HANDLE_FILE_INFORMATION one_is{};
    BY_HANDLE_FILE_INFORMATION other_is{};
    return one && other && GetFileInformationByHandle(as_handle(one), &one_is) &&
           GetFileInformationByHandle(as_handle(other), &other_is) &&
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
    const OpenFile file = open_to_compare(path);
    if (!file) return path;
    const std::wstring found = text_of([&](wchar_t* text, DWORD size) {
        return GetFinalPathNameByHandleW(as_handle(file), text, size, FILE_NAME_NORMALIZED);
    });
    return found.empty() ? path : to_utf8(without_limit_prefix(found));
}

std::string absolute_path(const std::string& path) {
    return to_utf8(without_limit_prefix(full_path(from_utf8(path))));
}

void remove_unheld_file(const std::string& path) {
    // A temporary file is opened for its writer alone until it has its target's name.
    remove_file(path);
}

std::string name_key(const std::string& name) {
    std::wstring key = from_utf8(name);
    const int size = static_cast<int>(key.size());
    LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, key.data(), size, key.data(), size);
    return to_utf8(key);
}

OpenFile::~OpenFile() {
    if (*this) CloseHandle(as_handle(*this));
}

OpenFile open_for_reading(const std::string& path) {
    return open_file(path, GENERIC_READ, share_all, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN);
}

std::optional<std::uint64_t> OpenFile::size() const noexcept {
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(as_handle(*this), &size)) return std::nullopt;
    return static_cast<std::uint64_t>(size.QuadPart);
}

std::optional<std::size_t> OpenFile::read_some(std::uint64_t offset,
                                               std::span<std::uint8_t> room) const noexcept {
    OVERLAPPED place = at_offset(offset);
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(std::min(room.size(), largest_move));
    if (!ReadFile(as_handle(*this), room.data(), wanted, &count, &place) &&
        GetLastError() != ERROR_HANDLE_EOF) {
        return std::nullopt;
    }
    return count;
}

std::size_t OpenFile::write_some(std::uint64_t offset, ByteView bytes) const noexcept {
    OVERLAPPED place = at_offset(offset);
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(std::min(bytes.size(), largest_move));
    return WriteFile(as_handle(*this), bytes.data(), wanted, &count, &place) ? count : 0;
}

bool OpenFile::set_size(std::uint64_t size) const noexcept {
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(size);
    return SetFilePointerEx(as_handle(*this), place, nullptr, FILE_BEGIN) &&
           SetEndOfFile(as_handle(*this));
}

bool OpenFile::flush() const noexcept {
    return FlushFileBuffers(as_handle(*this)) != 0;
}

}  // namespace kovrel::zip
