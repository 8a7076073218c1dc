// How a file is created beside its target and takes its place on Windows.
#include <windows.h>

#include <cstring>
#include <sddl.h>

#include "file_access.h"
#include "runtime/owned.h"
#include "windows_files.h"

namespace kovrel::zip {
namespace {

constexpr SECURITY_INFORMATION owner_and_rights =
    OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;

// A file's owner and access rights; empty where they cannot be read.
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

// Sets only the rights where this user may not set the owner.
void set_security(const std::wstring& path, PSECURITY_DESCRIPTOR descriptor) {
    if (!SetFileSecurityW(path.c_str(), owner_and_rights, descriptor)) {
        SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, descriptor);
    }
}

// Gives every right but execution to the owner, none to others.
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
    if (wanted.empty() || security_of(path) == wanted) return;
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (GetSecurityDescriptorControl(wanted.data(), &control, &revision) &&
        (control & SE_DACL_AUTO_INHERITED) != 0) {
        // Otherwise inherited entries would become explicit ones.
        SetSecurityDescriptorControl(wanted.data(), SE_DACL_AUTO_INHERIT_REQ,
                                     SE_DACL_AUTO_INHERIT_REQ);
    }
    set_security(path, wanted.data());
}

// Those attributes of a file with which its replacement is created.
DWORD attributes_of(const std::wstring& path) {
    constexpr DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                           FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_ENCRYPTED;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const DWORD result = attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes & kept;
    return result == 0 ? FILE_ATTRIBUTE_NORMAL : result;
}

// Renames an open file, which nobody else can open meanwhile. The system gives it the short name of
// the file that it replaces.
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

bool NewFile::create() {
    const std::wstring old = system_path(target_);
    const DWORD attributes = permissions_ ? FILE_ATTRIBUTE_NORMAL : attributes_of(old);
    file_ = open_file(path_, GENERIC_READ | GENERIC_WRITE | DELETE, 0, CREATE_NEW, attributes);
    if (!file_) return GetLastError() != ERROR_FILE_EXISTS;
    if (permissions_) return true;
    const std::wstring own = system_path(path_);
    if (const Bytes rights = security_of(old); !rights.empty() && rights != security_of(own)) {
        make_private(own);
    }
    return true;
}

// In one call, since each takes as long as writing a small file. A field of zero stays as it is.
void NewFile::set_status() noexcept {
    constexpr std::uint16_t owner_may_write = 0200;
    FILE_BASIC_INFO info{};
    info.LastWriteTime.QuadPart = static_cast<LONGLONG>(modified_.value_or(0));
    if (permissions_ && (*permissions_ & owner_may_write) == 0) {
        info.FileAttributes = FILE_ATTRIBUTE_READONLY;
    }
    if (info.LastWriteTime.QuadPart == 0 && info.FileAttributes == 0) return;
    SetFileInformationByHandle(as_handle(file_), FileBasicInfo, &info, sizeof(info));
}

bool NewFile::rename_to_target() {
    const HANDLE file = as_handle(file_);
    const std::wstring target = system_path(target_);
    if (permissions_) {
        if (rename_replacing(file, target)) return true;
        // A read-only file is not replaced, as long as it is one.
        const DWORD old = GetFileAttributesW(target.c_str());
        if (old == INVALID_FILE_ATTRIBUTES || (old & FILE_ATTRIBUTE_READONLY) == 0 ||
            !SetFileAttributesW(target.c_str(), old & ~DWORD{FILE_ATTRIBUTE_READONLY})) {
            return false;
        }
        if (rename_replacing(file, target)) return true;
        SetFileAttributesW(target.c_str(), old);
        return false;
    }
    copy_security(target, system_path(path_));
    if (WIN32_FILE_ATTRIBUTE_DATA old{};
        GetFileAttributesExW(target.c_str(), GetFileExInfoStandard, &old)) {
        SetFileTime(file, &old.ftCreationTime, nullptr, nullptr);
    }
    return rename_replacing(file, target);
}

}  // namespace kovrel::zip
