#include "services/file_system.h"

#include <algorithm>

#include "runtime/failure.h"

namespace kovrel {
namespace {

[[noreturn]] void raise(DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
            throw Failure(FailureNumber::file_not_found);
        case ERROR_PATH_NOT_FOUND:
            throw Failure(FailureNumber::path_not_found);
        case ERROR_ACCESS_DENIED:
        case ERROR_ALREADY_EXISTS:
        case ERROR_FILE_EXISTS:
        case ERROR_WRITE_PROTECT:
            throw Failure(FailureNumber::path_file_access);
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            throw Failure(FailureNumber::permission_denied);
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            throw Failure(FailureNumber::disk_full);
        case ERROR_NOT_READY:
            throw Failure(FailureNumber::disk_not_ready);
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
        case ERROR_DIRECTORY:
        case ERROR_FILENAME_EXCED_RANGE:
            throw Failure(FailureNumber::bad_file_name);
        case ERROR_NOT_ENOUGH_MEMORY:
        case ERROR_OUTOFMEMORY:
            throw Failure(FailureNumber::out_of_memory);
        default:
            throw Failure(FailureNumber::device_io);
    }
}

std::wstring full_path(const std::wstring& path) {
    std::wstring full(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        if (length == 0) return path;
        const bool complete = length < full.size();
        full.resize(length);
        if (complete) return full;
    }
}

/// The system counts the bytes of a path in 16 bits, and some versions do so without a check. Room
/// is left for the prefix and the terminator that it adds.
void check_length(const std::wstring& path) {
    constexpr std::size_t longest = 32'750;
    if (path.size() > longest) raise(ERROR_FILENAME_EXCED_RANGE);
}

/// The path, with the prefix that lifts the length limit where it is long enough to need it.
std::wstring unlimited(const std::wstring& path) {
    // The lowest of the limits is that of CreateDirectory: MAX_PATH less an 8.3 file name.
    constexpr std::size_t limit = MAX_PATH - 12;
    check_length(path);
    if (path.starts_with(LR"(\\?\)") || path.starts_with(LR"(\\.\)")) return path;
    const std::wstring full = full_path(path);
    if (full.size() < limit) return path;
    std::wstring result =
        full.starts_with(LR"(\\)") ? LR"(\\?\UNC)" + full.substr(1) : LR"(\\?\)" + full;
    check_length(result);
    return result;
}

bool drive_is_missing(const std::wstring& path) {
    const std::wstring full = full_path(path);
    if (full.size() < 2 || full[1] != L':') return false;
    return GetDriveTypeW((full.substr(0, 2) + L'\\').c_str()) == DRIVE_NO_ROOT_DIR;
}

/// ReadFile and WriteFile count in 32 bits.
DWORD piece(std::size_t count) {
    return static_cast<DWORD>(std::min<std::size_t>(count, 1U << 30));
}

HANDLE open_file(const std::wstring& path, DWORD access, DWORD disposition) {
    HANDLE handle = CreateFileW(unlimited(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) raise(GetLastError());
    return handle;
}

}  // namespace

std::wstring first_listed(const std::wstring& path, Listing listing) {
    const bool is_whole_folder = path.empty() || path.find_last_of(L"\\/:") == path.size() - 1;
    // FindFirstFile does not find a drive's root.
    std::wstring itself = is_whole_folder && listing == Listing::files_and_folders ? L"." : L"";
    WIN32_FIND_DATAW entry{};
    HANDLE const search =
        FindFirstFileW(unlimited(is_whole_folder ? path + L'*' : path).c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        if (error == ERROR_FILE_NOT_FOUND || error == ERROR_NO_MORE_FILES) return itself;
        if (error != ERROR_PATH_NOT_FOUND) raise(error);
        if (drive_is_missing(path)) throw Failure(FailureNumber::device_unavailable);
        return {};
    }
    const Owned<HANDLE, &FindClose> owner(search);
    DWORD passed_over = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    if (listing == Listing::files) passed_over |= FILE_ATTRIBUTE_DIRECTORY;
    do {
        if ((entry.dwFileAttributes & passed_over) == 0) return entry.cFileName;
        if (entry.cFileName == itself) itself.clear();
    } while (FindNextFileW(search, &entry));
    return itself;
}

void create_folder(const std::wstring& path) {
    if (!CreateDirectoryW(unlimited(path).c_str(), nullptr)) raise(GetLastError());
}

void delete_file(const std::wstring& path) {
    if (!DeleteFileW(unlimited(path).c_str())) raise(GetLastError());
}

BinaryFile BinaryFile::open(const std::wstring& path) {
    return BinaryFile(open_file(path, GENERIC_READ, OPEN_EXISTING));
}

BinaryFile BinaryFile::create(const std::wstring& path) {
    return BinaryFile(open_file(path, GENERIC_WRITE, CREATE_ALWAYS));
}

std::uint64_t BinaryFile::size() const {
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(handle_.get(), &size)) raise(GetLastError());
    return static_cast<std::uint64_t>(size.QuadPart);
}

std::size_t BinaryFile::read(void* bytes, std::size_t count) {
    std::size_t total = 0;
    while (total < count) {
        DWORD done = 0;
        if (!ReadFile(handle_.get(), static_cast<char*>(bytes) + total, piece(count - total), &done,
                      nullptr)) {
            raise(GetLastError());
        }
        if (done == 0) break;
        total += done;
    }
    return total;
}

void BinaryFile::write(const void* bytes, std::size_t count) {
    std::size_t total = 0;
    while (total < count) {
        DWORD done = 0;
        if (!WriteFile(handle_.get(), static_cast<const char*>(bytes) + total, piece(count - total),
                       &done, nullptr)) {
            raise(GetLastError());
        }
        // Some file systems report success with 0 bytes when the disk is full.
        if (done == 0) raise(ERROR_DISK_FULL);
        total += done;
    }
}

}  // namespace kovrel
