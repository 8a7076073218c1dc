// The file that an archive is written to, on Windows.
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <sddl.h>
#include <utility>

#include "file_access.h"
#include "runtime/owned.h"
#include "windows_files.h"
#include "zip_error.h"

namespace kovrel::zip {
namespace {

constexpr SECURITY_INFORMATION owner_and_rights =
    OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;

// A file's owner and who may do what with it; empty where that cannot be read.
Bytes security_of(const std::wstring& path) {
    DWORD size = 0;
    GetFileSecurityW(path.c_str(), owner_and_rights, nullptr, 0, &size);
    Bytes descriptor(size);
    if (size == 0 ||
        !GetFileSecurityW(path.c_str(), owner_and_rights, descriptor.data(), size, &size)) {
        descriptor.clear();
    }
    return descriptor;
}

// Only the rights where this user may not give files away.
void set_security(const std::wstring& path, PSECURITY_DESCRIPTOR descriptor) {
    if (!SetFileSecurityW(path.c_str(), owner_and_rights, descriptor)) {
        SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, descriptor);
    }
}

// Leaves a file to its owner alone, who may do all but run it.
void make_private(const std::wstring& path) {
    constexpr const wchar_t* owner_only = L"O:OWD:P(A;;0x1F019F;;;OW)";
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (ConvertStringSecurityDescriptorToSecurityDescriptorW(owner_only, SDDL_REVISION_1,
                                                             &descriptor, nullptr)) {
        const Owned<PSECURITY_DESCRIPTOR, &LocalFree> owner(descriptor);
        set_security(path, descriptor);
    }
}

void copy_security(const std::wstring& from, const std::wstring& path) {
    Bytes wanted = security_of(from);
    if (wanted.empty() || security_of(path) == wanted) {
        return;
    }
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (GetSecurityDescriptorControl(wanted.data(), &control, &revision) &&
        (control & SE_DACL_AUTO_INHERITED) != 0) {
        // Otherwise what was inherited would count as given to this file.
        SetSecurityDescriptorControl(wanted.data(), SE_DACL_AUTO_INHERIT_REQ,
                                     SE_DACL_AUTO_INHERIT_REQ);
    }
    set_security(path, wanted.data());
}

// The attributes of a file that another one in its place is created with.
DWORD attributes_of(const std::wstring& path) {
    constexpr DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                           FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_ENCRYPTED;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const DWORD result = attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes & kept;
    return result == 0 ? FILE_ATTRIBUTE_NORMAL : result;
}

// Renames an open file, which nobody else can open meanwhile. The system keeps the short name of
// the one replaced, as for every name that is soon taken again.
bool rename_replacing(HANDLE file, const std::wstring& target) {
    const std::wstring full = full_path(target);
    const std::size_t length = full.size() * sizeof(wchar_t);
    Bytes room(sizeof(FILE_RENAME_INFO) + length);
    auto* const info = reinterpret_cast<FILE_RENAME_INFO*>(room.data());
    info->ReplaceIfExists = TRUE;
    info->FileNameLength = static_cast<DWORD>(length);
    std::memcpy(info->FileName, full.data(), length);
    return SetFileInformationByHandle(file, FileRenameInfo, info,
                                      static_cast<DWORD>(room.size())) != 0;
}

}  // namespace

NewFile::NewFile(const std::string& target) : target_(target) {
    remove_abandoned_files_beside(target);
    const std::wstring old = system_path(target);
    for (int attempt = 0; handle_ == no_handle && attempt < 100; ++attempt) {
        path_ = temporary_name_beside(target);
        handle_ = reinterpret_cast<std::intptr_t>(
            CreateFileW(system_path(path_).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0,
                        nullptr, CREATE_NEW, attributes_of(old), nullptr));
        if (handle_ == no_handle && GetLastError() != ERROR_FILE_EXISTS) {
            break;
        }
    }
    if (handle_ == no_handle) {
        throw ZipError(ZipCode::cannot_create, "could not create: " + target);
    }
    const std::wstring own = system_path(path_);
    if (const Bytes rights = security_of(old); !rights.empty() && rights != security_of(own)) {
        make_private(own);
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
    const HANDLE file = as_handle(handle_);
    if (!FlushFileBuffers(file)) {
        throw ZipError(ZipCode::write_failed, "could not write: " + target_);
    }
    const std::wstring target = system_path(target_);
    copy_security(target, system_path(path_));
    if (WIN32_FILE_ATTRIBUTE_DATA old{};
        GetFileAttributesExW(target.c_str(), GetFileExInfoStandard, &old)) {
        SetFileTime(file, &old.ftCreationTime, nullptr, nullptr);
    }
    if (!rename_replacing(file, target)) {
        throw ZipError(ZipCode::cannot_create, "could not replace: " + target_);
    }
    path_.clear();
    CloseHandle(as_handle(std::exchange(handle_, no_handle)));
}

}  // namespace kovrel::zip
